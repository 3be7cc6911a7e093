// Which results a task has, and the records they are given in.

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <set>
#include <string>

#include "model/vldata/records/CaseSLSDetails.h"
#include "model/vldata/records/OutputOptions.h"
#include "model/vldata/response/results_stamp.h"
#include "model/vldata/test/test_documents.h"

namespace Orlix::Data::Velmo9 {
namespace {

void GiveResults(const CVelmoData& document, VelmoSection& section) {
  auto results = std::make_shared<TaskResults>();
  results->stamp = ResultsStamp(document, section, 0);
  results->action = section.Task(0).Action();
  for (const TaskCase& taskCase : section.Task(0).Cases()) {
    UlsCaseSolution solution;
    solution.input = solution.load = taskCase.input;
    solution.deformation = {0.001, 0.002, 0.003};
    solution.carried = true;
    results->uls.push_back(solution);
  }
  results->ulsComponents = std::make_shared<DetailedIntegrationResult::ComponentMap>(
      DetailedIntegrationResult::ComponentMap{{0, {}}});
  section.Task(0).SetResults(results);
}

CVelmoData SolvedDocument() {
  CVelmoData document = BlockDocument({{0.1, 0.2}, {-0.1, 0.2}});
  AnalysisTask& task = document.getSection(0).Task(0);
  task.addCase({"a", {1.0, 2.0, 3.0}});
  task.addCase({"b", {4.0, 5.0, 6.0}});
  GiveResults(document, document.getSection(0));
  return document;
}

TEST(AnalysisTask, ACaseHasResultsWhileItsInputIsTheSolvedOne) {
  CVelmoData document = SolvedDocument();
  AnalysisTask& task = document.getSection(0).Task(0);
  task.addCase();
  EXPECT_TRUE(task.IsCaseAnalysed(0));
  EXPECT_FALSE(task.IsCaseAnalysed(2));
  EXPECT_FALSE(task.IsCaseAnalysed(-1));
  EXPECT_FALSE(task.IsCaseAnalysed(99));
  const UlSResult result = task.ULSResult(1, true);
  EXPECT_FALSE(result.IsFail());
  EXPECT_EQ(result.Load().Vector(), (Vec3<double>{4.0, 5.0, 6.0}));
  EXPECT_EQ(result.Response().Deformation(), result.Deformation());
  EXPECT_TRUE(result.Response().Components().contains(0));
  EXPECT_TRUE(task.ULSResult(1, false).Response().Components().empty());
  const UlSResult unsolved = task.ULSResult(2, true);
  EXPECT_TRUE(unsolved.IsFail());
  EXPECT_TRUE(std::isinf(unsolved.LoadUtilisation()));

  task.SetCaseInput(0, {1.0, 2.0, 3.5});
  EXPECT_FALSE(task.IsCaseAnalysed(0));
  EXPECT_TRUE(task.IsCaseAnalysed(1));
  task.SetCaseInput(0, {1.0, 2.0, 3.0});
  EXPECT_TRUE(task.IsCaseAnalysed(0));
  task.SetLimitStates(false, true);
  EXPECT_FALSE(task.ULSResult(0, true).IsFail());  // not asked for is not failed
  task.SetLimitStates(true, false);
  task.SetAction(LoadAction::deformation);
  EXPECT_FALSE(task.IsCaseAnalysed(1));
  task.SetAction(LoadAction::load);
  task.SetLimitStates(false, true);
  EXPECT_FALSE(task.IsCaseAnalysed(1));
  EXPECT_THROW(task.SetCaseInput(3, {}), std::out_of_range);
  EXPECT_THROW(task.SetCaseInput(-1, {}), std::out_of_range);
}

TEST(AnalysisTask, ACaseHasResultsWhenEveryLimitStateHasThem) {
  CVelmoData document = SolvedDocument();
  AnalysisTask& task = document.getSection(0).Task(0);
  auto results = std::make_shared<TaskResults>(*task.Results());
  for (const TaskCase& taskCase : task.Cases()) {
    SlsCaseSolution solution;
    solution.input = solution.uncrackedLoad = taskCase.input;
    solution.uncracked = {1e-4, 0.0, 0.0};
    solution.cracked = {2e-4, 0.0, 0.0};
    solution.zeta = 0.25;
    solution.solved = true;
    results->sls.push_back(solution);
  }
  results->sls[1].input.x += 1.0;  // solved for another load
  results->uncrackedComponents = std::make_shared<DetailedIntegrationResult::ComponentMap>(
      DetailedIntegrationResult::ComponentMap{{0, {}}});
  results->crackedComponents = std::make_shared<DetailedIntegrationResult::ComponentMap>(
      DetailedIntegrationResult::ComponentMap{{0, {}}, {1, {}}});
  task.SetResults(results);
  const struct {
    bool uls, sls, first, second;
  } kCases[] = {{true, false, true, true},
                {false, true, true, false},
                {true, true, true, false},
                {false, false, false, false}};
  for (const auto& c : kCases) {
    task.SetLimitStates(c.uls, c.sls);
    EXPECT_EQ(task.IsCaseAnalysed(0), c.first);
    EXPECT_EQ(task.IsCaseAnalysed(1), c.second);
    EXPECT_EQ(task.SLSResult(1, false, true, true).IsFail(), c.sls);
  }
  task.SetLimitStates(false, true);
  const SLSResult both = task.SLSResult(0, false, true, true);
  EXPECT_EQ(both.Response().uncracked.Deformation().Vector().x, 1e-4);
  EXPECT_EQ(both.Response().cracked.Deformation().Vector().x, 2e-4);
  EXPECT_EQ(both.Response().cracked.Components().size(), 2U);
  EXPECT_EQ(both.Response().zeta, 0.25);
  const SLSResult one = task.SLSResult(0, false, false, true);
  EXPECT_EQ(one.Response().cracked.Deformation(), one.Response().uncracked.Deformation());
  EXPECT_EQ(one.Response().cracked.Load(), one.Response().uncracked.Load());
  EXPECT_EQ(one.Response().cracked.Components().size(), 1U);
  const SLSResult bare = task.SLSResult(0, false, true, false);
  EXPECT_TRUE(bare.Response().uncracked.Components().empty());
  EXPECT_TRUE(bare.Response().cracked.Components().empty());
}

TEST(AnalysisTask, IsWrittenWithTheCasesAndNamesAskedFor) {
  AnalysisTask task;
  task.SetName("t");
  task.SetIncludedComponents({0, 4});
  task.addCase({"a", {1.0, 2.0, 3.0}});
  task.addCase({"b", {4.0, 5.0, std::numeric_limits<double>::infinity()}});
  Util::JsonDocument json;
  const auto text = [&](bool cases, bool names, unsigned long long first) {
    std::string pretty = Util::PrettyJson(task.toJson(json.GetAllocator(), cases, names, first));
    std::erase_if(pretty, [](char c) { return c == ' ' || c == '\n'; });
    return pretty;
  };
  const std::string head = R"("uls":true,"sls":false,"action":"load","components":[1,5])";
  EXPECT_EQ(text(false, true, 0), R"({"name":"t",)" + head + "}");
  EXPECT_EQ(text(true, false, 1), "{" + head + R"(,"cases":[{"N":4.0,"Myy":5.0,"Mzz":"-"}]})");
  EXPECT_EQ(text(true, false, 7), "{" + head + R"(,"cases":[]})");
}

TEST(ResultsStamp, ChangesWithWhatDecidesTheResultsAndWithNothingElse) {
  const auto firstBar = [](VelmoSection& section, const std::function<CBar(const CBar&)>& edit) {
    Reinforcement reinforcement = section.Components()[0].Concrete().GetReinforcement();
    reinforcement.bars[0] = edit(reinforcement.bars[0]);
    section.Components()[0].Concrete().SetReinforcement(reinforcement);
  };
  const auto grade = [](CVelmoData& document, const char* text) {
    document.SetGrade(ParseText(text), true);
    EXPECT_EQ(ProblemText(document), "");
  };
  const struct {
    const char* what;
    std::function<void(CVelmoData&, VelmoSection&)> edit;
    bool drops;
  } kCases[] = {
      {"names and titles",
       [](CVelmoData& document, VelmoSection& section) {
         section.SetName(L"x");
         section.Components()[0].SetName(L"y");
         section.Task(0).SetName("z");
         CTitles titles;
         titles.part = "t";
         document.SetTitle(titles);
       },
       false},
      {"a case input",
       [](CVelmoData&, VelmoSection& s) {
         s.Task(0).SetCaseInput(0, {9, 9, 9});
       },
       false},
      {"a grade not used",
       [&](CVelmoData& d, VelmoSection&) {
         grade(d, R"({"type": "concrete", "name": "C12/15", "gamma": 1.2})");
       },
       false},
      {"all components by number",
       [](CVelmoData&, VelmoSection& s) { s.Task(0).SetIncludedComponents({0}); }, false},
      {"a component that is not included",
       [](CVelmoData&, VelmoSection& s) {
         s.Task(0).SetIncludedComponents({0});
         s.Components().emplace_back(MatType::steel, 0, CSecGeom());
       },
       false},
      {"negative zero",
       [&](CVelmoData&, VelmoSection& s) {
         firstBar(s, [](CBar b) {
           b.SetPreload({PreloadKind::strain, -0.0});
           return b;
         });
       },
       false},
      {"the place of a bar",
       [&](CVelmoData&, VelmoSection& s) {
         firstBar(s, [](const CBar& b) { return CBar({0.1, 0.21}, 0.02, b.Area(), b.Grade()); });
       },
       true},
      {"a vertex",
       [](CVelmoData&, VelmoSection& s) {
         const CSecGeom g = s.Components()[0].Geometry();
         s.Components()[0].SetGeometry(CSecGeom(g.Kind(), g.Dimensions(), {0.0, 1e-9}));
       },
       true},
      {"the area of a bar",
       [&](CVelmoData&, VelmoSection& s) {
         firstBar(s, [](const CBar& b) { return CBar(b.Position(), 0.02, 3e-4, b.Grade()); });
       },
       true},
      {"the preload of a bar",
       [&](CVelmoData&, VelmoSection& s) {
         firstBar(s, [](CBar b) {
           b.SetPreload({PreloadKind::strain, 1e-3});
           return b;
         });
       },
       true},
      {"the grade used",
       [&](CVelmoData& d, VelmoSection&) {
         grade(d, R"({"type": "concrete", "name": "C30/37", "gamma": 1.2})");
       },
       true},
      {"the curve used",
       [&](CVelmoData& d, VelmoSection&) {
         grade(d, R"({"type": "reinforcement", "name": "B500B",
                      "uls": {"tension": {"curve": "bilinear", "eps_limit": 0.02}}})");
       },
       true},
      {"an option", [](CVelmoData& d, VelmoSection&) { d.SetOptions({false}); }, true},
      {"the code",
       [](CVelmoData& d, VelmoSection&) { d.SetCodes(ParseText(R"({"annex": "UK"})")); }, true},
      {"the limit states",
       [](CVelmoData&, VelmoSection& s) { s.Task(0).SetLimitStates(true, true); }, true},
      {"creep at the ultimate limit state",
       [](CVelmoData&, VelmoSection& s) {
         s.Task(0).SetCreep({LoadTerm::longTerm, 2.0, 1.0});
       },
       false},
      {"phi factors",
       [](CVelmoData&, VelmoSection& s) {
         s.Task(0).SetPhiFactors(CustomPhi{0.002, 0.005, 0.65, 0.9});
       },
       true},
      {"the confinement",
       [](CVelmoData&, VelmoSection& s) { s.SetConfinement(Confinement::spiral); }, true},
      {"one component less",
       [](CVelmoData&, VelmoSection& s) { s.Task(0).SetIncludedComponents({}); }, true},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    CVelmoData document = SolvedDocument();
    VelmoSection& section = document.getSection(0);
    c.edit(document, section);
    DropOutdatedResults(document, section);
    EXPECT_EQ(section.Task(0).Results() == nullptr, c.drops);
  }
}

TEST(ResultsStamp, ChangesWithCreepAndTheOrderOfComponents) {
  CVelmoData document = SolvedDocument();
  VelmoSection& section = document.getSection(0);
  section.Components().push_back(section.Components()[0]);
  section.Components()[1].SetGeometry(CSecGeom({{{{0.0, 0.0}, {0.1, 0.0}, {0.0, 0.1}}, {}}}));
  AnalysisTask& task = section.Task(0);
  task.SetLimitStates(false, true);
  std::set<std::uint64_t> stamps = {ResultsStamp(document, section, 0)};
  for (const CreepSettings& creep :
       {CreepSettings{LoadTerm::shortTerm, 2.0, 1.0}, CreepSettings{LoadTerm::longTerm, 2.0, 1.0},
        CreepSettings{LoadTerm::intermediate, 2.0, 0.5}}) {
    task.SetCreep(creep);
    EXPECT_TRUE(stamps.insert(ResultsStamp(document, section, 0)).second);
  }
  std::swap(section.Components()[0], section.Components()[1]);
  EXPECT_TRUE(stamps.insert(ResultsStamp(document, section, 0)).second);
}

TEST(Records, StiffnessIsNotCalculatedForTinyDivisors) {
  const VelmoLoad load(Vec3<double>{2.0, 3.0, 0.0});
  EXPECT_EQ((load / Deformation(Vec3<double>{-1e-15, 1.0, 1.0})).axial, 2.0 / -1e-15);
  const Stiffness stiffness = load / Deformation(Vec3<double>{-0.5, 0.99e-15, 0.0});
  Util::JsonDocument json;
  EXPECT_EQ(Util::PrettyJson(stiffness.toJson(json.GetAllocator())),
            "{\n    \"EA\": -4.0,\n    \"EIyy\": \"-\",\n    \"EIzz\": \"-\"\n}");
}

TEST(Records, SummariesHoldExtremesOfTheirOwnSamples) {
  SlsStressStrainSummary summary;
  EXPECT_FALSE(summary.HasConcrete());
  summary.cracked.emplace();
  summary.cracked->UpdateConcrete(-5.0, -0.2);
  summary.cracked->UpdateConcrete(-7.0, -0.1);
  EXPECT_TRUE(summary.HasConcrete());
  EXPECT_FALSE(summary.HasRebar());
  const StressStrain extremes = summary.cracked->Concrete();
  EXPECT_EQ(extremes.maxStress, -5.0);  // no zero slips in
  EXPECT_EQ(extremes.minStress, -7.0);
  EXPECT_EQ(extremes.maxStrain, -0.1);
  EXPECT_EQ(extremes.minStrain, -0.2);
  Util::JsonDocument json;
  const Util::JsonValue value = summary.ToJson(json.GetAllocator());
  EXPECT_TRUE(value["uncracked"].ObjectEmpty());
  EXPECT_EQ(value["cracked"]["concrete"]["minStress"].GetDouble(), -7.0);
  EXPECT_FALSE(value["cracked"].HasMember("rebar"));
}

TEST(Records, OptionsAreReadFromFlagsAndObjects) {
  const OutputOptions options(
      ParseText(R"({"uls": true, "sls": {"stiffness": true, "loads": 1, "crackWidth": false}})"));
  EXPECT_TRUE(options.uls.pointResults && options.uls.loadAtFailure);
  EXPECT_TRUE(options.sls.stiffness);
  EXPECT_FALSE(options.sls.loads || options.sls.crackWidth || options.sls.pointResults);
  EXPECT_TRUE(options.sls.IsOutputWanted());
  for (const char* text : {"{}", "[]", "null", R"({"uls": 1, "sls": [true]})"}) {
    const OutputOptions none(ParseText(text));
    EXPECT_FALSE(none.uls.IsOutputWanted() || none.sls.IsOutputWanted()) << text;
  }
}

}  // namespace
}  // namespace Orlix::Data::Velmo9
