#include <gtest/gtest.h>
#include <rapidjson/document.h>

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

TEST_F(VelmoAppSls, InterpolatedResultsLieBetweenTheStates) {
  Solve();
  const auto uncracked = Record(0);
  EXPECT_EQ(uncracked.resultKind, SlsResultKind::uncracked);
  EXPECT_EQ(uncracked.zeta, 0.0);
  EXPECT_EQ(uncracked.interpolatedDeformation, uncracked.uncrackedDeformation);
  EXPECT_EQ(uncracked.stiffness.bendingZZ, kInf);  // no curvature, no stiffness
  const auto cracked = Record(1);
  EXPECT_EQ(cracked.resultKind, SlsResultKind::cracked);
  EXPECT_TRUE(cracked.zeta > 0.0 && cracked.zeta < 1.0);
  const Vec3<double> between = cracked.zeta * cracked.crackedDeformation.Vector() +
                               (1.0 - cracked.zeta) * cracked.uncrackedDeformation.Vector();
  EXPECT_DOUBLE_EQ(cracked.interpolatedDeformation.Vector().y, between.y);
  EXPECT_DOUBLE_EQ(cracked.stiffness.bendingYY, 60e3 / between.y);
  EXPECT_NEAR(cracked.uncrackedLoad.Vector().y, 60e3, 1e-3);  // 1e-9 of the load
  EXPECT_NEAR(cracked.crackedLoad.Vector().y, 60e3, 1e-3);
  EXPECT_GT(cracked.barResults.at(0).at(1).forceCracked, 0.0);
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
}

TEST_F(VelmoAppSls, WidthsAreThoseOfTheWidestCrackOfEachCase) {
  Solve();
  const auto cracks = app.CompileCrackResults(0, 0, {0, 1, 2, 3, -1, 4});
  for (const std::size_t none : {0U, 2U, 3U, 4U, 5U}) EXPECT_TRUE(cracks[none].empty()) << none;
  const std::vector<CCrack> ofColumn = app.GetCrackResults(0, 0, 1).at(0);
  EXPECT_EQ(ofColumn.size(), cracks[1].at(0).size());
  EXPECT_GT(Record(1).crackWidth, 1e-5);
  EXPECT_FLOAT_EQ(static_cast<float>(Record(1).crackWidth),
                  static_cast<float>(ofColumn.front().width));
  EXPECT_EQ(Record(0).crackWidth, 0.0);
  EXPECT_TRUE(Record(3).hasCrackWidth);
  EXPECT_EQ(Record(3).crackWidth, kInf);
  EXPECT_TRUE(app.GetCrackResults(0, 1, 0).empty());

  Task().SetCaseInput(1, {-100e3, 61e3, 10e3});  // not the case that was solved
  EXPECT_TRUE(app.GetCrackResults(0, 0, 1).empty());
  Util::JsonDocument code;
  code.SetObject().AddMember("concrete", "ACI 318-19", code.GetAllocator());
  app.setCodes(code);
  Solve();
  EXPECT_FALSE(Record(1).hasCrackWidth);
  EXPECT_TRUE(app.GetCrackResults(0, 0, 1).empty());
}

TEST_F(VelmoAppSls, CasesThatAreNotThereAndAnEmptyOneHaveTheDefaultRecord) {
  Solve();
  for (const int iCase : {-1, 2, 4}) {
    EXPECT_EQ(Record(iCase).resultKind, SlsResultKind::notCalculated);
    EXPECT_EQ(Record(iCase).zeta, kInf);
  }
  EXPECT_EQ(app.CaseSLSDetails(0, 1, 0, SlsOutputOptions(true), true).load, VelmoLoad());
  EXPECT_EQ(app.CaseSLSDetails(7, 0, 0, SlsOutputOptions(true), true).load, VelmoLoad());
  Task().SetLimitStates(true, false);
  Solve();
  EXPECT_EQ(Record(1).resultKind, SlsResultKind::notCalculated);
}

TEST_F(VelmoAppSls, OptionsDecideWhatIsFilled) {
  Solve();
  EXPECT_EQ(app.CaseSLSDetails(0, 0, 1, SlsOutputOptions(), true).load, VelmoLoad());
  SlsOutputOptions options;
  options.stiffness = true;
  auto record = app.CaseSLSDetails(0, 0, 1, options, true);
  EXPECT_EQ(record.stiffness.bendingYY, Record(1).stiffness.bendingYY);
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
  const double before = Record(1).stiffness.bendingYY;
  CreepSettings creep;
  creep.term = LoadTerm::longTerm;
  creep.creepCoefficient = 2.0;
  Task().SetCreep(creep);
  EXPECT_EQ(Record(1).resultKind, SlsResultKind::noSolution);
  Util::JsonDocument json;
  std::string message;
  ASSERT_TRUE(app.GetCaseResults(0, 0, {1, 2}, json, message, false)) << message;  // solves
  EXPECT_LT(Record(1).stiffness.bendingYY, before);
}

TEST_F(VelmoAppSls, ATaskOfBothLimitStatesHasBothInOneObject) {
  Task().SetLimitStates(true, true);
  Util::JsonDocument json;
  std::string message;
  ASSERT_TRUE(app.GetCaseResults(0, 0, {1}, json, message, true)) << message;
  std::string names;
  for (const auto& member : json["results"][0].GetObject()) {
    names += member.name.GetString() + std::string(" ");
  }
  EXPECT_EQ(names,
            "iCase load loadAtFailure status utilisation momentRatio deformation "
            "deformationAtFailure deformationUtilisation stressStrainSummary load "
            "deformationsCracked deformationsUncracked interpolatedDeformations cracked crackWidth "
            "crackedStatus stiffness slsStressStrainSummary ");
}

}  // namespace
}  // namespace Orlix
