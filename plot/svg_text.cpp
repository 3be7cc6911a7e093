#include "plot/svg_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>
#include <vector>

namespace Orlix::Plot {

namespace {

constexpr std::array<std::string_view, 3> kBeforeId = {" id=\"", "href=\"#", "url(#"};
constexpr std::array<std::string_view, 3> kBeforeCoordinates = {" d=\"", " x=\"", " y=\""};
constexpr std::string_view kCounted = "surface";

/// Copies a text piece by piece.
class SvgTidier {
 public:
  SvgTidier(std::string_view svg, std::string_view prefix) : rest_(svg), prefix_(prefix) {}

  std::string Tidied() {
    result_.reserve(rest_.size());
    while (!rest_.empty()) {
      if (Take(kBeforeId)) {
        AppendId(Until("\")"));
      } else if (Take(kBeforeCoordinates)) {
        AppendCoordinates(Until("\""));
      } else {
        result_ += rest_.front();
        rest_.remove_prefix(1);
      }
    }
    return std::move(result_);
  }

 private:
  // Copies one of the beginnings, if the rest begins with it.
  bool Take(const std::array<std::string_view, 3>& beginnings) {
    for (const std::string_view text : beginnings) {
      if (rest_.substr(0, text.size()) != text) continue;
      result_ += text;
      rest_.remove_prefix(text.size());
      return true;
    }
    return false;
  }

  std::string_view Until(std::string_view ends) {
    const std::string_view piece = rest_.substr(0, rest_.find_first_of(ends));
    rest_.remove_prefix(piece.size());
    return piece;
  }

  // An id that the library counts gets its place in the picture.
  void AppendId(std::string_view id) {
    result_ += prefix_;
    if (id.substr(0, kCounted.size()) != kCounted) {
      result_ += id;
      return;
    }
    auto place = std::find(counted_.begin(), counted_.end(), id);
    if (place == counted_.end()) place = counted_.insert(counted_.end(), id);
    result_ += kCounted;
    result_ += std::to_string(place - counted_.begin() + 1);
  }

  void AppendCoordinates(std::string_view numbers) {
    constexpr std::size_t kDecimals = 3;
    while (!numbers.empty()) {
      const std::size_t point = std::min(numbers.size(), numbers.find('.'));
      result_ += numbers.substr(0, point);
      numbers.remove_prefix(point);
      if (numbers.empty()) return;
      const std::size_t end = std::min(numbers.size(), numbers.find_first_not_of("0123456789", 1));
      std::string_view decimals = numbers.substr(0, std::min(end, kDecimals + 1));
      decimals = decimals.substr(0, decimals.find_last_not_of('0') + 1);
      if (decimals.size() > 1) result_ += decimals;
      numbers.remove_prefix(end);
    }
  }

  std::string_view rest_;
  std::string_view prefix_;
  std::string result_;
  std::vector<std::string_view> counted_;
};

}  // namespace

std::string TidySvg(std::string_view svg, std::string_view prefix) {
  if (!prefix.empty() && svg.substr(0, 5) == "<?xml") {
    svg.remove_prefix(std::min(svg.size(), svg.find('\n') + 1));
  }
  return SvgTidier(svg, prefix).Tidied();
}

}  // namespace Orlix::Plot
