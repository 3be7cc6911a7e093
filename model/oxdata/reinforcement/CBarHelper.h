#pragma once

#include <optional>
#include <span>
#include <string>

namespace Orlix::Util {

/// Families of bar sizes. Areas are nominal ones.
enum class BarSystem {
  metric,      ///< B20: EN 10080, 6 to 50 mm, the circle's area
  us,          ///< #8: ASTM A615/A615M, table 1
  canadian,    ///< 25M: CSA G30.18, table 1
  australian,  ///< N24: AS/NZS 4671, 10 to 40 mm, the circle's area
  strand       ///< S15.7: seven-wire strand, BS 5896, table 6
};

/// A size of the table.
struct BarSize {
  BarSystem system{BarSystem::metric};
  double number{};    ///< as the name has it: 20, 8, 25, 24, 15.7
  double diameter{};  ///< nominal [m]
  double area{};      ///< nominal [m²]
  friend bool operator==(const BarSize&, const BarSize&) = default;
};

/// The bar sizes that can be had.
class CBarHelper {
 public:
  /// The sizes of a system, from the smallest on.
  std::span<const BarSize> Sizes(BarSystem system) const;
  /// The size with a number; nothing when there is none.
  std::optional<BarSize> Find(BarSystem system, double number) const;
  /// The size whose diameter is nearest, of two as near the smaller.
  /// @param diameter  [m]; what is no number takes the smallest size
  BarSize Nearest(double diameter, BarSystem system = BarSystem::metric) const;
  /// The numbers of a system as a list for messages: "6, 8, 10".
  std::wstring Numbers(BarSystem system) const;
  /// The name of a size: "B20", "#8", "25M", "N24", "S15.7".
  /// @param letter  of a metric bar
  static std::wstring Name(const BarSize& size, wchar_t letter = L'B');
};

}  // namespace Orlix::Util
