#include "model/oxnumeric/section/kernel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "model/oxnumeric/section/equilibrium.h"
#include "model/oxnumeric/section/test/sections.h"

namespace Orlix::Numeric {
namespace {

using namespace Testing;

// Rounding of an integration: a few hundred operations of 1e-16 each.
constexpr double kRounding = 1e-13;

RegionInput RegionOf(Points outline) {
  RegionInput region;
  region.rings.push_back({std::move(outline), false});
  return region;
}

TEST(Kernel, MatchesClosedFormsOfTheCompressionZone) {
  // Rectangle b x h, compression at the top (+z) with eps_cu there and neutral-axis depth c:
  // force alpha f b c at beta c below the top.
  const double b = 0.3;
  const double h = 0.5;
  const double c = 0.2;
  const double f = 20e6;
  const struct {
    const char* what;
    CurveInput curve;
    double limit;
    double alpha;
    double beta;
    double tolerance;
  } kCases[] = {
      {"parabola-rectangle, 17/21 and 99/238", ParabolaRectangle(f), 0.0035, 17.0 / 21.0,
       99.0 / 238.0, kRounding},
      {"block over 0.8 c", Block(f, 0.0007, 0.0035), 0.0035, 0.8, 0.4, kRounding},
      // ∫0..1 (1-(1-x)^n) dx = n/(n+1); its lever arm from the neutral axis by parts.
      {"power 1.4 up to its peak", PowerCurve(f, 0.0026, 0.0026, 1.4), 0.0026, 1.4 / 2.4,
       1.0 - (0.5 - (1.0 / 2.4 - 1.0 / 3.4)) / (1.4 / 2.4), 1e-11},
      {"linear", Linear(f / 0.0035), 0.0035, 0.0, 0.0, kRounding},
  };
  for (const auto& test : kCases) {
    SCOPED_TRACE(test.what);
    SectionInput input;
    input.curves = {test.curve};
    input.regions = {RegionOf(Rectangle(b, h))};
    const CompiledSection section = Compile(input);
    const Plane d{-test.limit * (c - h / 2) / c, -test.limit / c, 0.0};
    const Resultant got = Integrate(section, d);
    double force = -test.alpha * f * b * c;
    double moment = force * (h / 2 - test.beta * c);
    if (test.alpha == 0.0) {  // whole section elastic
      force = f / 0.0035 * d.x * b * h;
      moment = f / 0.0035 * d.y * b * h * h * h / 12.0;
    }
    EXPECT_NEAR(got.x, force, test.tolerance * f * b * h);
    EXPECT_NEAR(got.y, moment, test.tolerance * f * b * h * h);
    EXPECT_NEAR(got.z, 0.0, test.tolerance * f * b * h * h);
  }
}

TEST(Kernel, RationalPieceMatchesTheAntiderivative) {
  // Rectangle, strain from 0 at the bottom to -limit at the top: N = -b ∫ s dz with
  // ∫ (k h - h²)/(1 + m h) dh, m = k - 2, by polynomial division.
  const double k = 1.9;
  const double f = 38e6;
  const double peak = 0.0022;
  const double limit = 0.0035;
  SectionInput input;
  input.curves = {Rational(f, peak, limit, k)};
  input.regions = {RegionOf(Rectangle(0.3, 0.5))};
  const CompiledSection section = Compile(input);
  const double m = k - 2.0;
  const double eta = limit / peak;
  const double integral =
      -eta * eta / (2 * m) + (k + 1 / m) * eta / m - (k + 1 / m) / (m * m) * std::log1p(m * eta);
  const double n = -f * 0.3 * 0.5 / eta * integral;
  // 1e-11 is the bound of the quadrature for rational pieces.
  EXPECT_NEAR(Integrate(section, {-limit / 2, -limit / 0.5, 0.0}).x / n, 1.0, 1e-11);
}

std::vector<std::pair<std::string, SectionInput>> AllSections() {
  return {{"column", Column()},
          {"column, block", Column(Block())},
          {"column, power", Column(PowerCurve(40e6, 0.0022, 0.0031, 1.75))},
          {"column, rational", Column(Rational())},
          {"L", Ell()},
          {"box", Box()},
          {"box, block", Box(Block())}};
}

TEST(Kernel, TangentIsTheDerivative) {
  std::mt19937 random(1);
  for (const auto& [what, input] : AllSections()) {
    SCOPED_TRACE(what);
    const CompiledSection section = Compile(input);
    const double r = section.radius;
    const double stiffness = section.elastic.MaxDiagonal() / (r * r);
    std::vector<double> errors;
    for (int i = 0; i < 200; ++i) {
      const Plane d = RandomPlane(section, random, 0.004);
      const Response at = IntegrateWithTangent(section, d);
      const Resultant alone = Integrate(section, d);
      EXPECT_EQ(at.force, alone);
      const Vec3<double> v = RandomPlane(section, random, 1.0);
      const double h = 1e-8;
      const Vec3<double> difference =
          (0.5 / h) * (Integrate(section, d + h * v) - Integrate(section, d + (-h) * v));
      const Vec3<double> predicted = at.tangent * v;
      errors.push_back(ScaledNorm(section, difference - predicted) / (stiffness * r * r));
    }
    // Median, since a bar or vertex that crosses a kink inside the difference spoils single ones.
    // Central differences with h = 1e-8 keep about eight digits.
    std::nth_element(errors.begin(), errors.begin() + 100, errors.end());
    EXPECT_LT(errors[100], 1e-6);
  }
}

TEST(Kernel, IsIndependentOfHowTheOutlineIsWritten) {
  std::mt19937 random(2);
  const SectionInput base = Ell();
  SectionInput reversed = base;
  std::reverse(reversed.regions[0].rings[0].vertices.begin(),
               reversed.regions[0].rings[0].vertices.end());
  SectionInput dense = base;
  Points& ring = dense.regions[0].rings[0].vertices;
  for (std::size_t i = ring.size(); i-- > 0;) {
    const Vec2<double> a = ring[i];
    const Vec2<double> b = ring[(i + 1) % ring.size()];
    ring.insert(ring.begin() + static_cast<std::ptrdiff_t>(i) + 1, {a, 0.3 * b + 0.7 * a});
  }
  SectionInput split = base;  // the L as two rectangles that touch
  split.regions = {RegionOf({{0, 0}, {0.9, 0}, {0.9, 0.25}, {0, 0.25}}),
                   RegionOf({{0, 0.25}, {0.25, 0.25}, {0.25, 0.8}, {0, 0.8}})};
  split.regions[1].curve = 0;
  const CompiledSection first = Compile(base);
  for (const SectionInput& variant : {reversed, dense, split}) {
    const CompiledSection other = Compile(variant);
    for (int i = 0; i < 100; ++i) {
      const Plane d = RandomPlane(first, random, 0.004);
      const Resultant want = first.LoadToOrigin(Integrate(first, d));
      const Resultant got = other.LoadToOrigin(Integrate(other, other.ToLocal(first.ToOrigin(d))));
      EXPECT_LT(ScaledNorm(first, got - want), kRounding * first.squash);
    }
  }
}

TEST(Kernel, FarOriginCostsNoDigits) {
  SectionInput far = Column();
  const Vec2<double> shift{100.0, -60.0};
  for (Vec2<double>& p : far.regions[0].rings[0].vertices) p = p + shift;
  for (PointAreaInput& p : far.points) p.position = p.position + shift;
  const CompiledSection near = Compile(Column());
  const CompiledSection moved = Compile(far);
  const Plane d{-0.001, 0.004, -0.003};
  // Vertices themselves are rounded at 100 m: 1e-14 m on 0.5 m.
  EXPECT_LT(ScaledNorm(near, Integrate(near, d) - Integrate(moved, d)), 1e-12 * near.squash);
}

TEST(Kernel, TinyCurvatureIsTheLimitOfNone) {
  const CompiledSection section = Compile(Column());
  const Resultant flat = Integrate(section, {-0.001, 0.0, 0.0});
  for (const double curvature : {1e-300, 1e-100, 1e-30, 1e-16, 1e-12}) {
    const Resultant got = Integrate(section, {-0.001, curvature, -curvature});
    // The curvature itself changes the force by about its size times the stiffness.
    EXPECT_LT(ScaledNorm(section, got - flat), (kRounding + 1e3 * curvature) * section.squash);
  }
}

}  // namespace
}  // namespace Orlix::Numeric
