#include "dxf_import/point_in_polygon.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace Orlix::dxf_import {
namespace {

constexpr int kVertices = 1000;

struct Named {
  std::string what;
  Polygon polygon;
};

std::vector<Named> Outlines() {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> anywhere(-1, 1);
  std::vector<Named> outlines{{"round", {}},        {"star", {}},
                              {"comb", {}},         {"tangle", {}},
                              {"steps", {}},        {"with numbers that are none", {}},
                              {"slanting comb", {}}};
  for (int i = 0; i < kVertices; ++i) {
    const double angle = 2 * std::acos(-1.0) * i / kVertices;
    const Vec3<double> round{std::cos(angle), std::sin(angle), 0};
    outlines[0].polygon.vertices.push_back(round);
    outlines[1].polygon.vertices.push_back((i % 2 == 0 ? 1 : 0.7) * round);
    outlines[2].polygon.vertices.push_back({i * 2e-3 - 1, i % 2 - 0.5, 0});
    outlines[6].polygon.vertices.push_back({i * 1e-4 + (i % 2) - 0.5, i % 2 - 0.5, 0});
    outlines[3].polygon.vertices.push_back({anywhere(random), anywhere(random), 0});
    outlines[4].polygon.vertices.push_back({round.x, std::floor(round.y * 5) / 5, 0});
    outlines[5].polygon.vertices.push_back(round);
  }
  const double infinity = std::numeric_limits<double>::infinity();
  auto& odd = outlines[5].polygon.vertices;
  odd[100].y = std::nan("");
  odd[300].y = infinity;
  odd[301].y = -infinity;
  odd[500].x = infinity;
  odd[700].x = std::nan("");
  odd[800] = {1e308, -1e308, 0};
  return outlines;
}

TEST(ArePointsInsidePolygon, AnswersAsTheLoopOverAllEdges) {
  std::mt19937 random(11);
  std::uniform_real_distribution<double> anywhere(-1.1, 1.1);
  for (const auto& [what, polygon] : Outlines()) {
    SCOPED_TRACE(what);
    std::vector<Vec2<double>> points;
    for (const Vec3<double>& vertex : polygon.vertices) {
      points.push_back({anywhere(random), anywhere(random)});
      points.push_back({anywhere(random), vertex.y});  // where one edge ends and the next begins
      points.push_back({vertex.x, vertex.y});
      points.push_back({vertex.x, anywhere(random)});
    }
    const double infinity = std::numeric_limits<double>::infinity();
    points.insert(points.end(), {{-infinity, 0}, {infinity, 0}, {0, infinity}, {0, -infinity}});
    const std::vector<bool> got = ArePointsInsidePolygon(points, polygon);
    std::size_t inside = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
      const bool want = IsPointInsidePolygon(points[i], polygon);
      ASSERT_EQ(got[i], want) << points[i].x << ' ' << points[i].y;
      inside += want ? 1 : 0;
    }
    EXPECT_GT(inside, 100u);
    EXPECT_LT(inside, points.size() - 100);
  }
}

TEST(IsPointInsidePolygon, PutsEdgesOnEitherSide) {
  const Polygon square{{{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}}, "", true};
  EXPECT_TRUE(IsPointInsidePolygon({1, 1}, square));
  EXPECT_TRUE(IsPointInsidePolygon({0, 1}, square));   // left
  EXPECT_FALSE(IsPointInsidePolygon({2, 1}, square));  // right
  EXPECT_TRUE(IsPointInsidePolygon({1, 0}, square));   // low
  EXPECT_FALSE(IsPointInsidePolygon({1, 2}, square));  // high
  EXPECT_FALSE(IsPointInsidePolygon({1, 1}, {{{0, 0, 0}, {2, 2, 0}}, "", true}));
}

}  // namespace
}  // namespace Orlix::dxf_import
