#include "app/PreSolutionChecks.h"

#include <gtest/gtest.h>

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
