#pragma once

#include <string>
#include <vector>

#include "dxf_import/SectionGeometry.h"
#include "model/oxdata/reinforcement/CBarHelper.h"
#include "model/oxdata/section/CSection.h"

namespace Orlix::Bridge {

/// Where the origin of a section made from a drawing lies.
enum class DrawingOrigin {
  centroid,  ///< of the gross concrete, holes taken out
  asDrawn    ///< the drawing's
};

/// What a drawing does not say about a section.
struct DrawingSettings {
  std::string name{};      ///< of the section, UTF-8
  int concreteGrade{};     ///< index into the document's table
  int rebarGrade{};        ///< index into the document's table
  DrawingOrigin origin{};  ///< centroid
  Util::BarSystem barSizes{Util::BarSystem::metric};
};

/// A section made from a drawing, with what the engineer should know of it.
struct DrawingSection {
  Data::CSection section;             ///< empty when there are problems
  std::vector<std::string> problems;  ///< what keeps the drawing from being a section
  std::vector<std::string> warnings;  ///< what was assumed
};

/// Makes a section of one concrete component from an imported drawing: x becomes y, y becomes z,
/// millimetres metres. A circular hole becomes a polygon of equal area. A bar takes the size of the
/// table that its diameter is within 2 % of; another keeps the diameter drawn and the circle's
/// area, and a warning names it. Vertices drawn twice in succession count once.
/// @param geometry  [mm], of a successful import
/// @return problems instead of a section for outlines that bound no area, cross themselves or each
///         other, and for what is no number or out of all proportion.
DrawingSection SectionFromDrawing(const dxf_import::SectionGeometry& geometry,
                                  const DrawingSettings& settings, const Util::CBarHelper& sizes);

}  // namespace Orlix::Bridge
