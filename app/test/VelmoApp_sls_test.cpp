#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "app/VelmoApp.h"
#include "app/test/Column.h"

namespace Orlix {
namespace {

using namespace Data::Velmo9;  // NOLINT(google-build-using-namespace)
using Data::Design::CurveKind;

constexpr double kInf = std::numeric_limits<double>::infinity();

// A column in service, its cases: uncracked, cracked, empty, more than its bars can hold.
class VelmoAppSls : public testing::Test {
 protected:
  VelmoAppSls() {
    AddColumn(*app.pData());
    Task().SetLimitStates(false, true);
    for (const Vec3<double>& load :
         {Vec3<double>{-500e3, 5e3, 0.0}, {-100e3, 60e3, 10e3}, {}, {9e6, 0.0, 0.0}}) {
      Task().addCase({"", load});
    }
  }

  AnalysisTask& Task() { return app.pData()->getSection(0).Task(0); }
  void Solve() { app.SolveTask(app.pData()->getSection(0), 0); }
  void SetModel(CurveKind kind) {
    Data::Materials& materials = *app.pData()->getMaterials();
    materials.Grade(MatType::concrete, materials.Find(MatType::concrete, L"C30/37"))
        .SetShape(LoadState::SLS, LoadSign::compression, {.kind = kind});
  }
  Data::Velmo9::CaseSLSDetails Record(int iCase) {
    return app.CaseSLSDetails(0, 0, iCase, SlsOutputOptions(true), true);
  }

