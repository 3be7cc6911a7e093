#include "model/oxnumeric/section/failure.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "model/oxnumeric/section/equilibrium.h"
#include "model/oxnumeric/section/test/sections.h"

namespace Orlix::Numeric {
namespace {

using namespace Testing;

PathPoint StartOf(const CompiledSection& section, const Resultant& load) {
  const EquilibriumResult e = SolveEquilibrium(section, load);
  return {1.0, e.plane, e.converged ? GaugeOf(section, e.plane).value : 2.0};
}

TEST(Failure, SinglyReinforcedBeamMatchesTheHandFormula) {
  // b = 300, d = 450 of 500, As = 1200 mm², yielding steel, block 0.8 x: x = As fy / (0.8 f b),
  // M = As fy (d - 0.4 x).
  const double f = 20e6;
  const double As = 1200e-6;
  SectionInput input =
      WithBars(Rectangle(0.3, 0.5), {}, Block(f, 0.0007), {{0.0, -0.2}}, As, Steel(435e6, 0.1));
  const CompiledSection section = Compile(input);
  const double x = As * 435e6 / (0.8 * f * 0.3);
  const double moment = As * 435e6 * (0.45 - 0.4 * x);
  const Resultant load{0.0, -100e3, 0.0};
  const FailurePoint p = FindFailure(section, {{}, load}, StartOf(section, load));
  ASSERT_TRUE(p.found);
  EXPECT_NEAR(p.lambda * 100e3 / moment, 1.0, 1e-9);  // ten times the search's bound
  EXPECT_NEAR(-p.plane.y * x, 0.0035, 1e-9);          // neutral axis x below the top
}

TEST(Failure, LiesOnTheBoundaryAndInEquilibrium) {
  std::mt19937 random(7);
  const struct {
    const char* what;
    SectionInput input;
  } kSections[] = {{"column", Column()},
                   {"column, block", Column(Block())},
                   {"L", Ell()},
                   {"box", Box()},
                   {"power", Column(PowerCurve(40e6, 0.0022, 0.0031, 1.75))},
                   {"rational, peaks", Column(Rational())}};
  for (const auto& c : kSections) {
    SCOPED_TRACE(c.what);
    const CompiledSection section = Compile(c.input);
    for (int i = 0; i < 300; ++i) {
      const Resultant load = 1.3 * Integrate(section, RandomPlane(section, random, 0.003));
      const PathPoint start = StartOf(section, load);
      const LoadPath kPaths[] = {{{}, load}, {{load.x, 0, 0}, {0, load.y, load.z}}};
      for (const LoadPath& path : kPaths) {
        const FailurePoint p = FindFailure(section, path, start);
        if (!p.found) {
          // Only an axial force beyond what the section takes at no moment has no failure point.
          EXPECT_GT(start.gauge, 1.0);
          EXPECT_NE(path.fixed.x, 0.0);
          continue;
        }
        const Resultant carried = Integrate(section, p.plane);
        const double size = ScaledNorm(section, path.At(p.lambda));
        EXPECT_LE(ScaledNorm(section, carried - path.At(p.lambda)),
                  std::fmax(1.01e-10 * size, 2.1e-13 * section.squash));
        if (p.isPeak) {
          EXPECT_LE(GaugeOf(section, p.plane).value, 1.0);
        } else {
          EXPECT_NEAR(GaugeOf(section, p.plane).value, 1.0, 1e-12);
        }
        // Inside loads fail beyond themselves, outside loads before; at the margin either.
        if (std::abs(start.gauge - 1.0) > 1e-6) {
          EXPECT_EQ(p.lambda > 1.0, start.gauge < 1.0);
        }
      }
    }
  }
}

TEST(Failure, CapacityDoesNotDependOnWhereTheLoadStands) {
  std::mt19937 random(8);
  for (const SectionInput& input : {Column(), Ell(), Box()}) {
    const CompiledSection section = Compile(input);
    for (int i = 0; i < 100; ++i) {
      const Resultant load = Integrate(section, RandomPlane(section, random, 0.002));
      const FailurePoint p = FindFailure(section, {{}, load}, StartOf(section, load));
      ASSERT_TRUE(p.found);
      for (const double s : {0.01, 0.7, 1.5, 4.0}) {
        const FailurePoint q = FindFailure(section, {{}, s * load}, StartOf(section, s * load));
        ASSERT_TRUE(q.found);
        EXPECT_NEAR(q.lambda * s / p.lambda, 1.0, 1e-9);  // both searches err by 1e-10
      }
    }
  }
}

TEST(Failure, SofteningSectionPeaksBeforeTheStrainLimit) {
  // Plain concrete under centric compression peaks at eps_c1 with f, well inside eps_cu1.
  const double f = 38e6;
  const CompiledSection section =
      Compile(WithBars(Rectangle(0.3, 0.5), {}, Rational(f, 0.0022, 0.0035), {}, 0.0));
  const Resultant load{-1e6, 0.0, 0.0};
  const FailurePoint p = FindFailure(section, {{}, load}, StartOf(section, load));
  ASSERT_TRUE(p.found);
  EXPECT_TRUE(p.isPeak);
  EXPECT_NEAR(p.lambda * 1e6 / (f * 0.15), 1.0, 1e-9);
  EXPECT_NEAR(p.plane.x, -0.0022, 1e-6);  // a flat maximum fixes its place to half the digits
}

TEST(Failure, PlainConcreteHasNoBendingCapacity) {
  const CompiledSection section =
      Compile(WithBars(Rectangle(0.3, 0.5), {}, ParabolaRectangle(), {}, 0.0));
  for (const Resultant& load : {Resultant{0.0, 1e4, 0.0}, Resultant{1e4, 0.0, 0.0}}) {
    EXPECT_FALSE(FindFailure(section, {{}, load}, StartOf(section, load)).found);
  }
}

}  // namespace
}  // namespace Orlix::Numeric
