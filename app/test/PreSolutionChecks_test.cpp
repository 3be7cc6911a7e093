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
using Messages = std::vector<std::string>;

// A document with a section of four squares side by side, all well.
CVelmoData Squares() {
  CVelmoData document;
  Data::Velmo9::VelmoSection& section = document.AddSection();
  for (int i = 0; i < 4; ++i) {
    section.Components().emplace_back(
        MatType::concrete, 0,
        CSecGeom(Data::ShapeKind::rectangle, {.width = 1.0, .depth = 1.0}, {1.0 * i, 0.0}));
  }
  return document;
}

TEST(PreSolutionChecks, EveryProblemIsOneMessage) {
  using Change = std::function<void(CVelmoData&, std::vector<CSecComp>&)>;
  const struct {
    const char* what;
    Change change;
    Messages want;
  } kCases[] = {
      {"all well", [](CVelmoData&, auto&) {}, {}},
      {"no type",
       [](CVelmoData&, auto& c) { c[2].SetMaterial(MatType::none, -1); },
       {"Component 3 has no material type."}},
      {"no types",
       [](CVelmoData&, auto& c) {
         c[1].SetMaterial(MatType::none, -1);
         c[3].SetMaterial(MatType::none, -1);
       },
       {"Components 2 and 4 have no material types."}},
      {"no grade",
       [](CVelmoData&, auto& c) { c[0].SetMaterial(MatType::FRP, 0); },
       {"Component 1 does not have a valid material grade."}},
      {"no grades",
       [](CVelmoData&, auto& c) {
         for (int i = 0; i < 3; ++i) c[static_cast<std::size_t>(i)].SetMaterial(MatType::FRP, -1);
       },
       {"Components 1, 2 and 3 do not have valid material grades."}},
      {"no curve",
       [](CVelmoData& d, auto& c) {
         c[3].SetMaterial(MatType::FRP, d.getMaterials()->Add(Data::Design::CMat(MatType::FRP)));
       },
       {"Component 4 does not have valid material curves."}},
      {"no polygons",
       [](CVelmoData&, auto& c) { c[0].SetGeometry(CSecGeom()); },
       {"Component 1 is invalid."}},
      {"one of each",
       [](CVelmoData&, auto& c) {
         c[0].SetMaterial(MatType::none, -1);
         c[1].SetMaterial(MatType::concrete, 99);
         c[2].SetGeometry(CSecGeom());
         c[3].SetGeometry(CSecGeom());
       },
       {"Component 1 has no material type.", "Component 2 does not have a valid material grade.",
        "Components 3 and 4 are invalid."}},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    CVelmoData document = Squares();
    c.change(document, document.getSection(0).Components());
    Messages messages;
    EXPECT_EQ(PreSolutionChecks(document).CheckSection(messages, 0), c.want.empty());
    EXPECT_EQ(messages, c.want);
    messages.clear();
    EXPECT_EQ(PreSolutionChecks(document).CheckTask(messages, 0, 0), c.want.empty());
    EXPECT_EQ(messages, c.want);  // what the compile step says of the same fault is left out
  }
}

TEST(PreSolutionChecks, NumbersThatAreNotThere) {
  CVelmoData document = Squares();
  document.getSection(0).Task(0).SetIncludedComponents({});
  const Messages noActive = {"Error from task 1: There are no active components to solve"};
  const struct {
    int iSec;
    int iTask;
    Messages want;
  } kCases[] = {
      {1, 0, {"2 is not a valid section number."}},
      {-1, 0, {"0 is not a valid section number."}},
      {std::numeric_limits<int>::max(), 7, {"2147483648 is not a valid section number."}},
      {0, 0, noActive},
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

TEST(PreSolutionChecks, MessagesThatAreThereMakeTheResultFalse) {
  const CVelmoData document = Squares();
  Messages messages = {"from before"};
  EXPECT_FALSE(PreSolutionChecks(document).CheckSection(messages, 0));
  EXPECT_EQ(messages.size(), 1U);
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

TEST(StringifyVectorInts, PutsAndBeforeTheLast) {
  EXPECT_EQ(VelmoApp::StringifyVectorInts({}), "");
  EXPECT_EQ(VelmoApp::StringifyVectorInts({3}), "3");
  EXPECT_EQ(VelmoApp::StringifyVectorInts({2, 5}), "2 and 5");
  EXPECT_EQ(VelmoApp::StringifyVectorInts({5, 2, 9, 1}), "5, 2, 9 and 1");
}

}  // namespace
}  // namespace Orlix
