#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "app/VelmoApp.h"
#include "app/test/Column.h"
#include "model/vldata/response/results_stamp.h"

namespace Orlix {
namespace {

using namespace Data::Velmo9;  // NOLINT(google-build-using-namespace)

// A column with three cases: carried, not carried, carried.
class VelmoAppResults : public testing::Test {
 protected:
  VelmoAppResults() {
    AddColumn(*app.pData());
    for (const double n : {-1e6, -9e6, -2e6}) Task().addCase({"", {n, 0.0, 0.0}});
  }

  AnalysisTask& Task() { return app.pData()->getSection(0).Task(0); }
  void Solve() { app.SolveTask(app.pData()->getSection(0), 0); }
  bool Get(const std::vector<int>& cases, bool solve = false) {
    return app.GetCaseResults(0, 0, cases, json, message, solve);
  }
  bool Compile(const std::vector<int>& cases) {
    return app.CompileCaseResults(0, 0, cases, message, records, OutputOptions(true));
  }
  double AppliedForce(rapidjson::SizeType position) {
    return json["results"][position]["load"]["N"].GetDouble();
  }

  VelmoApp app;
  Util::JsonDocument json;
  std::string message;
  std::vector<VelmoApp::CaseRecords> records;
};

TEST_F(VelmoAppResults, AreInTheOrderAskedFor) {
  json.SetArray();  // becomes an object
  ASSERT_TRUE(Get({2, 0, 1, 2})) << message;
  EXPECT_EQ(json.MemberCount(), 3U);
  EXPECT_EQ(json["iSec"].GetInt(), 0);
  EXPECT_EQ(json["iTask"].GetInt(), 0);
  ASSERT_EQ(json["results"].Size(), 4U);
  const int cases[] = {2, 0, 1, 2};
  const double forces[] = {-2e6, -1e6, -9e6, -2e6};
  for (rapidjson::SizeType i = 0; i < 4; ++i) {
    EXPECT_EQ(json["results"][i]["iCase"].GetInt(), cases[i]);
    EXPECT_EQ(AppliedForce(i), forces[i]);
    EXPECT_EQ(json["results"][i]["status"].GetBool(), cases[i] != 1);
  }
  records.resize(1);
  ASSERT_TRUE(Compile({1, 0}));
  ASSERT_EQ(records.size(), 3U);  // appended
  EXPECT_EQ(records[1].first, 1);
  EXPECT_EQ(records[2].first, 0);
  ASSERT_TRUE(Get({}));
  EXPECT_EQ(json["results"].Size(), 0U);
}

TEST_F(VelmoAppResults, StayInTheDocument) {
  EXPECT_FALSE(Task().IsCaseAnalysed(0));
  ASSERT_TRUE(Get({0}));
  EXPECT_TRUE(Task().IsCaseAnalysed(0));
  const auto before = Task().Results();
  ASSERT_TRUE(Get({0, 1}));
  EXPECT_EQ(Task().Results(), before);  // not solved again
  ASSERT_TRUE(Get({0}, true));
  EXPECT_NE(Task().Results(), before);
}

TEST_F(VelmoAppResults, AreNeverThoseOfAnEarlierModel) {
  const struct {
    const char* what;
    void (*change)(VelmoApp&);
    int iCase;
  } kChanges[] = {
      {"input",
       [](VelmoApp& a) {
         a.pData()->getSection(0).Task(0).SetCaseInput(0, {-3e6, 0, 0});
       },
       0},
      {"case added",
       [](VelmoApp& a) {
         a.pData()->getSection(0).Task(0).addCase({"", {-5e5, 0, 0}});
       },
       3},
      {"action",
       [](VelmoApp& a) {
         AnalysisTask& task = a.pData()->getSection(0).Task(0);
         task.SetAction(LoadAction::deformation);
         for (int i = 0; i < task.NumCases(); ++i) task.SetCaseInput(i, {-1e-4, 0, 0});
       },
       0},
      {"geometry",
       [](VelmoApp& a) {
         a.pData()->getSection(0).Components()[0].SetGeometry(
             Data::CSecGeom(Data::ShapeKind::rectangle, {.width = 0.35, .depth = 0.5}));
       },
       0},
  };
  for (const auto& c : kChanges) {
    SCOPED_TRACE(c.what);
    Solve();
    const double before = app.CaseULSDetails(0, 0, 0, UlsOutputOptions(true), true).loadUtilisation;
    ASSERT_GT(before, 0.0);
    c.change(app);
    const auto stale = app.CaseULSDetails(0, 0, c.iCase, UlsOutputOptions(true), true);
    EXPECT_FALSE(stale.status);
    EXPECT_EQ(stale.loadUtilisation, std::numeric_limits<double>::infinity());
    EXPECT_EQ(stale.loadAtFailure, VelmoLoad());
    records.clear();
    ASSERT_TRUE(Compile({c.iCase}));
    EXPECT_FALSE(records[0].second.first.status);
    EXPECT_FALSE(records[0].second.first.stressStrainSummary.HasConcrete());
    ASSERT_TRUE(Get({c.iCase}));
    EXPECT_TRUE(json["results"][0]["status"].GetBool());
    const auto fresh = app.CaseULSDetails(0, 0, c.iCase, UlsOutputOptions(true), true);
    EXPECT_TRUE(fresh.status);
    EXPECT_NE(fresh.loadUtilisation, before);
  }
}

TEST_F(VelmoAppResults, OptionsDecideWhatIsFilled) {
  Solve();
  EXPECT_EQ(app.CaseULSDetails(0, 0, 0, UlsOutputOptions(), true).load, VelmoLoad());
  UlsOutputOptions options;
  options.utilisations = true;
  const auto record = app.CaseULSDetails(0, 0, 0, options, true);
  EXPECT_EQ(record.load, VelmoLoad({-1e6, 0, 0}));
  EXPECT_TRUE(record.status);
  EXPECT_GT(record.loadUtilisation, 0.0);
  EXPECT_GT(record.deformationUtilisation, 0.0);
  EXPECT_EQ(record.deformation, Deformation());
  EXPECT_EQ(record.loadAtFailure, VelmoLoad());
  EXPECT_TRUE(record.pointResults.empty());
  EXPECT_TRUE(record.stressStrainSummary.HasRebar());

  const auto failed = app.CaseULSDetails(0, 0, 1, UlsOutputOptions(true), true);
  EXPECT_FALSE(failed.status);
  EXPECT_GT(failed.loadUtilisation, 1.0);
  EXPECT_EQ(failed.deformationUtilisation, 0.0);  // of a load that is not carried
  EXPECT_EQ(failed.deformation, Deformation());
  EXPECT_FALSE(failed.stressStrainSummary.HasConcrete());
  EXPECT_TRUE(app.CaseULSDetails(0, 0, 0, UlsOutputOptions(true), false).pointResults.empty());
}

TEST_F(VelmoAppResults, AnAppliedDeformationComesWithItsLoadAlsoWhenItFails) {
  Task().SetAction(LoadAction::deformation);
  Task().SetCaseInput(0, {-1e-3, 0.0, 0.0});
  Task().SetCaseInput(1, {-9e-3, 0.0, 0.0});
  Solve();
  UlsOutputOptions options;
  options.utilisations = true;
  const auto carried = app.CaseULSDetails(0, 0, 0, options, true);
  EXPECT_TRUE(carried.status);
  EXPECT_EQ(carried.deformation, Deformation({-1e-3, 0.0, 0.0}));
  EXPECT_LT(carried.load.Vector().x, -1e6);
  const auto failed = app.CaseULSDetails(0, 0, 1, options, true);
  EXPECT_FALSE(failed.status);
  EXPECT_EQ(failed.deformation, Deformation({-9e-3, 0.0, 0.0}));
  EXPECT_GT(failed.deformationUtilisation, 1.0);
}

TEST_F(VelmoAppResults, ATaskWithoutUltimateLimitStateIsNotFailed) {
  Task().SetLimitStates(false, true);
  ASSERT_TRUE(Compile({0, 1}));
  EXPECT_EQ(records[1].second.first.load, VelmoLoad());
  Task().SetLimitStates(false, false);
  ASSERT_TRUE(Get({1}));
  EXPECT_EQ(json["results"][0].MemberCount(), 1U);  // iCase alone
}

TEST_F(VelmoAppResults, IndicesThatAreNotThere) {
  constexpr int kMax = std::numeric_limits<int>::max();
  const struct {
    int iSec;
    int iTask;
    const char* message;
  } kCases[] = {
      {1, 0, "2 is not a valid section number."},
      {-1, -1, "0 is not a valid section number."},
      {0, 1, "2 is not a valid task number for Section 1."},
      {0, -1, "0 is not a valid task number for Section 1."},
      {0, kMax, "2147483648 is not a valid task number for Section 1."},
  };
  for (const auto& c : kCases) {
    std::string text;
    EXPECT_FALSE(app.GetCaseResults(c.iSec, c.iTask, {0}, json, text, true));
    EXPECT_EQ(text, c.message);
    EXPECT_TRUE(json.IsObject() && json.ObjectEmpty());
    text.clear();
    EXPECT_FALSE(app.CompileCaseResults(c.iSec, c.iTask, {0}, text, records, OutputOptions(true)));
    EXPECT_EQ(text, c.message);
    EXPECT_EQ(app.CaseULSDetails(c.iSec, c.iTask, 0, UlsOutputOptions(true), true).load,
              VelmoLoad());
  }
  EXPECT_TRUE(records.empty());
  ASSERT_TRUE(Compile({-1, 3, kMax}));  // such a case has the default record
  ASSERT_EQ(records.size(), 3U);
  EXPECT_EQ(records[1].first, 3);
  EXPECT_EQ(records[1].second.first.load, VelmoLoad());
}

TEST_F(VelmoAppResults, ATaskThatCannotBeSolvedHasNone) {
  app.pData()->getSection(0).Components()[0].SetMaterial(MatType::concrete, -1);
  EXPECT_FALSE(Get({1, 0}, true));
  EXPECT_EQ(message, "Unable to get results for case 2");
}

TEST_F(VelmoAppResults, AnExceptionLeavesNothingBehind) {
  auto broken = std::make_shared<TaskResults>();
  broken->stamp = ResultsStamp(*app.pData(), app.pData()->Section(0), 0);
  for (const TaskCase& c : Task().Cases()) {
    UlsCaseSolution& solution = broken->uls.emplace_back();
    solution.input = c.input;
    solution.carried = true;
  }
  broken->ulsComponents = std::make_shared<DetailedIntegrationResult::ComponentMap>();
  Task().SetResults(broken);
  EXPECT_THROW(Compile({0, 1, 2}), std::out_of_range);
  EXPECT_TRUE(records.empty());
}

}  // namespace
}  // namespace Orlix
