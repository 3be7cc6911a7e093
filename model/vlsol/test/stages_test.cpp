// Tasks that build on the strain planes of an earlier one.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <memory>
#include <string>

#include "model/oxutil/json.h"
#include "model/vldata/response/SectionCompiler.h"
#include "model/vldata/response/results_stamp.h"
#include "model/vlsol/Solver.h"
#include "model/vlsol/TensionStiffenedSection.h"
#include "model/vlsol/sls.h"

namespace Orlix::VlSol {
namespace {

using Data::CVelmoData;
using Data::Design::CurveKind;
using Data::Velmo9::AnalysisTask;
using Data::Velmo9::Deformation;
using Data::Velmo9::DetailedIntegrationResult;
using Data::Velmo9::PreloadReference;
using Data::Velmo9::SectionCompiler;
using Data::Velmo9::SectionState;
using Data::Velmo9::VelmoSection;

CVelmoData Example(const std::string& name) {
  std::ifstream file("examples/" + name + ".json");
  Util::JsonDocument json;
  std::string error;
  EXPECT_TRUE(Util::ParseJson(file, json, error)) << error;
  return CVelmoData(json);
}

void SolveAll(CVelmoData& document) {
  VelmoSection& section = document.getSection(0);
  for (int i = 0; i < std::ssize(section.Tasks()); ++i) Solver::SolveTask(document, section, i);
}

// Strain of a component at a level of the section, both stages together.
double StrainAt(const DetailedIntegrationResult& result, int component, double z) {
  return result.Deformation().StrainAt({0.0, z}) +
         result.Components().at(component).lockedIn.StrainAt({0.0, z});
}

// Elastic stiffnesses about the origin, of concrete net of its bars.
struct Elastic {
  double a{}, s{}, i{};

