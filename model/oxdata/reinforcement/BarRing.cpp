#include "model/oxdata/reinforcement/BarRing.h"

#include <algorithm>
#include <cmath>

#include "model/oxnumeric/polygon.h"

namespace Orlix::Data {
namespace {

constexpr double kNoLength = 1e-12;  // [m]; an edge between two names of one point

Vec2<double> Left(Vec2<double> v) { return {-v.y, v.x}; }

}  // namespace

double LengthOf(std::span<const Vec2<double>> line) {
  double length = 0.0;
  for (std::size_t i = 1; i < line.size(); ++i) length += Orlix::Length(line[i] - line[i - 1]);
  return length;
}

BarRing::BarRing(std::span<const Vec2<double>> vertices, bool isHole) {
  const std::size_t n = vertices.size();
  const bool isReversed = (Numeric::SignedArea(vertices) < 0.0) != isHole;
  for (std::size_t i = 0; i < n; ++i) {
    const std::size_t k = isReversed ? n - 1 - i : i;
    const std::size_t next = k + 1 == n ? 0 : k + 1;
    const Vec2<double> from = vertices[isReversed ? next : k];
    const Vec2<double> edge = vertices[isReversed ? k : next] - from;
    const double length = Orlix::Length(edge);
    if (!(length > kNoLength)) continue;
    starts_.push_back(from);
    along_.push_back((1.0 / length) * edge);
    numbers_.push_back(static_cast<int>(k) + 1);
  }
  for (std::size_t i = 0; i < starts_.size(); ++i) {
    const Vec2<double> before = along_[Before(i)];
    const double turn = std::atan2(Cross(before, along_[i]), Dot(before, along_[i]));
    if (std::abs(turn) > kCornerAngle) corners_.push_back(i);
  }
}

std::vector<BarRing::Chain> BarRing::Chains() const {
  if (starts_.empty()) return {};
  if (corners_.empty()) return {{0, starts_.size()}};
  std::vector<Chain> chains;
  for (std::size_t i = 0; i < corners_.size(); ++i) {
    const std::size_t end =
        i + 1 < corners_.size() ? corners_[i + 1] : corners_.front() + starts_.size();
    chains.push_back({corners_[i], end - corners_[i]});
  }
  return chains;
}

std::optional<BarRing::Chain> BarRing::Side(Vec2<double> direction) const {
  if (corners_.empty()) return std::nullopt;
  constexpr double kAskew = 0.7071;  // cosine of 45 degrees
  constexpr double kAsFar = 1e-9;    // [m]
  std::optional<Chain> found;
  double far = 0.0;
  double longest = 0.0;
  for (const Chain& chain : Chains()) {
    const Vec2<double> start = starts_[chain.first];
    const Vec2<double> chord = starts_[Edge(chain, chain.edges)] - start;
    const double length = Orlix::Length(chord);
    if (!(Dot(Left(chord), direction) <= -kAskew * length)) continue;
    const double reach = Dot(start + 0.5 * chord, direction);
    const bool isAsFar = found && std::abs(reach - far) <= kAsFar;
    if (found && (isAsFar ? length <= longest : reach < far)) continue;
    found = chain;
    far = reach;
    longest = length;
  }
  return found;
}

std::optional<BarRing::Chain> BarRing::SideWithEdge(int number) const {
  const auto place = std::find(numbers_.begin(), numbers_.end(), number);
  if (place == numbers_.end() || corners_.empty()) return std::nullopt;
  const auto edge = static_cast<std::size_t>(place - numbers_.begin());
  for (const Chain& chain : Chains()) {
    if ((edge + starts_.size() - chain.first) % starts_.size() < chain.edges) return chain;
  }
  return std::nullopt;
}

Vec2<double> BarRing::CornerPoint(std::size_t edge, double before, double after) const {
  const Vec2<double> a = Left(along_[Before(edge)]);
  const Vec2<double> b = Left(along_[edge]);
  const double sine = Cross(a, b);
  // Nearly straight on there is one distance, and the point stands on the bisector.
  if (std::abs(sine) < 1e-6) {
    const double share = after / (1.0 + std::max(Dot(a, b), 0.0));
    return starts_[edge] + share * (a + b);
  }
  return starts_[edge] +
         (1.0 / sine) * Vec2<double>{before * b.y - after * a.y, after * a.x - before * b.x};
}

BarSpot BarRing::CornerSpot(std::size_t edge, double inset) const {
  return {CornerPoint(edge, inset, inset), along_[edge], Left(along_[edge]), true,
          -1.0 * along_[Before(edge)]};
}

BarRing::Line BarRing::LineIn(const Chain& chain, double first, double last, EndInsets ends) const {
  Line line = {CornerPoint(chain.first, ends.before, first)};
  for (std::size_t i = 1; i < chain.edges; ++i) {
    line.push_back(CornerPoint(Edge(chain, i), first, first));
  }
  line.push_back(CornerPoint(Edge(chain, chain.edges), last, ends.after));
  return line;
}

BarRing::Line BarRing::LineAround(double inset) const {
  Line line;
  for (std::size_t i = 0; i < starts_.size(); ++i) line.push_back(CornerPoint(i, inset, inset));
  line.push_back(line.front());
  return line;
}

double BarRing::Length(const Chain& chain, double inset, EndInsets ends) const {
  if (corners_.empty()) return LengthOf(LineAround(inset));
  return LengthOf(LineIn(chain, inset, inset, ends));
}

std::vector<BarSpot> BarRing::SpotsOn(const Line& line, const Chain& chain,
                                      std::span<const double> insets, std::size_t intervals) const {
  const double total = LengthOf(line);
  std::vector<BarSpot> spots;
  std::size_t piece = 0;
  double passed = 0.0;  // before the piece
  for (std::size_t i = 0; i < insets.size(); ++i) {
    const double at = total * static_cast<double>(i) / static_cast<double>(intervals);
    double length = Orlix::Length(line[piece + 1] - line[piece]);
    while (piece + 2 < line.size() && passed + length < at) {
      passed += length;
      ++piece;
      length = Orlix::Length(line[piece + 1] - line[piece]);
    }
    const double share = length > 0.0 ? std::min((at - passed) / length, 1.0) : 0.0;
    const Vec2<double> point = line[piece] + share * (line[piece + 1] - line[piece]);
    const std::size_t edge = Edge(chain, piece);
    const Vec2<double> inward = Left(along_[edge]);
    const double inset = Dot(inward, point - starts_[edge]);
    spots.push_back({point + (insets[i] - inset) * inward, along_[edge], inward});
  }
  return spots;
}

std::vector<BarSpot> BarRing::SpotsIn(const Chain& chain, std::span<const double> insets,
                                      EndInsets ends) const {
  return SpotsOn(LineIn(chain, insets.front(), insets.back(), ends), chain, insets,
                 insets.size() - 1);
}

std::vector<BarSpot> BarRing::SpotsAround(std::span<const double> insets) const {
  const double deepest = *std::max_element(insets.begin(), insets.end());
  return SpotsOn(LineAround(deepest), {0, starts_.size()}, insets, insets.size());
}

}  // namespace Orlix::Data
