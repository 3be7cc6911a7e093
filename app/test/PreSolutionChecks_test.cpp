#include "app/PreSolutionChecks.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "app/VelmoApp.h"
#include "app/test/Column.h"

namespace Orlix {
namespace {

using Data::CSecComp;
using Data::CSecGeom;
using Data::CVelmoData;
using Data::Velmo9::AnalysisTask;
using Data::Velmo9::CustomPhi;
using Data::Velmo9::PreloadReference;
using Messages = std::vector<std::string>;

// A document with a section of four squares side by side, all well, and an FRP without curves.
CVelmoData Squares() {
  CVelmoData document;
  document.getMaterials()->Add(Data::Design::CMat(MatType::FRP));
  Data::Velmo9::VelmoSection& section = document.AddSection();
  for (int i = 0; i < 4; ++i) {
    section.Components().emplace_back(
        MatType::concrete, 0,
        CSecGeom(Data::ShapeKind::rectangle, {.width = 1.0, .depth = 1.0}, {1.0 * i, 0.0}));
  }
  return document;
}

using Change = void (*)(CSecComp&);
void Leave(CSecComp&) {}
void TakeType(CSecComp& c) { c.SetMaterial(MatType::none, -1); }
void TakeGrade(CSecComp& c) { c.SetMaterial(MatType::concrete, 99); }
void TakeCurves(CSecComp& c) { c.SetMaterial(MatType::FRP, 0); }
void TakeShape(CSecComp& c) { c.SetGeometry(CSecGeom()); }
void GiveBars(CSecComp& c) {
  Data::Reinforcement reinforcement;
  reinforcement.descriptions.resize(1);
  reinforcement.descriptions[0].text = L"4B20 nowhere";
  c.Concrete().SetReinforcement(reinforcement);
}

TEST(PreSolutionChecks, EveryProblemIsOneMessage) {
  const struct {
    Change changes[4];  // one for each component
    Messages want;
  } kCases[] = {
      {{Leave, Leave, Leave, Leave}, {}},
      {{TakeType, TakeGrade, TakeCurves, TakeShape},
       {"Component 1 has no material type.", "Component 2 does not have a valid material grade.",
        "Component 3 does not have valid material curves.", "Component 4 is invalid."}},
      {{TakeShape, TakeType, TakeShape, TakeType},
       {"Components 2 and 4 have no material types.", "Components 1 and 3 are invalid."}},
      {{GiveBars, Leave, TakeShape, GiveBars},
       {"Component 3 is invalid.",
        "Rebar definition is invalid. Please revise rebar grade and definition."}},
      {{TakeGrade, TakeGrade, TakeGrade, Leave},
       {"Components 1, 2 and 3 do not have valid material grades."}},
      {{Leave, Leave, TakeCurves, TakeCurves},
       {"Components 3 and 4 do not have valid material curves."}},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(testing::PrintToString(c.want));
    CVelmoData document = Squares();
    auto component = document.getSection(0).Components().begin();
    for (const Change change : c.changes) change(*component++);
    Messages messages;
    EXPECT_EQ(PreSolutionChecks(document).CheckSection(messages, 0), c.want.empty());
    EXPECT_EQ(messages, c.want);
    messages.clear();
    EXPECT_EQ(PreSolutionChecks(document).CheckTask(messages, 0, 0), c.want.empty());
    EXPECT_EQ(messages, c.want);  // what the compile step says of the same fault is left out
  }
  Messages messages = {"from before"};
  EXPECT_FALSE(PreSolutionChecks(Squares()).CheckSection(messages, 0));
  EXPECT_EQ(messages.size(), 1U);
}

TEST(PreSolutionChecks, NumbersThatAreNotThere) {
  CVelmoData document = Squares();
  document.getSection(0).Task(0).SetIncludedComponents({});
  const struct {
    int iSec;
    int iTask;
    Messages want;
  } kCases[] = {
      {-1, 0, {"0 is not a valid section number."}},
      {std::numeric_limits<int>::max(), 7, {"2147483648 is not a valid section number."}},
      {0, -1, {"Error from task 0: There are no active components to solve"}},
      {0, 0, {"Error from task 1: There are no active components to solve"}},
      {0,
       1,
       {"Error from task 2: 2 is not a valid task number for Section 1.",
        "Error from task 2: There are no active components to solve"}},
  };
  for (const auto& c : kCases) {
    Messages messages;
    EXPECT_FALSE(PreSolutionChecks(document).CheckTask(messages, c.iSec, c.iTask));
    EXPECT_EQ(messages, c.want);
  }
}

TEST(PreSolutionChecks, PhiFactorsOfATaskFollowTheirRules) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const char* const kStrain = "strain limit should not be negative";
  const char* const kFactor = "phi factors should not be negative";
  const char* const kStrains =
      "compression controlled strain limit should not be greater than tension controlled strain "
      "limit";
  const char* const kFactors =
      "compression controlled phi should not be greater than tension controlled phi";
  const char* const kOne = "phi factors should not be greater than 1";
  const struct {
    CustomPhi phi;
    Messages want;  // without what they begin with
  } kCases[] = {
      {{0.0, 0.0, 0.0, 0.0}, {}},
      {{0.002, 0.005, 1.0, 1.0}, {}},
      {{-1e-9, 0.005, 0.6, 0.9}, {kStrain}},
      {{0.002, -1e-9, 0.6, 0.9}, {kStrain, kStrains}},
      {{0.002, 0.005, -0.1, -0.2}, {kFactor, kFactors}},
      {{0.006, 0.005, 1.1, 0.9}, {kStrains, kFactors, kOne}},
      {{0.002, 0.005, 0.6, 1.1}, {kOne}},
      {{nan, 0.005, 0.6, 0.9}, {kStrain, kStrains}},
  };
  VelmoApp app;
  *app.pData() = Squares();
  for (const auto& c : kCases) {
    app.pData()->getSection(0).Task(0).SetPhiFactors(c.phi);
    app.pData()->SetCodes(OrlixString<wchar_t>(L"EN 1992-1-1:2004"));
    Messages messages;
    app.CheckCustomPhiFactors(0, 0, messages);
    app.pData()->SetCodes(OrlixString<wchar_t>(L"ACI 318-19"));
    app.CheckCustomPhiFactors(0, -1, messages);
    app.CheckCustomPhiFactors(1, 0, messages);
    EXPECT_TRUE(messages.empty());
    app.CheckCustomPhiFactors(0, 0, messages);
    Messages want;
    for (const std::string& text : c.want) want.push_back("Error from task 1: " + text);
    EXPECT_EQ(messages, want);
    messages.clear();
    app.preSolutionChecksPassed(messages, 0, 0);
    EXPECT_EQ(messages, want);  // the compile step says nothing else
  }
}

// Task 1 has the first two squares and is solved for its second case, task 3 has the first three
// and is preloaded by it.
TEST(PreSolutionChecks, TheFirstFaultOfAComponentPreloadIsTold) {
  const auto from = [](int task, int iCase) {
    return [=](CVelmoData&, AnalysisTask&, AnalysisTask& t) {
      t.SetPreloadFrom(PreloadReference{task, iCase});
    };
  };
  const char* const kUnsolved =
      "Case 2 of task 1 is not valid for component preload, as it doesn't have result";
  const struct {
    std::function<void(CVelmoData&, AnalysisTask&, AnalysisTask&)> edit;
    std::string want;
  } kCases[] = {
      {from(1, 2), ""},
      {from(0, 0), "Task 0 is not a valid task for component preload"},
      {from(3, 1),
       "Task 3 is not a valid task. Only the tasks priors to the current task are valid for "
       "component preload"},
      {[](CVelmoData&, AnalysisTask&, AnalysisTask& t) {
         t.SetIncludedComponents({2, 3});
       },
       "Task 3 is not a valid because it doesn't share active components with the reference task 1 "
       "for component preload"},
      {from(1, -2), "Case -2 is not a valid case number for component preload"},
      {from(1, 3), "Case 3 is not available from the given task for component preload"},
      {[](CVelmoData&, AnalysisTask& r, AnalysisTask&) { r.DropResults(); }, kUnsolved},
      {[](CVelmoData&, AnalysisTask& r, AnalysisTask&) {
         r.SetCaseInput(1, {1.0, 0.0, 0.0});
       },
       kUnsolved},
      {[](CVelmoData& d, AnalysisTask&, AnalysisTask&) {
         d.getSection(0).Components()[0].SetMaterial(MatType::concrete, 1);
       },
       kUnsolved},
      {[](CVelmoData&, AnalysisTask&, AnalysisTask& t) {
         t.SetCreep({Data::Velmo9::LoadTerm::longTerm, 0.0});
       },
       "Different load term or creep coefficients are not allowed between the current (Task 3) and "
       "the referenced task (Task 1)"},
      {[](CVelmoData& d, AnalysisTask&, AnalysisTask&) {
         d.getSection(0).Components()[2].SetGeometry(
             CSecGeom(Data::ShapeKind::rectangle, {.width = 1.0, .depth = 1.0}, {1.9, 0.0}));
       },
       "Additional enabled component(s) from the task 3 overlaps with enabled components of the "
       "reference task 1"},
      {[](CVelmoData&, AnalysisTask&, AnalysisTask& t) { t.SetLimitStates(true, true); },
       "Task 3 is preloaded by task 1, which does not compute the serviceability limit state."},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.want);
    VelmoApp app;
    *app.pData() = Squares();
    Data::Velmo9::VelmoSection& section = app.pData()->getSection(0);
    section.AddTask();
    section.AddTask();
    AnalysisTask& reference = section.Task(0);
    reference.SetIncludedComponents({0, 1});
    reference.addCase();
    reference.addCase({"", {-1e5, 0.0, 0.0}});
    section.Task(2).SetIncludedComponents({0, 1, 2});
    section.Task(2).SetPreloadFrom(PreloadReference{1, 2});
    app.SolveTask(section, 0);
    c.edit(*app.pData(), reference, section.Task(2));
    Messages messages;
    EXPECT_EQ(app.preSolutionChecksPassed(messages, 0, 2), c.want.empty());
    const bool isOfCompileStep = c.want.starts_with("Task 3 is preloaded");
    const std::string want = isOfCompileStep ? c.want : "Error from task 3: " + c.want;
    EXPECT_EQ(messages, c.want.empty() ? Messages{} : Messages{want});
  }
}

TEST(PreSolutionChecks, WhatOnlyTheCompileStepFindsIsReported) {
  CVelmoData document;
  CSecComp& column = AddColumn(document).Components()[0];
  Data::Reinforcement bars = column.Concrete().GetReinforcement();
  bars.bars[1].SetGrade(-1);
  column.Concrete().SetReinforcement(bars);
  Messages messages;
  EXPECT_TRUE(PreSolutionChecks(document).CheckSection(messages, 0));
  for (const bool uls : {false, true}) {
    for (const bool sls : {false, true}) {
      document.getSection(0).Task(0).SetLimitStates(uls, sls);
      messages.clear();
      EXPECT_EQ(PreSolutionChecks(document).CheckTask(messages, 0, 0), !uls && !sls);
      EXPECT_EQ(messages.size(), uls || sls ? 1U : 0U);  // once, though it is one of both states
    }
  }
}

TEST(StringifyVectorInts, NamesNothingOfNoneAndKeepsTheOrder) {
  EXPECT_EQ(VelmoApp::StringifyVectorInts({}), "");
  EXPECT_EQ(VelmoApp::StringifyVectorInts({5, 2, 9, 1}), "5, 2, 9 and 1");
}

}  // namespace
}  // namespace Orlix
