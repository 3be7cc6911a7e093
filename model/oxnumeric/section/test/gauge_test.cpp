#include "model/oxnumeric/section/gauge.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "model/oxnumeric/section/test/sections.h"

namespace Orlix::Numeric {
namespace {

using namespace Testing;

// 300x500, parabola-rectangle 2.0/3.5 per mille, bars at z = ±0.2 with a limit of 45 per mille.
TEST(Gauge, IsOneOnEachPivot) {
  const CompiledSection section = Compile(Column());
  const double h = 0.5;
  // Plane with strains `top` at z = +h/2 and `bottom` at z = -h/2.
  const auto plane = [&](double top, double bottom) {
    return Plane{(top + bottom) / 2, (top - bottom) / h, 0.0};
  };
  const double barLimit = 0.045;
  const struct {
    const char* what;
    Plane d;
    double want;
  } kCases[] = {
      {"no strain", {}, 0.0},
      {"pivot B: eps_cu2 at the top", plane(-0.0035, 0.002), 1.0},
      {"half of it", plane(-0.00175, 0.001), 0.5},
      {"pivot C: uniform", plane(-0.002, -0.002), 1.0},
      {"pivot C at (1 - 2/3.5) h from the top", plane(-0.00275, -0.002 + 0.00075 * 4 / 3), 1.0},
      {"top alone", plane(-0.0035, 0.0), 1.0},
      // The lower bars sit 0.45 h from the top: 0.045 = 0.1 top + 0.9 bottom
      {"pivot A: bar limit", plane(-0.001, (barLimit + 0.0001) / 0.9), 1.0},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    EXPECT_NEAR(GaugeOf(section, c.d).value, c.want, 1e-14);  // rounding
  }
}

TEST(Gauge, IsHomogeneousAndItsRowGivesItsValue) {
  std::mt19937 random(4);
  for (const SectionInput& input : {Column(), Ell(), Box(Block())}) {
    const CompiledSection section = Compile(input);
    for (int i = 0; i < 500; ++i) {
      const Plane d = RandomPlane(section, random, 0.01);
      const Gauge g = GaugeOf(section, d);
      EXPECT_NEAR(Dot(g.row, d), g.value, 1e-13 * g.value);
      EXPECT_NEAR(GaugeOf(section, 3.0 * d).value, 3.0 * g.value, 1e-13 * g.value);
    }
  }
}

TEST(Gauge, NamesANumericalCap) {
  const CompiledSection plain =
      Compile(WithBars(Rectangle(0.3, 0.5), {}, ParabolaRectangle(), {}, 0));
  EXPECT_TRUE(GaugeOf(plain, {0.5, 0.0, 0.0}).limitIsCap);
  EXPECT_FALSE(GaugeOf(plain, {-0.001, 0.0, 0.0}).limitIsCap);
}

TEST(Gauge, CountsLockedInStrain) {
  SectionInput input = Column();
  for (PointAreaInput& p : input.points) p.prestrain = 0.040;
  const CompiledSection pulled = Compile(input);
  EXPECT_NEAR(GaugeOf(pulled, {0.0025, 0.0, 0.0}).value, 0.5, 1e-12);  // 5 per mille left
  input.points[0].prestrain = 0.05;
  EXPECT_EQ(GaugeOf(Compile(input), {}).value, std::numeric_limits<double>::infinity());

  // A locked-in plane leaves so much less to each limit, the one under uniform compression too.
  SectionInput locked = Column();
  locked.regions[0].locked = {-0.0005, 0.0, 0.0};
  const CompiledSection preloaded = Compile(locked);
  EXPECT_NEAR(GaugeOf(preloaded, {-0.0015, 0.0, 0.0}).value, 1.0, 1e-12);
  EXPECT_NEAR(GaugeOf(preloaded, {0.0, 0.012, 0.0}).value, 1.0, 1e-12);  // 3.0 + 0.5 per mille
  const Gauge g = GaugeOf(preloaded, {-0.001, 0.001, 0.0});
  EXPECT_NEAR(Dot(g.row, Plane{-0.001, 0.001, 0.0}), g.value, 1e-12);
  locked.regions[0].locked = {-0.0021, 0.0, 0.0};
  EXPECT_EQ(GaugeOf(Compile(locked), {-1e-4, 0.0, 0.0}).value,
            std::numeric_limits<double>::infinity());
}

}  // namespace
}  // namespace Orlix::Numeric
