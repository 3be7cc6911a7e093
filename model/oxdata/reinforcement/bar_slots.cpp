#include "model/oxdata/reinforcement/bar_slots.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <queue>
#include <utility>

namespace Orlix::Data {
namespace {

std::size_t CountOf(const BarGroup& group) { return static_cast<std::size_t>(group.count); }

std::size_t CountOf(const BarLayer& layer) {
  return std::accumulate(layer.begin(), layer.end(), std::size_t{0},
                         [](std::size_t n, const BarGroup& group) { return n + CountOf(group); });
}

// Fills the places of a line from both ends.
class EndFiller {
 public:
  explicit EndFiller(std::size_t places) : slots_(places, nullptr), high_(places) {}

  void Fill(const BarGroup& group) {
    std::size_t left = CountOf(group);
    const std::size_t middle = slots_.size() / 2;
    if (left % 2 == 1 && slots_.size() % 2 == 1 && slots_[middle] == nullptr) {
      slots_[middle] = &group;
      --left;
    }
    for (bool isLow = true; left > 0; --left, isLow = !isLow) *(isLow ? Low() : High()) = &group;
  }
  BarSlots Slots() && { return std::move(slots_); }

 private:
  // The free places at the ends; there is one whenever a bar is left.
  const BarGroup** Low() {
    while (slots_[low_] != nullptr) ++low_;
    return &slots_[low_];
  }
  const BarGroup** High() {
    while (slots_[high_ - 1] != nullptr) --high_;
    return &slots_[high_ - 1];
  }

  BarSlots slots_;
  std::size_t low_{};
  std::size_t high_;
};

}  // namespace

BarSlots InOrder(const BarLayer& layer) {
  BarSlots slots;
  for (const BarGroup& group : layer) slots.insert(slots.end(), CountOf(group), &group);
  return slots;
}

BarSlots FromTheEnds(const BarLayer& layer) {
  EndFiller filler(CountOf(layer));
  for (const BarGroup& group : layer) filler.Fill(group);
  return std::move(filler).Slots();
}

BarSlots Spread(const BarLayer& layer) {
  BarSlots slots(CountOf(layer), nullptr);
  const std::size_t first = CountOf(layer.front());
  for (std::size_t i = 0; i < first; ++i) slots[i * slots.size() / first] = &layer.front();
  auto place = slots.begin();
  for (std::size_t g = 1; g < layer.size(); ++g) {
    for (std::size_t i = 0; i < CountOf(layer[g]); ++i) {
      place = std::find(place, slots.end(), nullptr);
      *place = &layer[g];
    }
  }
  return slots;
}

BarSlots Repeated(const BarLayer& layer, std::size_t count) {
  return BarSlots(count, &layer.front());
}

std::size_t Intervals(double length, double spacing, std::size_t most) {
  constexpr double kRounding = 1e-9;  // of an interval, so that a length of whole spacings is one
  const double intervals = std::max(std::ceil(length / spacing - kRounding), 1.0);
  return intervals < static_cast<double>(most) ? static_cast<std::size_t>(intervals) : most;
}

std::vector<std::size_t> ShareOut(std::span<const double> lengths, std::size_t bars) {
  std::vector<std::size_t> shares(lengths.size(), 0);
  const double total = std::accumulate(lengths.begin(), lengths.end(), 0.0);
  // Lengths that differ by rounding alone count as one, and then the first line goes first.
  constexpr double kSteps = 1e9;
  const auto entry = [&](std::size_t i) {
    const double interval = lengths[i] / static_cast<double>(shares[i] + 1);
    return std::pair(total > 0.0 ? std::llround(kSteps * interval / total) : 0LL,
                     -static_cast<long long>(i));
  };
  std::priority_queue<std::pair<long long, long long>> queue;
  for (std::size_t i = 0; i < lengths.size(); ++i) queue.push(entry(i));
  for (std::size_t bar = 0; bar < bars && !queue.empty(); ++bar) {
    const auto line = static_cast<std::size_t>(-queue.top().second);
    queue.pop();
    ++shares[line];
    queue.push(entry(line));
  }
  return shares;
}

double HalfWidth(const BarGroup& group) {
  return group.bundle == 1 ? group.size.diameter / 2 : group.size.diameter;
}

double LargestDiameter(const BarLayer& layer) {
  double largest = 0.0;
  for (const BarGroup& group : layer) largest = std::max(largest, group.size.diameter);
  return largest;
}

double Thickness(const BarLayer& layer) {
  double thickness = 0.0;
  for (const BarGroup& group : layer) {
    const double rows = group.bundle == 3   ? 1.0 + std::numbers::sqrt3 / 2
                        : group.bundle == 4 ? 2.0
                                            : 1.0;
    thickness = std::max(thickness, rows * group.size.diameter);
  }
  return thickness;
}

std::vector<double> LayerDepths(const BarInfo& info) {
  constexpr double kLeastGap =
      0.025;  // [m] EN 1992-1-1, 8.2(2) with 20 mm stones; ACI 318-19, 25.2
  std::vector<double> depths = {0.0};
  for (std::size_t i = 1; i < info.layers.size(); ++i) {
    const double bars =
        std::max(LargestDiameter(info.layers[i - 1]), LargestDiameter(info.layers[i]));
    const double gap = info.gap.value_or(std::max(kLeastGap, bars));
    depths.push_back(depths.back() + Thickness(info.layers[i - 1]) + gap);
  }
  return depths;
}

}  // namespace Orlix::Data
