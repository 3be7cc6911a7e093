#include "plot/svg_ids.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace Orlix::Plot {

namespace {

constexpr std::string_view kCounted = "surface";

// The own id of an id: one that the library counts gets its place in the picture.
std::string OwnId(std::string_view id, std::vector<std::string_view>& counted) {
  if (id.substr(0, kCounted.size()) != kCounted) return std::string(id);
  auto place = std::find(counted.begin(), counted.end(), id);
  if (place == counted.end()) place = counted.insert(counted.end(), id);
  return std::string(kCounted) + std::to_string(place - counted.begin() + 1);
}

}  // namespace

std::string WithOwnIds(std::string_view svg, std::string_view prefix) {
  constexpr std::array<std::string_view, 3> kBefore = {" id=\"", "href=\"#", "url(#"};
  if (!prefix.empty() && svg.substr(0, 5) == "<?xml") {
    svg.remove_prefix(std::min(svg.size(), svg.find('\n') + 1));
  }
  std::string result;
  result.reserve(svg.size());
  std::vector<std::string_view> counted;
  for (std::size_t at = 0; at < svg.size();) {
    const auto before = std::find_if(kBefore.begin(), kBefore.end(), [&](std::string_view text) {
      return svg.substr(at, text.size()) == text;
    });
    if (before == kBefore.end()) {
      result += svg[at++];
      continue;
    }
    const std::size_t begin = at + before->size();
    const std::size_t end = std::min(svg.size(), svg.find_first_of("\")", begin));
    result.append(*before).append(prefix).append(OwnId(svg.substr(begin, end - begin), counted));
    at = end;
  }
  return result;
}

}  // namespace Orlix::Plot
