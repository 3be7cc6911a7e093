#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "plot/Canvas.h"

namespace Orlix::Plot {

/// A sign in a key.
enum class KeySign {
  barInTension,
  barInCompression,
  bar,
  prestressedBar,
  compressionZone,
  steel,
  frp,
  notIncluded,
  neutralAxis,
  origin,
  solidCurve,
  dashedCurve,
  point,
  designPoint,
  load,
  projectedLoad,
  governingLoad
};

/// A column of the strip above the title block: a heading, then rows whose first cell stands at the
/// left and whose others share the rest of the width, or rows of a key.
struct InfoColumn {
  std::string heading;
  double width{};  ///< [mm]
  std::vector<std::vector<std::string>> rows{};
  std::vector<std::pair<KeySign, std::string>> key{};
};

/// What stands in the title block.
struct TitleBlock {
  using Lines = std::vector<std::pair<std::string, std::string>>;  ///< a label and its text

  Lines names;       ///< project, section, task, case
  Lines conditions;  ///< code, limit state, state, scale
  std::string utilisationName{"Utilisation"};
  std::string utilisation;  ///< "0.815"; empty: none
  std::string status;       ///< "OK", "FAILS"; empty: none
};

/// Draws the part of a sheet that all sheets share and tells where the rest goes.
class SheetFrame {
 public:
  static constexpr double kMargin = 8.0;  ///< [mm], as all of these
  static constexpr double kTitleHeight = 22.0;
  static constexpr double kInfoHeight = 33.0;
  static constexpr std::size_t kInfoRows = 8;
  static constexpr Box kSheet{kMargin, kMargin, Canvas::kWidth - kMargin,
                              Canvas::kHeight - kMargin};
  static constexpr Box kTitle{kSheet.left, kSheet.bottom - kTitleHeight, kSheet.right,
                              kSheet.bottom};
  static constexpr Box kInfo{kSheet.left, kTitle.top - kInfoHeight, kSheet.right, kTitle.top};
  static constexpr Box kMain{kSheet.left, kSheet.top, kSheet.right, kInfo.top};

  /// Free at the bottom of `kMain` for the line of the sign rule.
  static constexpr double kRuleHeight = 5.0;
  static constexpr const char* kSignRule =
      "Tension positive. Positive Myy: tension on the +z side; positive Mzz: tension on the -y "
      "side. Loads act at the origin of y and z.";

  /// Lines, title block, strip and the sign rule with a remark behind. Texts too long for their
  /// place end with "…".
  static void Draw(Canvas& canvas, const TitleBlock& title, const std::vector<InfoColumn>& columns,
                   const std::string& remark);
};

}  // namespace Orlix::Plot