  void AddBlock(double modulus, double width, double bottom, double top) {
    a += modulus * width * (top - bottom);
    s += modulus * width * (top * top - bottom * bottom) / 2.0;
    i += modulus * width * (std::pow(top, 3) - std::pow(bottom, 3)) / 3.0;
  }
  void AddBars(double modulus, double number, double diameter, double z) {
    const double ea = modulus * number * std::acos(-1.0) * diameter * diameter / 4.0;
    a += ea;
    s += ea * z;
    i += ea * z * z;
  }
  Deformation Under(double moment) const {
    const double curvature = moment / (i - s * s / a);
    return Deformation({-curvature * s / a, curvature, 0.0});
  }
};

// The numbers of the beam stand in docs/verification.md.
TEST(Stages, TheBeamWithToppingHasTheStrainsOfBothStagesByHand) {
  CVelmoData document = Example("staged-composite-beam");
  SolveAll(document);
  const double steel = 200e9;
  const double beam = 22e9 * std::pow(48.0 / 10.0, 0.3);
  const double topping = 22e9 * std::pow(33.0 / 10.0, 0.3);
  Elastic section;
  section.AddBlock(beam, 0.3, -0.4875, 0.1125);
  section.AddBars(steel - beam, 3, 0.02, -0.4375);
  section.AddBars(steel - beam, 2, 0.012, 0.0675);
  const Deformation first = section.Under(-46080.0);
  section.AddBlock(topping, 1.2, 0.1125, 0.2625);
  section.AddBars(steel - topping, 4, 0.01, 0.2175);
  const AnalysisTask& composite = document.Section(0).Task(1);
  for (int i = 0; i < 4; ++i) {  // the fifth is not in uniaxial bending
    const double moment = composite.Cases()[static_cast<std::size_t>(i)].input.y;
    const Deformation second = section.Under(moment + 46080.0);
    const auto result = composite.SLSResult(i, false, true, true).Response().uncracked;
    constexpr double kError = 1e-9 * 1e-4;  // of the strains, whose equilibrium is good to 1e-11
    for (const double z : {-0.4875, -0.4375, 0.1125}) {
      const double sum = first.StrainAt({0.0, z}) + second.StrainAt({0.0, z});
      EXPECT_NEAR(StrainAt(result, 0, z), sum, kError);
    }
    for (const double z : {0.1125, 0.2175, 0.2625}) {
      EXPECT_NEAR(StrainAt(result, 1, z), second.StrainAt({0.0, z}), kError);
    }
    EXPECT_NEAR(result.Load().Vector().y, moment, 1e-9 * 46080.0);  // of both stages
  }
}

// With all components there from the first stage on materials that keep no memory end in the state
// that the last load gives at once, however many stages there were.
TEST(Stages, StagesOfOneSectionEndInTheStateOfTheLastLoad) {
  const struct {
    const char* example;
    CurveKind model;
    bool cracks;
    Vec3<double> loads[3];
    const wchar_t* code = nullptr;  // that of the example
  } kCases[] = {
      {"circular-pier",
       CurveKind::interpolated,
       false,  // the code's cap on the axial force decides
       {{-8e6, 3e5, 0.0}, {-1.2e7, 2e5, 1e5}, {-1.7e7, 1e5, 0.0}}},
      {"circular-pier",
       CurveKind::interpolated,
       true,
       {{-2e6, 3e5, 0.0}, {-2.5e6, 1.2e6, 3e5}, {-3e6, 2.4e6, -8e5}}},
      {"circular-pier",  // on the line to the squash load
       CurveKind::interpolated,
       false,
       {{-8e6, 3e5, 0.0}, {-1.2e7, 2e5, 1e5}, {-1.5e7, 4e5, 2e5}},
       L"AS 3600:2018"},
      {"circular-pier",
       CurveKind::interpolated,
       true,
       {{-2e6, 3e5, 0.0}, {-2.5e6, 1.2e6, 3e5}, {-3e6, 2.4e6, -8e5}},
       L"AS 3600:2018"},
      {"beam",
       CurveKind::interpolated,
       true,
       {{0.0, -2e4, 0.0}, {-5e4, -8e4, 0.0}, {0.0, -1.1e5, 1e4}}},
      {"beam",
       CurveKind::bs8110Tension,
       true,
       {{0.0, -2e4, 0.0}, {0.0, -1e5, 1e4}, {0.0, -7e4, 0.0}}},
      {"beam",
       CurveKind::interpolated,
       true,
       {{0.0, -6e4, 0.0}, {0.0, -1e5, 1e4}, {0.0, -1.1e5, 0.0}},
       L"BS 8110-1:1997"},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.example);
    CVelmoData document = Example(c.example);
    if (c.code != nullptr) document.SetCodes(c.code);
    VelmoSection& section = document.getSection(0);
    document.getMaterials()
        ->Grade(MatType::concrete, section.Components()[0].MaterialGrade())
        .SetShape(LoadState::SLS, LoadSign::tension, {.kind = c.model});
    while (!section.Tasks().empty()) section.DeleteTask(0);
    // Task 1 takes the last load at once; 2 to 4 are the stages, 5 adds nothing to task 1.
    const int kFrom[] = {0, 0, 2, 3, 1};
    const int kLoad[] = {2, 0, 1, 2, 2};
    for (int i = 0; i < 5; ++i) {
      AnalysisTask& task = section.AddTask();
      task.SetLimitStates(true, true);
      task.addCase({"", c.loads[kLoad[i]]});
      if (kFrom[i] > 0) task.SetPreloadFrom(PreloadReference{kFrom[i], 1});
    }
    SolveAll(document);
    ASSERT_TRUE(section.Task(4).IsCaseAnalysed(0));
    const auto sls = [&](int i) { return section.Task(i).SLSResult(0, true, true, true); };
    const auto uls = [&](int i) { return section.Task(i).ULSResult(0, true); };
    EXPECT_EQ(sls(0).CrackingUtilisation() > 1.0, c.cracks);
    constexpr double kPlane = 1e-9;  // three equilibria to 1e-11 of 1e-3, over cracked stiffness
    for (const int last : {3, 4}) {
      const DetailedIntegrationResult pairs[][2] = {
          {uls(0).Response(), uls(last).Response()},
          {sls(0).Response().uncracked, sls(last).Response().uncracked},
          {sls(0).Response().cracked, sls(last).Response().cracked}};
      for (const auto& [direct, staged] : pairs) {
        const Vec3<double> total =
            staged.Deformation().Vector() + staged.Components().at(0).lockedIn.Vector();
        EXPECT_LE(Length(total - direct.Deformation().Vector()), kPlane);
        if (last == 4) {
          EXPECT_LE(Length(staged.Deformation().Vector()), kPlane);
        }
      }
      // A search along another path: of factors good to 1e-10, whose slopes are mild.
      EXPECT_NEAR(uls(last).LoadUtilisation(), uls(0).LoadUtilisation(), 1e-8);
      EXPECT_NEAR(uls(last).ReductionFactor(), uls(0).ReductionFactor(), 1e-8);
      EXPECT_NEAR(sls(last).CrackingUtilisation(), sls(0).CrackingUtilisation(), 1e-8);
      if (document.concreteCode().IsCrackWidthCode()) {
        EXPECT_GT(sls(0).CrackWidth(), 0.0);
        EXPECT_NEAR(sls(last).CrackWidth(), sls(0).CrackWidth(), 1e-8);
      }
      const double zeta = sls(0).Response().zeta;
      if (std::isfinite(zeta)) {
        EXPECT_NEAR(sls(last).Response().zeta, zeta, 1e-8);
      }
    }
  }
}

// BS 8110-2, 3.6: below its tension at the level of the steel the concrete keeps its full slope, so
// that a stage that adds no load adds no strain.
TEST(Stages, ConcreteBelowItsTensionAtTheSteelKeepsItsSlope) {
  CVelmoData document = Example("staged-composite-beam");
  VelmoSection& section = document.getSection(0);
  for (const auto& component : section.Components()) {
    document.getMaterials()
        ->Grade(MatType::concrete, component.MaterialGrade())
        .SetShape(LoadState::SLS, LoadSign::tension, {.kind = CurveKind::bs8110Tension});
  }
  SolveAll(document);
  section.Task(1).SetPreloadFrom(PreloadReference{1, 1});
  const auto model = SlsModel::Of(document, section, 1);
  ASSERT_TRUE(model);
  const Numeric::CompiledSection& compiled = model->cracked->section;
  TensionStiffenedSection stiffened(*model->cracked, model->steelLevelStress);
  const double full = stiffened.TensionModulus();
  const Vec3<double> load = section.Task(0).Cases()[0].input;
  const Vec3<double> added = stiffened.SolveEquilibrium(compiled.LoadToLocal(load), {});
  EXPECT_EQ(stiffened.TensionModulus(), full);
  EXPECT_LE(Length(added), 1e-12);
}

TEST(Stages, BarsAddedLaterTakeNoLockedInStrain) {
  CVelmoData document = Example("staged-composite-beam");
  SolveAll(document);
  VelmoSection& section = document.getSection(0);
  section.Task(1).SetPreloadFrom(PreloadReference{1, 2, {0}});
  const auto compiled = SectionCompiler::Compile(document, section, 1, SectionState::uncracked);
  ASSERT_NE(compiled, nullptr);
  const Vec3<double>& locked = section.Task(0).Results()->sls[1].uncracked;
  const auto& bar = compiled->section.points[0];
  EXPECT_EQ(bar.strainOffset, 0.0);
  EXPECT_EQ(bar.lockedOffset, 0.0);
  EXPECT_NEAR(bar.displacedOffset, Deformation(locked).StrainAt({-0.1, -0.4375}), 1e-18);

  // A third stage that adds no load finds them as the second left them.
  section.AddTask(section.Task(1)).SetPreloadFrom(PreloadReference{2, 4});
  SolveAll(document);
  const auto third = section.Task(4).SLSResult(3, false, true, true).Response();
  const double width = section.Task(1).SLSResult(3, true, true, true).CrackWidth();
  EXPECT_GT(width, 0.0);
  EXPECT_NEAR(section.Task(4).SLSResult(3, true, true, true).CrackWidth(), width, 1e-8 * width);
  for (const auto* state : {&third.uncracked, &third.cracked}) {
    // Equilibria to 1e-11 of 1e-3, over cracked stiffness.
    EXPECT_LE(Length(state->Deformation().Vector()), 1e-9);
  }
}

TEST(Stages, AStageStandsAndFallsWithTheCaseBeforeIt) {
  CVelmoData document = Example("staged-composite-beam");
  VelmoSection& section = document.getSection(0);
  Solver::SolveTask(document, section, 1);
  EXPECT_EQ(section.Task(1).Results(), nullptr);
  SolveAll(document);
  section.Task(0).SetCaseInput(0, {0.0, -1.0, 0.0});  // not the case that task 2 builds on
  DropOutdatedResults(document, section);
  EXPECT_TRUE(section.Task(1).IsCaseAnalysed(0));
  section.Task(0).SetCaseInput(1, {0.0, -46081.0, 0.0});
  DropOutdatedResults(document, section);
  EXPECT_EQ(section.Task(1).Results(), nullptr);
  EXPECT_TRUE(section.Task(3).IsCaseAnalysed(0));  // of another chain

  // What is beyond equilibrium, or its limits, leaves nothing to build on.
  for (const double moment : {-1e9, std::nan("")}) {
    section.Task(0).SetCaseInput(1, {0.0, moment, 0.0});
    section.Task(2).SetCaseInput(0, {0.0, moment, 0.0});
    SolveAll(document);
    ASSERT_TRUE(section.Task(1).IsCaseAnalysed(1) && section.Task(3).IsCaseAnalysed(0));
    EXPECT_TRUE(section.Task(1).SLSResult(1, false, true, true).IsFail());
    EXPECT_TRUE(section.Task(3).ULSResult(0, false).IsFail());
  }
}

}  // namespace
}  // namespace Orlix::VlSol
