// Diagrams against closed forms, against the capacity search, and as curves.
#include "model/vlsol/diagrams/diagrams.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "model/oxnumeric/section/equilibrium.h"
#include "model/oxnumeric/section/kernel.h"
#include "model/oxutil/json.h"
#include "model/vlsol/test/case_document.h"
#include "model/vlsol/test/test_section.h"
#include "model/vlsol/uls.h"

namespace Orlix::VlSol::Test {
namespace {

using Numeric::CompiledSection;

// Failure is found to 1e-10 of the load; a name's place on the curve to 1e-14 of a turn.
constexpr double kRelative = 1e-9;

std::vector<DiagramPoint> With(const std::vector<DiagramPoint>& curve, DiagramMark mark) {
  std::vector<DiagramPoint> found;
  for (const DiagramPoint& p : curve) {
    if (p.mark == mark) found.push_back(p);
  }
  return found;
}

DiagramRequest Request(DiagramKind kind, double angle, double axial) {
  DiagramRequest request;
  request.kind = kind;
  request.angle = angle;
  request.axial = axial;
  return request;
}

// 0.3 x 0.5 m without displaced concrete, two layers of two bars of 5 cm², 0.2 m from the middle.
TestSection Rectangle(const TestCurve& concrete) {
  TestSection section{Shapes(0.3, 0.5)[0], concrete, Steel(400e6, 200e9, 0.05), {}, false};
  for (const double z : {-0.2, 0.2}) {
    for (const double y : {-0.1, 0.1}) section.bars.push_back({{y, z}, 5e-4, 0.0});
  }
  return section;
}

struct Closed {
  const char* what;
  TestCurve concrete;
  double f, full,
      centre;  // stress; force over f b x, its place over x, the strain 0.0035 at the top
  double epsCu;
};

double Bars(double strain) { return 10e-4 * std::fmin(std::fmax(200e9 * strain, -400e6), 400e6); }

// Force and moment with the ultimate strain at the -z edge, the neutral axis x from it; x <= h.
Vec2<double> AtDepth(const Closed& c, double x) {
  const double concrete = -c.f * 0.3 * x * c.full;
  const double near = Bars(c.epsCu * (0.05 / x - 1)), far = Bars(c.epsCu * (0.45 / x - 1));
  return {-concrete * (0.25 - c.centre * x) + 0.2 * (far - near), concrete + near + far};
}

TEST(Diagrams, NamedPointsOfARectangleAreThoseOfClosedForms) {
  const Closed kCases[] = {
      {"block", Block(20e6, 0.0007, 0.0035), 20e6, 0.8, 0.4, 0.0035},
      // Triangle over half of x, then constant.
      {"bilinear", BilinearConcrete(20e6, 0.00175, 0.0035), 20e6, 0.75, 7.0 / 18.0, 0.0035}};
  for (const Closed& c : kCases) {
    SCOPED_TRACE(c.what);
    const CompiledSection section = Numeric::Compile(Rectangle(c.concrete).Input());
    const Diagram diagram = DiagramOf(section, Request(DiagramKind::axialMoment, 0.0, 0.0));
    double low = 0.01, high = 0.3;
    while (high - low > 1e-15) (AtDepth(c, (low + high) / 2).y > 0 ? low : high) = (low + high) / 2;
    const struct {
      DiagramMark mark;
      Vec2<double> want;
    } kPoints[] = {{DiagramMark::pureCompression, {0, -20e6 * 0.15 + 2 * Bars(-1)}},
                   {DiagramMark::decompression, AtDepth(c, 0.5)},
                   {DiagramMark::balanced, AtDepth(c, 0.45 * 0.0035 / 0.0055)},
                   {DiagramMark::pureBending, AtDepth(c, low)},
                   {DiagramMark::pureTension, {0, 2 * Bars(1)}}};
    for (const auto& point : kPoints) {
      SCOPED_TRACE(NameOf(point.mark));
      const auto found = With(diagram.nominal, point.mark);
      ASSERT_EQ(found.size(), point.want.x == 0 ? 1U : 2U);
      for (const DiagramPoint& p : found) {
        EXPECT_NEAR(std::abs(p.at.x), point.want.x, kRelative * 3e6);
        EXPECT_NEAR(p.at.y, point.want.y, kRelative * 3e6);
      }
    }
    // With the axial force held: the same balanced moment, at the far ends of the other diagrams.
    const Vec2<double> held = AtDepth(c, 0.45 * 0.0035 / 0.0055);
    const Diagram moments = DiagramOf(section, Request(DiagramKind::biaxialMoment, 0.0, held.y));
    EXPECT_NEAR(With(moments.nominal, DiagramMark::pureBending)[0].at.x, held.x,
                kRelative * held.x);
    const Diagram curve = DiagramOf(section, Request(DiagramKind::momentCurvature, 0.0, held.y));
    const DiagramPoint end = curve.nominal.back();
    EXPECT_EQ(end.mark, DiagramMark::failure);
    EXPECT_NEAR(end.at.y, held.x, kRelative * held.x);
    EXPECT_NEAR(end.at.x, 0.0055 / 0.45, kRelative);
    EXPECT_NEAR(end.strainUtilisation, 1.0, 1e-13);
  }
}

TEST(Diagrams, CurvatureOfBarsAloneIsElasticThenPlastic) {
  TestSection bars = Rectangle(C30());
  Numeric::SectionInput input = bars.Input();
  input.regions.clear();
  for (auto& point : input.points) point.host = -1;
  const Diagram curve =
      DiagramOf(Numeric::Compile(input), Request(DiagramKind::momentCurvature, 0.0, 0.0));
  const auto yield = With(curve.nominal, DiagramMark::firstYield);
  ASSERT_EQ(yield.size(), 1U);
  EXPECT_NEAR(yield[0].at.x, 0.002 / 0.2, 1e-12);
  for (const DiagramPoint& p : curve.nominal) {
    EXPECT_NEAR(p.at.y, std::fmin(p.at.x / 0.01, 1.0) * 400e6 * 20e-4 * 0.2, 1e-6 * 1.6e5)
        << p.at.x;
  }
  EXPECT_NEAR(curve.nominal.back().at.x, 0.05 / 0.2, 1e-10);
}

bool Crosses(Vec2<double> a, Vec2<double> b, Vec2<double> c, Vec2<double> d) {
  return Cross(b - a, c - a) * Cross(b - a, d - a) < 0 &&
         Cross(d - c, a - c) * Cross(d - c, b - c) < 0;
}

bool IsSimple(const std::vector<DiagramPoint>& p) {
  const std::size_t n = p.size();
  for (std::size_t i = 0; i < n; ++i) {
    for (std::size_t j = i + 2; j < n && j - i < n - 1; ++j) {
      if (Crosses(p[i].at, p[(i + 1) % n].at, p[j].at, p[(j + 1) % n].at)) return false;
    }
  }
  return true;
}

TEST(Diagrams, RandomCurvesAreSimpleHoldWhatIsHeldAndAgreeWithTheCapacitySearch) {
  std::mt19937 random(11);
  for (int i = 0; i < 40; ++i) {
    TestSection described = RandomSection(random);
    if (i % 4 == 3) described.concrete = Block(25e6, 0.00045, 0.003);
    SCOPED_TRACE(std::string(described.shape.name) + " " + std::to_string(i));
    const CompiledSection section = Numeric::Compile(described.Input());
    const double angle = Uniform(random, 0.0, 6.28);
    const double axial = section.squash * Uniform(random, -0.25, 0.0);
    for (const DiagramKind kind : {DiagramKind::axialMoment, DiagramKind::biaxialMoment}) {
      const Diagram diagram = DiagramOf(section, Request(kind, angle, axial));
      ASSERT_EQ(diagram.problem, DiagramProblem::none);
      EXPECT_GE(diagram.nominal.size(), 97U);
      EXPECT_TRUE(IsSimple(diagram.nominal));
      for (const DiagramPoint& p : diagram.nominal) {
        const Numeric::Resultant carried =
            section.LoadToOrigin(Numeric::Integrate(section, section.ToLocal(p.plane)));
        // A bar on the step of a block takes a force between two, which no plane gives.
        const double size = Numeric::ScaledNorm(section, p.load);
        if (!section.hasSteps) {
          EXPECT_LE(Numeric::ScaledNorm(section, carried - p.load), 1e-9 * size);
        }
        const double across = kind == DiagramKind::axialMoment
                                  ? p.load.z * std::cos(angle) - p.load.y * std::sin(angle)
                                  : p.load.x - axial;
        EXPECT_LE(std::abs(across), 1e-14 * section.squash);
        if (kind != DiagramKind::axialMoment) continue;
        EXPECT_NEAR(SolveUlsLoad(section, 0.9 * p.load).loadUtilisation, 0.9, kRelative)
            << p.at.x << ", " << p.at.y;
      }
    }
  }
}

TEST(Diagrams, CurvaturesGoOnPastThePeakOfCurvesThatSoften) {
  TestSection described = Rectangle(NonLinear(30e6, 0.0022, 0.0035, 2.0));
  described.shape.outline[2].x += 0.1;  // no symmetry: the curvature across has to be found
  const CompiledSection section = Numeric::Compile(described.Input());
  for (const double axial : {0.0, -1e6, -2.5e6}) {
    const DiagramRequest request = Request(DiagramKind::momentCurvature, 0.4, axial);
    const Diagram curve = DiagramOf(section, request);
    ASSERT_EQ(curve.problem, DiagramProblem::none);
    double most = 0.0;
    for (std::size_t i = 1; i < curve.nominal.size(); ++i) {
      const DiagramPoint& p = curve.nominal[i];
      EXPECT_GT(p.at.x, curve.nominal[i - 1].at.x);
      const Numeric::Resultant carried =
          section.LoadToOrigin(Numeric::Integrate(section, section.ToLocal(p.plane)));
      EXPECT_NEAR(carried.x, axial, 1e-10 * section.squash);
      EXPECT_NEAR(carried.z * std::cos(0.4), carried.y * std::sin(0.4), 1e-10 * section.squash);
      most = std::fmax(most, p.at.y);
    }
    EXPECT_NEAR(curve.nominal.back().strainUtilisation, 1.0, 1e-12);
    EXPECT_EQ(curve.nominal.back().mark, DiagramMark::failure);
    const auto peak = With(curve.nominal, DiagramMark::peak);
    ASSERT_EQ(peak.size(), axial == -1e6 ? 1U : 0U);
    for (const DiagramPoint& p : peak) EXPECT_EQ(p.at.y, most);
    // The capacity search stops at the first peak, found to 1e-10 of the gauge.
    const Vec3<double> load{axial, 0.9 * most * std::cos(0.4), 0.9 * most * std::sin(0.4)};
    EXPECT_NEAR(SolveUlsLoad(section, load).momentRatio, 0.9, 1e-8);
  }
}

TEST(Diagrams, DesignCurvesAreTheCapacityUnderStrengthReduction) {
  for (const char* code : {R"({"concrete": "ACI 318-19"})", R"({"concrete": "AS 3600:2018"})"}) {
    SCOPED_TRACE(code);
    CaseDocument document(false);
    Util::JsonDocument json;
    std::string error;
    ASSERT_TRUE(Util::ParseJson(code, json, error));
    document.Document().SetCodes(json);
    ASSERT_TRUE(document.Document().ReadProblems().empty());
    document.AddComponent(MatType::concrete, 0,
                          {{{-0.2, -0.25}, {0.15, -0.25}, {0.2, 0.25}, {-0.2, 0.25}}, {}});
    for (const double z : {-0.2, 0.2}) {
      for (const double y : {-0.12, 0.12}) document.AddBar(0, {y, z}, 6e-4, 0, 0);
    }
    document.Solve(LoadAction::load, {{-1e5, 1e4, 1e4}});
    const auto& section = document.Document().Section(0);
    const Diagram diagram =
        DiagramOf(document.Document(), section, 0, Request(DiagramKind::axialMoment, 0.5, 0.0));
    EXPECT_TRUE(diagram.loads.size() == 1 && diagram.loads[0].isGoverning &&
                !diagram.loads[0].isInPlane);
    EXPECT_LT(diagram.loads[0].utilisation, 1.0);
    const Diagram held =
        DiagramOf(document.Document(), section, 0, Request(DiagramKind::biaxialMoment, 0.0, -6e5));
    EXPECT_TRUE(IsSimple(diagram.design));
    std::vector<Vec3<double>> loads;
    for (const DiagramPoint& p : diagram.design) loads.push_back(0.9 * p.load);
    ASSERT_GT(loads.size(), 80U);
    for (const auto& result : document.Solve(LoadAction::load, loads)) {
      EXPECT_NEAR(result.LoadUtilisation(), 0.9, kRelative) << result.Load().Vector().x;
    }
    loads.clear();
    for (const DiagramPoint& p : held.design) {
      loads.push_back({p.load.x, 0.9 * p.load.y, 0.9 * p.load.z});
    }
    ASSERT_GT(loads.size(), 80U);
    for (const auto& result : document.Solve(LoadAction::load, loads)) {
      EXPECT_NEAR(result.MomentRatio(), 0.9, kRelative) << result.Load().Vector().y;
    }
  }
}

TEST(Diagrams, SaysWhyThereIsNone) {
  const CompiledSection section = Numeric::Compile(Rectangle(C30()).Input());
  for (const DiagramKind kind : {DiagramKind::biaxialMoment, DiagramKind::momentCurvature}) {
    for (const double axial : {-1e8, 1e8}) {
      EXPECT_EQ(DiagramOf(section, Request(kind, 0.0, axial)).problem, DiagramProblem::axialForce);
    }
  }
  Numeric::SectionInput nothing;
  nothing.curves = {B500().input};
  const CompiledSection empty = Numeric::Compile(nothing);
  EXPECT_EQ(DiagramOf(empty, {}).problem, DiagramProblem::noCapacity);
  DiagramRequest request;
  request.points = 0;
  EXPECT_THROW(DiagramOf(section, request), std::invalid_argument);
}

}  // namespace
}  // namespace Orlix::VlSol::Test
