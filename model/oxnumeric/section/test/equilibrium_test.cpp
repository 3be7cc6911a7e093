#include "model/oxnumeric/section/equilibrium.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "model/oxnumeric/section/test/sections.h"

namespace Orlix::Numeric {
namespace {

using namespace Testing;

TEST(Equilibrium, ElasticRectangleMatchesNaviersFormula) {
  SectionInput input;
  const double modulus = 30e9;
  input.curves = {Linear(modulus)};
  input.regions.resize(1);
  input.regions[0].rings = {{Rectangle(0.4, 0.6), false}};
  const CompiledSection section = Compile(input);
  const Resultant load{-1e6, 0.2e6, -0.1e6};
  const EquilibriumResult e = SolveEquilibrium(section, load);
  ASSERT_TRUE(e.converged);
  // The tolerance of the search is 1e-11 of the load.
  const double bound = 1e-10;
  EXPECT_NEAR(e.plane.x / (load.x / (modulus * 0.4 * 0.6)), 1.0, bound);
  EXPECT_NEAR(e.plane.y / (load.y / (modulus * 0.4 * 0.6 * 0.6 * 0.6 / 12)), 1.0, bound);
  EXPECT_NEAR(e.plane.z / (load.z / (modulus * 0.6 * 0.4 * 0.4 * 0.4 / 12)), 1.0, bound);
}

TEST(Equilibrium, CarriesTheLoadFromAnyStart) {
  std::mt19937 random(5);
  const struct {
    const char* what;
    SectionInput input;
  } kSections[] = {{"column", Column()},
                   {"L", Ell()},
                   {"box", Box()},
                   {"power", Column(PowerCurve(40e6, 0.0022, 0.0031, 1.75))}};
  for (const auto& c : kSections) {
    SCOPED_TRACE(c.what);
    const CompiledSection section = Compile(c.input);
    for (int i = 0; i < 200; ++i) {
      // Loads up to twice what the section carries: the curves go on beyond their limits.
      const Resultant load = 2.0 * Integrate(section, RandomPlane(section, random, 0.004));
      const Plane start = RandomPlane(section, random, 0.02);
      for (const Plane* from : {static_cast<const Plane*>(nullptr), &start}) {
        const EquilibriumResult e = SolveEquilibrium(section, load, from);
        EXPECT_TRUE(e.converged);
        const double error = ScaledNorm(section, Integrate(section, e.plane) - load);
        EXPECT_LE(error, std::fmax(1e-11 * ScaledNorm(section, load), 2e-14 * section.squash));
      }
    }
  }
}

TEST(Equilibrium, StressBlockUnderSmallAxialLoadEndsOnTheStep) {
  // No plane gives a plain block section a force below f A without curvature: the strain is that of
  // the step.
  const CompiledSection section =
      Compile(WithBars(Rectangle(0.3, 0.5), {}, Block(17e6, 0.0007), {}, 0.0));
  const EquilibriumResult e = SolveEquilibrium(section, {-0.4 * 17e6 * 0.15, 0.0, 0.0});
  EXPECT_TRUE(e.converged);
  EXPECT_TRUE(e.onStep);
  EXPECT_NEAR(e.plane.x, -0.0007, 2e-6);  // within half the ramp's width
}

}  // namespace
}  // namespace Orlix::Numeric
