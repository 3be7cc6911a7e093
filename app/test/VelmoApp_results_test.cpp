#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <functional>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "app/VelmoApp.h"
#include "app/test/Column.h"
#include "model/vldata/response/results_stamp.h"

namespace Orlix {
namespace {

using namespace Data::Velmo9;  // NOLINT(google-build-using-namespace)

constexpr double kForces[] = {-1e6, -9e6, -2e6};  // carried, not carried, carried

// A column with a case of each force.
class VelmoAppResults : public testing::Test {
 protected:
  VelmoAppResults() {
    AddColumn(*app.pData());
    for (const double n : kForces) Task().addCase({"", {n, 0.0, 0.0}});
  }

  AnalysisTask& Task() { return app.pData()->getSection(0).Task(0); }
  void Solve() { app.SolveTask(app.pData()->getSection(0), 0); }
  bool Get(const std::vector<int>& cases, bool solve = false) {
    return app.GetCaseResults(0, 0, cases, json, message, solve);
  }
  bool Compile(const std::vector<int>& cases) {
    return app.CompileCaseResults(0, 0, cases, message, records, OutputOptions(true));
  }

  VelmoApp app;
  Util::JsonDocument json;
  std::string message;
  std::vector<VelmoApp::CaseRecords> records;
};

TEST_F(VelmoAppResults, AreInTheOrderAskedFor) {
  json.SetArray();  // becomes an object
  const std::vector<int> cases = {2, 0, 1, 2};
  ASSERT_TRUE(Get(cases)) << message;
  const auto& results = json["results"].GetArray();
  ASSERT_EQ(results.Size(), 4U);
  for (rapidjson::SizeType i = 0; i < 4; ++i) {
    EXPECT_EQ(results[i]["iCase"].GetInt(), cases[i]);
    EXPECT_EQ(results[i]["load"]["N"].GetDouble(), kForces[cases[i]]);
  }
  records.resize(1);
  ASSERT_TRUE(Compile({1, 0}));
  ASSERT_EQ(records.size(), 3U);  // appended
  EXPECT_EQ(records[1].first, 1);
  EXPECT_EQ(records[2].first, 0);
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
  const auto record = [this](int iCase) {
    return app.CaseULSDetails(0, 0, iCase, UlsOutputOptions(true), true);
  };
  const auto addCase = [this] { Task().addCase({"", {-5e5, 0, 0}}); };
  const auto widen = [this] {
    app.pData()->getSection(0).Components()[0].SetGeometry(
        Data::CSecGeom(Data::ShapeKind::rectangle, {.width = 0.35, .depth = 0.5}));
  };
  const std::pair<std::function<void()>, int> kChanges[] = {{addCase, 3}, {widen, 0}};
  for (const auto& [change, iCase] : kChanges) {
    SCOPED_TRACE(iCase);
    Solve();
    const double before = record(0).loadUtilisation;
    change();
    const auto stale = record(iCase);
    EXPECT_FALSE(stale.status);
    EXPECT_EQ(stale.loadUtilisation, std::numeric_limits<double>::infinity());
    EXPECT_EQ(stale.loadAtFailure, VelmoLoad());
    records.clear();
    ASSERT_TRUE(Compile({iCase}));
    EXPECT_FALSE(records[0].second.first.status);
    EXPECT_FALSE(records[0].second.first.stressStrainSummary.HasConcrete());
    ASSERT_TRUE(Get({iCase}));
    EXPECT_TRUE(json["results"][0]["status"].GetBool());
    EXPECT_TRUE(record(iCase).status);
    EXPECT_NE(record(iCase).loadUtilisation, before);
  }
}

TEST_F(VelmoAppResults, OptionsDecideWhatIsFilled) {
  Solve();
  EXPECT_EQ(app.CaseULSDetails(0, 0, 0, UlsOutputOptions(), true).load, VelmoLoad());
  UlsOutputOptions options;
  options.utilisations = true;
  const auto record = app.CaseULSDetails(0, 0, 0, options, true);
  EXPECT_EQ(record.load, VelmoLoad({-1e6, 0, 0}));
  EXPECT_GT(record.deformationUtilisation, 0.0);
  EXPECT_EQ(record.deformation, Deformation());
  EXPECT_EQ(record.loadAtFailure, VelmoLoad());
  EXPECT_TRUE(record.pointResults.empty());
  EXPECT_TRUE(record.stressStrainSummary.HasRebar());

  const auto failed = app.CaseULSDetails(0, 0, 1, UlsOutputOptions(true), true);
  EXPECT_GT(failed.loadUtilisation, 1.0);
  EXPECT_EQ(failed.deformationUtilisation, 0.0);  // of a load that is not carried
  EXPECT_EQ(failed.deformation, Deformation());
  EXPECT_TRUE(app.CaseULSDetails(0, 0, 0, UlsOutputOptions(true), false).pointResults.empty());
}

TEST_F(VelmoAppResults, IndicesThatAreNotThere) {
  const struct {
    int iSec;
    int iTask;
    const char* message;
  } kCases[] = {
      {1, 0, "2 is not a valid section number."},
      {0, 1, "2 is not a valid task number for Section 1."},
      {0, -1, "0 is not a valid task number for Section 1."},
  };
  for (const auto& c : kCases) {
    message.clear();
    EXPECT_FALSE(app.GetCaseResults(c.iSec, c.iTask, {0}, json, message, true));
    EXPECT_EQ(message, c.message);
    EXPECT_TRUE(json.IsObject() && json.ObjectEmpty());
    message.clear();
    EXPECT_FALSE(
        app.CompileCaseResults(c.iSec, c.iTask, {0}, message, records, OutputOptions(true)));
    EXPECT_EQ(message, c.message);
    EXPECT_EQ(app.CaseULSDetails(c.iSec, c.iTask, 0, UlsOutputOptions(true), true).load,
              VelmoLoad());
  }
  EXPECT_TRUE(records.empty());
  ASSERT_TRUE(Compile({-1, 3}));  // such a case has the default record
  ASSERT_EQ(records.size(), 2U);
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
