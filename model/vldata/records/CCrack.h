#pragma once

#include "model/vldata/records/point_results.h"

namespace Orlix::Data::Velmo9 {

/// What has to be known about how a crack width was found.
enum class CrackRemark {
  none,
  wideBarSpacing,    ///< bars so far apart that the depth of the tension zone decides the spacing
  noBars,            ///< no bar holds the crack together: its spacing is that depth's alone
  steelBeyondRange,  ///< the steel's strain is beyond what the rule holds for: no width
  noCrackedState     ///< the concrete's model bears any tension and never cracks: no width
};

/// A few words on it, for tables; empty for none.
const char* CrackRemarkText(CrackRemark remark);

/// A crack in a face of a concrete component: the widest within its region.
struct CCrack {
  Vec2<double> position{kNoPosition};  ///< (y, z) [m], on the face
  double width{kNotCalculated};        ///< [m]; +infinity: the rule does not hold
  double spacing{kNotCalculated};      ///< [m]: length whose mean strain the crack gathers
  double strain{kNotCalculated};       ///< mean strain of the steel or surface less the concrete's
  int face{};                          ///< of the component's outlines, from 0, in their order
  int bar{-1};                         ///< that governs, from 0 in the component's order; -1: none
  CrackRemark remark{CrackRemark::none};

  Vec2<double> CrackPos() const { return position; }
};

}  // namespace Orlix::Data::Velmo9
