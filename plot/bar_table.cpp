#include "plot/bar_table.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace Orlix::Plot {

namespace {

constexpr double kAlike = 2e-3;  // of the largest stress

// Whether a number is the next one, of the same component where they say which.
bool IsNext(const std::string& number, const std::string& next) {
  const std::size_t point = number.find('.');
  const std::size_t begin = point == std::string::npos ? 0 : point + 1;
  if (next.substr(0, begin) != number.substr(0, begin)) return false;
  long a{};
  long b{};
  std::from_chars(number.data() + begin, number.data() + number.size(), a);
  std::from_chars(next.data() + begin, next.data() + next.size(), b);
  return b == a + 1;
}

}  // namespace

std::vector<BarGroup> GroupedBars(const SectionView& view, Vec2<double> across, double tolerance) {
  std::vector<std::pair<double, const BarView*>> bars;
  double largest = 0.0;
  for (const ComponentView& component : view.components) {
    for (const BarView& bar : component.bars) {
      if (!std::isfinite(bar.stress)) continue;
      bars.emplace_back(Dot(across, bar.position), &bar);
      largest = std::max(largest, std::abs(bar.stress));
    }
  }
  std::stable_sort(bars.begin(), bars.end(),
                   [](const auto& a, const auto& b) { return a.first > b.first; });
  std::vector<BarGroup> groups;
  std::size_t first = 0;  // of the groups near the level of the bar
  for (const auto& [distance, bar] : bars) {
    while (first < groups.size() && groups[first].distance - distance >= tolerance) ++first;
    std::size_t i = first;
    while (i < groups.size() && std::abs(groups[i].stress - bar->stress) > kAlike * largest) ++i;
    if (i == groups.size()) groups.push_back({distance, bar->stress});
    groups[i].force += bar->force;
    groups[i].numbers.push_back(bar->number);
  }
  for (BarGroup& group : groups) {
    std::sort(group.numbers.begin(), group.numbers.end(), [](const auto& a, const auto& b) {
      return std::pair(a.size(), a) < std::pair(b.size(), b);  // as numbers
    });
  }
  return groups;
}

std::vector<BarGroup> ThinnedOut(std::vector<BarGroup> groups, std::size_t most) {
  if (groups.size() <= most) return groups;
  const auto [least, largest] =
      std::minmax_element(groups.begin(), groups.end(),
                          [](const BarGroup& a, const BarGroup& b) { return a.stress < b.stress; });
  const auto isExtreme = [l = least - groups.begin(), h = largest - groups.begin()](std::size_t i) {
    return std::cmp_equal(i, l) || std::cmp_equal(i, h);
  };
  std::vector<BarGroup> kept;
  const std::size_t gaps = most - 3;  // between the others, two fewer than there may be groups
  std::size_t next = 0;
  for (std::size_t i = 0; i < groups.size(); ++i) {
    const bool isNext = i == next * (groups.size() - 1) / gaps;
    if (isNext) ++next;
    if (isNext || isExtreme(i)) kept.push_back(std::move(groups[i]));
  }
  return kept;
}

std::string JoinedNumbers(const std::vector<std::string>& numbers) {
  std::string text;
  for (std::size_t i = 0; i < numbers.size();) {
    std::size_t last = i;
    while (last + 1 < numbers.size() && IsNext(numbers[last], numbers[last + 1])) ++last;
    if (!text.empty()) text += ",";
    text += numbers[i];
    if (last > i) text += (last > i + 1 ? "–" : ",") + numbers[last];
    i = last + 1;
  }
  return text;
}

}  // namespace Orlix::Plot