  VelmoApp app;
};

void ExpectNear(const Vec3<double>& got, const Vec3<double>& want, double error) {
  EXPECT_NEAR(got.x, want.x, error);
  EXPECT_NEAR(got.y, want.y, error);
  EXPECT_NEAR(got.z, want.z, error);
}

TEST_F(VelmoAppSls, AnUncrackedCaseHasTheTransformedSection) {
  Task().SetCaseInput(0, {-500e3, 0.0, 0.0});
  Solve();
  const auto record = Record(0);
  EXPECT_EQ(record.resultKind, SlsResultKind::uncracked);
  EXPECT_FALSE(record.cracked);
  EXPECT_EQ(record.load, VelmoLoad({-500e3, 0.0, 0.0}));
  EXPECT_EQ(record.zeta, 0.0);
  const auto& materials = *app.pData()->getMaterials();
  const double modulus =
      materials.Grade(MatType::concrete, materials.Find(MatType::concrete, L"C30/37"))
          .Properties()
          .E;
  const double bars = 4 * 3.14159e-4;  // displace the concrete they sit in
  const double stiffness = modulus * (0.15 - bars) + 200e9 * bars;
  EXPECT_NEAR(record.stiffness.axial, stiffness, 1e-9 * stiffness);  // the solver's residual
  EXPECT_EQ(record.stiffness.bendingYY, kInf);                       // no curvature, no stiffness
  EXPECT_NEAR(record.stressStrainSummary.uncracked.Concrete().minStress,
              -500e3 * modulus / stiffness, 1.0);
  EXPECT_FALSE(record.hasCrackWidth);
}

TEST_F(VelmoAppSls, ACrackedCaseLiesBetweenItsStates) {
  Solve();
  const auto record = Record(1);
  EXPECT_EQ(record.resultKind, SlsResultKind::cracked);
  EXPECT_TRUE(record.cracked);
  EXPECT_GT(record.zeta, 0.0);
  EXPECT_LT(record.zeta, 1.0);
  ExpectNear(record.interpolatedDeformation.Vector(),
             record.zeta * record.crackedDeformation.Vector() +
                 (1.0 - record.zeta) * record.uncrackedDeformation.Vector(),
             1e-15);  // rounding of strains and curvatures of 1e-3
  ExpectNear(record.uncrackedLoad.Vector(), record.load.Vector(), 1e-3);  // 1e-9 of the load
  ExpectNear(record.crackedLoad.Vector(), record.load.Vector(), 1e-3);
  EXPECT_DOUBLE_EQ(record.stiffness.bendingYY, 60e3 / record.interpolatedDeformation.Vector().y);
  EXPECT_GT(std::abs(record.crackedDeformation.Vector().y),
            std::abs(record.uncrackedDeformation.Vector().y));
  ASSERT_TRUE(record.stressStrainSummary.cracked);
  EXPECT_EQ(record.stressStrainSummary.cracked->Concrete().maxStress, 0.0);
  EXPECT_GT(record.stressStrainSummary.uncracked.Concrete().maxStress, 0.0);
  EXPECT_EQ(record.pointResults.at(0).size(), 4U);
  EXPECT_GT(record.barResults.at(0).at(1).forceCracked, 0.0);
}

TEST_F(VelmoAppSls, OtherModelsReportOneStateWithoutAFactor) {
  SetModel(CurveKind::bs8110Tension);
  Solve();
  auto record = Record(1);
  EXPECT_EQ(record.resultKind, SlsResultKind::cracked);
  EXPECT_EQ(record.zeta, kInf);
  EXPECT_EQ(record.interpolatedDeformation, record.crackedDeformation);
  EXPECT_NE(record.crackedDeformation, record.uncrackedDeformation);
  EXPECT_TRUE(record.stressStrainSummary.cracked);
  SetModel(CurveKind::linear);
  Solve();
  record = Record(1);
  EXPECT_EQ(record.zeta, kInf);
  EXPECT_EQ(record.interpolatedDeformation, record.uncrackedDeformation);
  EXPECT_FALSE(record.stressStrainSummary.cracked);
  EXPECT_EQ(record.pointResults.at(0)[0].strainCracked, kInf);
}

TEST_F(VelmoAppSls, AnEmptyCaseIsTheDefaultRecordAndAFailedOneKeepsItsLoad) {
  Solve();
  const auto empty = Record(2);
  EXPECT_EQ(empty.resultKind, SlsResultKind::notCalculated);
  EXPECT_EQ(empty.zeta, kInf);
  EXPECT_TRUE(empty.pointResults.empty());
  const auto failed = Record(3);
  EXPECT_EQ(failed.resultKind, SlsResultKind::noSolution);
  EXPECT_EQ(failed.load, VelmoLoad({9e6, 0.0, 0.0}));
  EXPECT_EQ(failed.interpolatedDeformation, Deformation());
  EXPECT_FALSE(failed.stressStrainSummary.HasRebar());
}

TEST_F(VelmoAppSls, AnAppliedDeformationIsCarriedByBothStates) {
  Task().SetAction(LoadAction::deformation);
  Task().SetCaseInput(0, {-2e-5, 1e-5, 0.0});
  Task().SetCaseInput(1, {0.0, 2e-3, 0.0});
  Task().SetCaseInput(3, {2e-4, 0.0, 0.0});
  Solve();
  const auto uncracked = Record(0);
  EXPECT_EQ(uncracked.resultKind, SlsResultKind::uncracked);
  EXPECT_EQ(uncracked.load, VelmoLoad());
  EXPECT_DOUBLE_EQ(uncracked.stiffness.axial, uncracked.uncrackedLoad.Vector().x / -2e-5);
  const auto cracked = Record(1);
  const Vec3<double> plane{0.0, 2e-3, 0.0};
  EXPECT_EQ(cracked.resultKind, SlsResultKind::cracked);
  EXPECT_EQ(cracked.appliedDeformation, Deformation(plane));
  ExpectNear(cracked.interpolatedDeformation.Vector(), plane, 1e-15);
  const double first = cracked.uncrackedLoad.Vector().y;
  const double second = cracked.crackedLoad.Vector().y;
  EXPECT_GT(first, second);
  EXPECT_GT(second, 0.0);
  EXPECT_DOUBLE_EQ(cracked.stiffness.bendingYY,
                   (cracked.zeta * second + (1.0 - cracked.zeta) * first) / 2e-3);
  EXPECT_EQ(cracked.stiffness.axial, kInf);
  // Fully cracked in tension the bars are alone.
  EXPECT_NEAR(Record(3).crackedLoad.Vector().x, 200e9 * 2e-4 * 4 * 3.14159e-4, 1e-3);
}

TEST_F(VelmoAppSls, OptionsDecideWhatIsFilled) {
  Solve();
  EXPECT_EQ(app.CaseSLSDetails(0, 0, 1, SlsOutputOptions(), true).load, VelmoLoad());
  SlsOutputOptions options;
  options.stiffness = true;
  auto record = app.CaseSLSDetails(0, 0, 1, options, true);
  EXPECT_EQ(record.stiffness.bendingYY, Record(1).stiffness.bendingYY);
  EXPECT_EQ(record.resultKind, SlsResultKind::cracked);
  EXPECT_EQ(record.zeta, kInf);
  EXPECT_EQ(record.crackedDeformation, Deformation());
  EXPECT_EQ(record.crackedLoad, VelmoLoad());
  EXPECT_TRUE(record.pointResults.empty());
  EXPECT_TRUE(record.stressStrainSummary.HasRebar());
  options = SlsOutputOptions();
  options.deformations = true;
  record = app.CaseSLSDetails(0, 0, 1, options, true);
  EXPECT_EQ(record.zeta, Record(1).zeta);
  EXPECT_EQ(record.stiffness.axial, 0.0);
  EXPECT_TRUE(app.CaseSLSDetails(0, 0, 1, SlsOutputOptions(true), false).pointResults.empty());
}

TEST_F(VelmoAppSls, ResultsOfAnEarlierModelCountAsNone) {
  EXPECT_EQ(Record(1).resultKind, SlsResultKind::noSolution);  // never solved
  Solve();
  const auto before = Record(1);
  CreepSettings creep;
  creep.term = LoadTerm::longTerm;
  creep.creepCoefficient = 2.0;
  Task().SetCreep(creep);
  EXPECT_EQ(Record(1).resultKind, SlsResultKind::noSolution);
  Util::JsonDocument json;
  std::string message;
  ASSERT_TRUE(app.GetCaseResults(0, 0, {1, 2}, json, message, false)) << message;  // solves
  EXPECT_TRUE(Task().IsCaseAnalysed(1));
  EXPECT_LT(Record(1).stiffness.bendingYY, before.stiffness.bendingYY);
  EXPECT_STREQ(json["results"][0]["crackedStatus"].GetString(), "cracked");
  EXPECT_STREQ(json["results"][1]["crackedStatus"].GetString(), "not calculated");
}

TEST_F(VelmoAppSls, ATaskOfBothLimitStatesHasBothInOneObject) {
  Task().SetLimitStates(true, true);
  Util::JsonDocument json;
  std::string message;
  ASSERT_TRUE(app.GetCaseResults(0, 0, {1}, json, message, true)) << message;
  std::vector<std::string> names;
  for (const auto& member : json["results"][0].GetObject())
    names.emplace_back(member.name.GetString());
  const std::vector<std::string> want = {"iCase",
                                         "load",
                                         "loadAtFailure",
                                         "status",
                                         "utilisation",
                                         "momentRatio",
                                         "deformation",
                                         "deformationAtFailure",
                                         "deformationUtilisation",
                                         "stressStrainSummary",
                                         "load",
                                         "deformationsCracked",
                                         "deformationsUncracked",
                                         "interpolatedDeformations",
                                         "crackedStatus",
                                         "stiffness",
                                         "slsStressStrainSummary"};
  EXPECT_EQ(names, want);
  std::vector<VelmoApp::CaseRecords> records;
  ASSERT_TRUE(app.CompileCaseResults(0, 0, {1, 3}, message, records, OutputOptions(true)));
  EXPECT_TRUE(records[0].second.first.status);
  EXPECT_EQ(records[0].second.second.resultKind, SlsResultKind::cracked);
  EXPECT_EQ(records[1].second.second.resultKind, SlsResultKind::noSolution);
}

TEST_F(VelmoAppSls, CasesThatAreNotThere) {
  for (const int iCase : {-1, 4}) {
    EXPECT_EQ(Record(iCase).resultKind, SlsResultKind::notCalculated);
  }
  EXPECT_EQ(app.CaseSLSDetails(0, 1, 0, SlsOutputOptions(true), true).load, VelmoLoad());
  EXPECT_EQ(app.CaseSLSDetails(7, 0, 0, SlsOutputOptions(true), true).load, VelmoLoad());
  Task().SetLimitStates(true, false);
  Solve();
  EXPECT_EQ(Record(1).resultKind, SlsResultKind::notCalculated);
}

}  // namespace
}  // namespace Orlix
