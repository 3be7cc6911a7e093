#include "model/vlsol/test/fibre_grid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "model/oxnumeric/section/CompiledSection.h"
#include "model/oxnumeric/section/kernel.h"
#include "model/vlsol/test/test_section.h"
#include "model/vlsol/uls.h"

namespace Orlix::VlSol::Test {
namespace {

using Numeric::CompiledSection;
using Numeric::Resultant;

struct NamedCurve {
  const char* name;
  TestCurve curve;
};

std::vector<NamedCurve> Concretes() {
  return {{"parabola-rectangle", C30()},
          {"power", C90()},
          {"bilinear", BilinearConcrete(20e6, 0.00175, 0.0035)},
          {"block", Block(23.8e6, 0.00045, 0.003)},
          {"non-linear, EN 1992-1-1 (3.14)", NonLinear(38e6, 0.0022, 0.0035, 1.98)},
          {"explicit points", Explicit({{0.0005, 9e6}, {0.0012, 16e6}, {0.003, 19e6}})}};
}

std::vector<TestSection::Bar> Bars(const Shape& shape, std::mt19937& random) {
  std::vector<TestSection::Bar> bars;
  while (bars.size() < 6) {
    const Vec2<double> p{Uniform(random, -0.6, 0.6), Uniform(random, -0.6, 0.9)};
    if (!Inside(shape, p)) continue;
    bars.push_back({p, 5e-4, bars.size() == 5 ? 0.001 : 0.0});
  }
  return bars;
}

// Largest component of a resultant over the squash force, moments over the section's size.
double Relative(const CompiledSection& section, const Vec3<double>& f) {
  return std::max({std::abs(f.x), std::abs(f.y) / section.radius, std::abs(f.z) / section.radius}) /
         section.squash;
}

TEST(FibreGrid, AgreesWithTheKernelOnRandomPlanes) {
  std::mt19937 random(20240611);
  for (const Shape& shape : Shapes(0.6, 0.9)) {
    for (const NamedCurve& concrete : Concretes()) {
      SCOPED_TRACE(std::string(shape.name) + ", " + concrete.name);
      const TestSection section{shape, concrete.curve, B500(), Bars(shape, random)};
      const CompiledSection compiled = Compile(section.Input());
      const FibreGrid coarse(section, 150);
      const FibreGrid fine(section, 300);
      for (int i = 0; i < 4; ++i) {
        const double angle = Uniform(random, 0.0, 2.0 * std::numbers::pi);
        const double curvature = Uniform(random, 0.2, 6.0) * 1e-3;
        Vec3<double> plane{Uniform(random, -2e-3, 1e-3), curvature * std::cos(angle),
                           curvature * std::sin(angle)};
        plane = (0.999 / std::max(1.0, fine.Gauge(plane))) * plane;  // curves end at their limits
        const Vec3<double> want = fine.Force(plane);
        const Resultant got = compiled.LoadToOrigin(Integrate(compiled, compiled.ToLocal(plane)));
        // A grid's error falls with the square of the fibre size, where a stress step runs through
        // the fibres like its power 1.5: the finer grid errs by less than the difference of both.
        // The floor covers chance agreement of the two.
        const double error = Relative(compiled, want - coarse.Force(plane));
        EXPECT_LE(Relative(compiled, got - want), error + 2e-5) << "plane " << i;
      }
    }
  }
}

TEST(FibreGrid, AgreesWithTheGaugeOnRandomPlanes) {
  std::mt19937 random(7);
  for (const Shape& shape : Shapes(0.6, 0.9)) {
    const TestSection section{shape, C30(), B500(), Bars(shape, random)};
    const CompiledSection compiled = Compile(section.Input());
    const FibreGrid grid(section, 1);
    for (int i = 0; i < 50; ++i) {
      const Vec3<double> plane{Uniform(random, -4e-3, 4e-3), Uniform(random, -0.02, 0.02),
                               Uniform(random, -0.02, 0.02)};
      const double want = grid.Gauge(plane);
      // Both are one quotient of a sum of three products.
      EXPECT_NEAR(SolveUlsDeformation(compiled, plane).deformationUtilisation, want, 1e-13 * want)
          << shape.name << ", plane " << i;
    }
  }
}

TEST(FibreGrid, FindsTheSameBiaxialFailurePoints) {
  std::mt19937 random(99);
  const std::vector<Shape> shapes = Shapes(0.4, 0.6);
  const struct {
    const char* what;
    Shape shape;
    TestCurve concrete;
    Vec3<double> load;  // about the centre of gravity, where the section is put for this test
  } kCases[] = {
      {"rectangle, C30, compression", shapes[0], C30(), {-1.2e6, 150e3, -80e3}},
      {"L, C90, bending in both axes", shapes[1], C90(), {-0.8e6, -350e3, 150e3}},
      {"T, bilinear, pure biaxial bending",
       shapes[5],
       BilinearConcrete(20e6, 0.00175, 0.0035),
       {0, -120e3, 40e3}},
      {"box, explicit points, tension",
       shapes[2],
       Explicit({{0.0005, 9e6}, {0.003, 19e6}}),
       {300e3, 90e3, 60e3}},
      {"triangle, C30, nearly centric", shapes[3], C30(), {-1.0e6, -15e3, 10e3}},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    TestSection section{c.shape, c.concrete, B500(), {}};
    while (section.bars.size() < 8) {
      const Vec2<double> p{Uniform(random, -0.2, 0.4), Uniform(random, -0.3, 0.6)};
      if (Inside(c.shape, p)) section.bars.push_back({p, 4e-4});
    }
    const Vec2<double> centre = Compile(section.Input()).centre;
    for (Ring* ring : {&section.shape.outline, &section.shape.hole}) {
      for (Vec2<double>& p : *ring) p = p - centre;
    }
    for (TestSection::Bar& bar : section.bars) bar.position = bar.position - centre;
    const CompiledSection compiled = Compile(section.Input());
    const auto got = SolveUlsLoad(compiled, c.load);
    const FibreGrid coarse(section, 24);
    const FibreGrid fine(section, 160);
    const FibreGrid finer(section, 320);
    const struct {
      const char* path;
      Vec3<double> fixed;
      Vec3<double> scaled;
      double utilisation;
    } kPaths[] = {
        {"proportional", {}, c.load, got.loadUtilisation},
        {"constant axial force", {c.load.x, 0, 0}, {0, c.load.y, c.load.z}, got.momentRatio}};
    for (const auto& path : kPaths) {
      SCOPED_TRACE(path.path);
      const BruteFailure a = FindFailureByScan(coarse, fine, path.fixed, path.scaled, 0.4);
      const BruteFailure b = FindFailureByScan(coarse, finer, path.fixed, path.scaled, 0.4);
      ASSERT_LT(b.mismatch, 1e-5 * compiled.squash) << "the scan found no failure point";
      // Twice the difference of the two grids, and a floor for their chance agreement.
      EXPECT_NEAR(path.utilisation * b.lambda, 1.0, 2.0 * std::abs(a.lambda / b.lambda - 1) + 2e-5);
    }
  }
}

}  // namespace
}  // namespace Orlix::VlSol::Test
