#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/VelmoApp.h"
#include "plot/SectionView.h"
#include "plot/SheetFrame.h"

namespace Orlix::Plot {

/// Names and code, as they stand in the title block of every sheet.
/// @param iTask, iCase  nothing: none is named
TitleBlock TitleOf(const VelmoApp& app, int iSec, std::optional<int> iTask,
                   std::optional<int> iCase);

/// "5:1", "1:20".
std::string ScaleText(double denominator);

/// What a sheet of a section says in words beside its drawing.
class SectionText {
 public:
  SectionText(const VelmoApp& app, int iSec, const std::optional<PictureCase>& ofCase,
              const SectionView& view);

  /// @param scale  of the drawing, as `ScaleText` has it
  TitleBlock Title(const std::string& scale) const;
  /// The strip above it: loads, extremes, geometry; without a case components and bars; the key.
  std::vector<InfoColumn> Columns() const;

 private:
  using Row = std::vector<std::string>;

  Row LoadRow(const std::string& name, const Vec3<double>& load) const;
  InfoColumn Loads() const;
  InfoColumn ExtremesColumn() const;
  InfoColumn AxisColumn() const;
  InfoColumn PropertiesColumn() const;
  InfoColumn BarsColumn() const;
  InfoColumn Key() const;
  std::string Length(double value) const;
  /// Depth of the compressed part of the included concrete [m]; NaN: none or no neutral axis.
  double CompressionDepth() const;

  const VelmoApp& app_;
  int iSec_;
  std::optional<PictureCase> case_;
  const SectionView& view_;
  const Data::CUnit& units_;
};

}  // namespace Orlix::Plot
