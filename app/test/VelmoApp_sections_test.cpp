// Edits one by one; random_edits_test.cpp has them in long rows.

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "app/VelmoApp.h"
#include "app/test/Column.h"
#include "model/oxutil/json.h"
#include "model/vldata/document/AnalysisCasePauser.h"

namespace Orlix {
namespace {

using Data::AnalysisCasePauser;
using Data::CaseRange;
using Data::Velmo9::AnalysisTask;
using Ranges = std::vector<CaseRange>;

TEST(VelmoAppSections, AnInputMakesTheSectionsAndCasesThatItNeeds) {
  VelmoApp app;
  app.AddSection({});
  app.setCaseInput(2, 0, 1, {1.0, 2.0, 3.0});
  ASSERT_EQ(app.pData()->NumSections(), 3);
  EXPECT_TRUE(app.pData()->Section(0).Tasks().empty());
  EXPECT_EQ(app.pData()->Section(1).Tasks().size(), 1U);
  const AnalysisTask& task = app.pData()->Section(2).Task(0);
  ASSERT_EQ(task.NumCases(), 2);
  EXPECT_EQ(task.Cases()[0].input, Vec3<double>{});
  EXPECT_EQ(task.Cases()[1].input, (Vec3<double>{1.0, 2.0, 3.0}));
  EXPECT_EQ(app.pData()->Queue().Ranges(), (Ranges{{2, 0, 0, 2}}));

  EXPECT_THROW(app.setCaseInput(3, 1, 0, {}), std::out_of_range);
  EXPECT_EQ(app.pData()->NumSections(), 4);
  EXPECT_THROW(app.setCaseInput(-1, 0, 0, {}), std::out_of_range);
  EXPECT_THROW(app.setCaseInput(2, 0, -1, {}), std::out_of_range);
}

TEST(VelmoAppSections, TasksThatAreNotThereAreLeftAlone) {
  VelmoApp app;
  AddColumn(*app.pData());
  const std::wstring before = app.fileString(true);
  for (const int iTask : {-1, 1, 7}) {
    app.updateTask(0, iTask, AnalysisTask());
    app.deleteTask(0, iTask);
    EXPECT_FALSE(app.IsTaskReferenced(0, iTask));
  }
  EXPECT_EQ(app.fileString(true), before);
  for (const int iSec : {-1, 1}) {
    EXPECT_THROW(app.addTask(iSec), std::out_of_range);
    EXPECT_THROW(app.deleteSection(iSec), std::out_of_range);
    EXPECT_THROW(app.deleteTask(iSec, 0), std::out_of_range);
  }
}

TEST(VelmoAppSections, TasksAreEqualWhenTheirTextsAre) {
  AnalysisTask a;
  a.addCase({"west", {1.0, 0.0, 0.0}});
  AnalysisTask b = a;
  EXPECT_TRUE(VelmoApp::AreTasksEqual(a, b, true));
  b.SetName("wind");
  EXPECT_TRUE(VelmoApp::AreTasksEqual(a, b, false));
  EXPECT_FALSE(VelmoApp::AreTasksEqual(a, b, true));
  b.SetCaseInput(0, {1.0, 0.0, 1e-9});
  EXPECT_FALSE(VelmoApp::AreTasksEqual(a, b, false));
}

TEST(VelmoAppSections, NothingLeavesTheQueueWhileAPauserHolds) {
  VelmoApp app;
  AnalysisTask& task = AddColumn(*app.pData()).Task(0);
  for (int i = 0; i < 1000; ++i) task.addCase({"", {-1e5, 0.0, 0.0}});
  app.addTask(0, task);
  app.deleteTask(0, 0);
  Data::AnalysisQueue& queue = app.pData()->Queue();
  const Ranges all{{0, 0, 0, 1000}};  // however many cases: one entry
  ASSERT_EQ(queue.Ranges(), all);
  {
    const AnalysisCasePauser outer(queue);
    { const AnalysisCasePauser inner(queue); }
    EXPECT_FALSE(queue.Next());
    EXPECT_TRUE(VelmoApp(app).pData()->Queue().Next());  // a copy is not paused
    app.SolveTask(app.pData()->getSection(0), 0);
    EXPECT_EQ(queue.Ranges(), all);
    app.New();
    EXPECT_TRUE(queue.IsPaused() && queue.Ranges().empty());
    AddColumn(*app.pData());
    app.setCaseInput(0, 0, 0, {-1e5, 0.0, 0.0});
  }
  EXPECT_EQ(queue.Next(), (CaseRange{0, 0, 0, 1}));
  app.SolveTask(app.pData()->getSection(0), 0);
  EXPECT_FALSE(queue.Next());
  app.setCaseInput(0, 0, 2, {});
  EXPECT_EQ(queue.Ranges(), (Ranges{{0, 0, 1, 3}}));
}

TEST(VelmoAppSections, ASectionThatKeepsItsContentKeepsItsResults) {
  VelmoApp app;
  AddColumn(*app.pData()).Task(0).addCase({"", {-1e5, 0.0, 0.0}});
  app.SolveTask(app.pData()->getSection(0), 0);
  const auto withName = [&](const char* name, const char* depth) {
    Util::JsonDocument json;
    std::string text = R"({"name": ")" + std::string(name) + R"(", "components": [{"material":
        "concrete", "grade": "C30/37", "geometry": {"shape": "rectangle", "width": 0.3, "depth": )" +
                       depth + R"(}}], "tasks": [{"cases": [{"N": -1e5}]}]})";
    std::string error;
    EXPECT_TRUE(Util::ParseJson(text, json, error)) << error;
    app.setSection(0, json);
  };
  withName("A", "0.5");  // without bars: another section
  EXPECT_EQ(app.pData()->Queue().NumCases(), 1);
  app.SolveTask(app.pData()->getSection(0), 0);
  withName("B", "0.5");
  EXPECT_EQ(app.pData()->Queue().NumCases(), 0);
  EXPECT_TRUE(app.pData()->Section(0).Task(0).IsCaseAnalysed(0));
  withName("B", "0.6");
  EXPECT_EQ(app.pData()->Queue().NumCases(), 1);
}

}  // namespace
}  // namespace Orlix
