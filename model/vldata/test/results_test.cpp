// Which results a task has, and the records they are given in.

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <string>

#include "model/vldata/document/AnalysisResult.h"
#include "model/vldata/records/CaseSLSDetails.h"
#include "model/vldata/records/OutputOptions.h"
#include "model/vldata/response/results_stamp.h"
#include "model/vldata/test/test_documents.h"

namespace Orlix::Data::Velmo9 {
namespace {

using Components = DetailedIntegrationResult::ComponentMap;

CVelmoData SolvedDocument() {
  CVelmoData document = BlockDocument({{0.1, 0.2}, {-0.1, 0.2}});
  AnalysisTask& task = document.getSection(0).Task(0);
  task.addCase({"a", {1.0, 2.0, 3.0}});
  task.addCase({"b", {4.0, 5.0, 6.0}});
  auto results = std::make_shared<TaskResults>();
  results->stamp = ResultsStamp(document, document.Section(0), 0);
  results->action = task.Action();
  for (const TaskCase& taskCase : task.Cases()) {
    UlsCaseSolution uls;
    uls.input = uls.load = taskCase.input;
    uls.deformation = {0.001, 0.002, 0.003};
    uls.carried = true;
    results->uls.push_back(uls);
    SlsCaseSolution sls;
    sls.input = sls.uncrackedLoad = taskCase.input;
    sls.uncracked = {1e-4, 0.0, 0.0};
    sls.cracked = {2e-4, 0.0, 0.0};
    sls.zeta = 0.25;
    sls.crackingUtilisation = 1.5;
    sls.solved = true;
    results->sls.push_back(sls);
  }
  results->ulsComponents = results->uncrackedComponents =
      std::make_shared<Components>(Components{{0, {}}});
  results->crackedComponents = std::make_shared<Components>(Components{{0, {}}, {1, {}}});
  task.SetResults(results);
  return document;
}

TEST(AnalysisTask, ACaseHasResultsWhileItsInputIsTheSolvedOne) {
  CVelmoData document = SolvedDocument();
  AnalysisTask& task = document.getSection(0).Task(0);
  task.addCase();
  EXPECT_TRUE(task.IsCaseAnalysed(0));
  EXPECT_FALSE(task.IsCaseAnalysed(2));
  EXPECT_FALSE(task.IsCaseAnalysed(-1));
  const UlSResult result = task.ULSResult(1, true);
  EXPECT_EQ(result.Load().Vector(), (Vec3<double>{4.0, 5.0, 6.0}));
  EXPECT_EQ(result.Response().Deformation(), result.Deformation());
  EXPECT_TRUE(result.Response().Components().contains(0));
  EXPECT_TRUE(task.ULSResult(1, false).Response().Components().empty());
  EXPECT_TRUE(task.ULSResult(2, true).IsFail());

  task.SetCaseInput(0, {1.0, 2.0, 3.5});
  EXPECT_FALSE(task.IsCaseAnalysed(0));
  task.SetLimitStates(false, true);
  EXPECT_FALSE(task.ULSResult(0, true).IsFail());  // not asked for is not failed
  task.SetLimitStates(true, false);
  task.SetAction(LoadAction::deformation);
  EXPECT_FALSE(task.IsCaseAnalysed(1));
  EXPECT_THROW(task.SetCaseInput(-1, {}), std::out_of_range);
}

TEST(AnalysisTask, CopiesShareTheirCasesUntilOneChanges) {
  AnalysisTask task;
  task.addCase({"a", {1.0, 2.0, 3.0}});
  AnalysisTask copy = task;
  EXPECT_EQ(copy.Cases().data(), task.Cases().data());
  copy.SetCaseInput(0, {4.0, 5.0, 6.0});
  copy.addCase();
  EXPECT_EQ(task.NumCases(), 1);
  EXPECT_EQ(task.Cases()[0].input, (Vec3<double>{1.0, 2.0, 3.0}));
  EXPECT_EQ(copy.Cases()[0].input, (Vec3<double>{4.0, 5.0, 6.0}));
  const AnalysisTask moved = std::move(copy);
  EXPECT_EQ(moved.NumCases(), 2);
}

TEST(AnalysisTask, ACaseHasResultsWhenEveryLimitStateHasThem) {
  CVelmoData document = SolvedDocument();
  AnalysisTask& task = document.getSection(0).Task(0);
  auto results = std::make_shared<TaskResults>(*task.Results());
  results->sls[1].input.x += 1.0;  // solved for another load
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
  results->sls[0].crackingUtilisation = 1.0;  // the section stays whole
  task.SetResults(results);
  EXPECT_EQ(task.SLSResult(0, false, true, true).Response().cracked.Components().size(), 1U);
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
  using Document = CVelmoData;
  using Section = VelmoSection;
  const auto bar = [](Vec2<double> place, double area, const Preload& preload,
                      double diameter = 0.02) {
    return [=](Document&, Section& section) {
      auto& concrete = section.Components()[0].Concrete();
      Reinforcement reinforcement = concrete.GetReinforcement();
      reinforcement.bars[0] = CBar(place, diameter, area, reinforcement.bars[0].Grade(), preload);
      concrete.SetReinforcement(reinforcement);
    };
  };
  const auto grade = [](const char* text) {
    return [=](Document& document, Section&) { document.SetGrade(ParseText(text), true); };
  };
  const auto creep = [](const CreepSettings& settings) {
    return [=](Document&, Section& s) { s.Task(0).SetCreep(settings); };
  };
  const struct {
    const char* what;
    bool drops;
    bool isSls;
    std::function<void(Document&, Section&)> edit;
  } kCases[] = {
      {"names", false, false,
       [](Document&, Section& s) {
         s.SetName(L"x");
         s.Components()[0].SetName(L"y");
         s.Task(0).SetName("z");
       }},
      {"a case input", false, false,
       [](Document&, Section& s) {
         s.Task(0).SetCaseInput(0, {9, 9, 9});
       }},
      {"a grade not used", false, false,
       grade(R"({"type": "concrete", "name": "C12/15", "gamma": 1.2})")},
      {"a component more that is not included", false, false,
       [](Document&, Section& s) {
         s.Task(0).SetIncludedComponents({0, 1});
         s.Components().emplace_back(MatType::steel, 0, CSecGeom());
       }},
      {"negative zero", false, false, bar({0.1, 0.2}, 3.14e-4, {PreloadKind::strain, -0.0})},
      {"the place of a bar", true, false, bar({0.1, 0.21}, 3.14e-4, {})},
      {"the area of a bar", true, false, bar({0.1, 0.2}, 3e-4, {})},
      {"the preload of a bar", true, false, bar({0.1, 0.2}, 3.14e-4, {PreloadKind::strain, 1e-3})},
      {"the diameter of a bar alone", false, false, bar({0.1, 0.2}, 3.14e-4, {}, 0.025)},
      {"the same in service", true, true, bar({0.1, 0.2}, 3.14e-4, {}, 0.025)},
      {"a vertex", true, false,
       [](Document&, Section& s) {
         s.Components()[0].SetGeometry(Rectangle(0.4, 0.6, {0.0, 1e-9}));
       }},
      {"the order of components", true, false,
       [](Document&, Section& s) { std::swap(s.Components()[0], s.Components()[1]); }},
      {"the grade used", true, false,
       grade(R"({"type": "concrete", "name": "C30/37", "gamma": 1.2})")},
      {"the curve used", true, false, grade(R"({"type": "reinforcement", "name": "B500B",
                 "uls": {"tension": {"curve": "bilinear", "eps_limit": 0.02}}})")},
      {"an option", true, false, [](Document& d, Section&) { d.SetOptions({false}); }},
      {"the code", true, false,
       [](Document& d, Section&) { d.SetCodes(ParseText(R"({"annex": "UK"})")); }},
      {"an annex of the user's that differs in k_4 alone", true, true,
       [](Document& d, Section&) {
         d.SetCodes(ParseText(R"({"annex": {"format": "velmo national annex", "version": 1,
             "code": "EN 1992-1-1:2004", "name": "own", "parameters": {"k_4": 0.4}}})"));
       }},
      {"the limit states", true, false,
       [](Document&, Section& s) { s.Task(0).SetLimitStates(true, true); }},
      {"creep at ULS", false, false, creep({LoadTerm::longTerm, 2.0, 1.0})},
      {"the creep coefficient", true, true, creep({LoadTerm::shortTerm, 2.0, 1.0})},
      {"the load term", true, true, creep({LoadTerm::longTerm, CreepSettings{}.creepCoefficient})},
      {"phi factors", true, false,
       [](Document&, Section& s) {
         s.Task(0).SetPhiFactors(CustomPhi{0.002, 0.005, 0.65, 0.9});
       }},
      {"the confinement", true, false,
       [](Document&, Section& s) { s.SetConfinement(Confinement::spiral); }},
      {"one component less", true, false,
       [](Document&, Section& s) { s.Task(0).SetIncludedComponents({1}); }},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    CVelmoData document = BlockDocument({{0.1, 0.2}});
    VelmoSection& section = document.getSection(0);
    section.Components().push_back(section.Components()[0]);
    section.Components()[1].SetGeometry(Rectangle(0.1, 0.1));
    section.Task(0).addCase();
    section.Task(0).SetLimitStates(!c.isSls, c.isSls);
    auto results = std::make_shared<TaskResults>();
    results->stamp = ResultsStamp(document, section, 0);
    section.Task(0).SetResults(results);
    c.edit(document, section);
    EXPECT_EQ(ProblemText(document), "");
    DropOutdatedResults(document, section);
    EXPECT_EQ(section.Task(0).Results() == nullptr, c.drops);
  }
}

TEST(Records, StiffnessIsNotCalculatedForTinyDivisors) {
  const VelmoLoad load(Vec3<double>{2.0, 3.0, 0.0});
  const Stiffness stiffness = load / Deformation(Vec3<double>{-0.5, 0.99e-15, 0.0});
  Util::JsonDocument json;
  EXPECT_EQ(Util::PrettyJson(stiffness.toJson(json.GetAllocator())),
            "{\n    \"EA\": -4.0,\n    \"EIyy\": \"-\",\n    \"EIzz\": \"-\"\n}");
}

TEST(AnalysisResult, InterpolatesBetweenTheStatesByAFiniteFactor) {
  const auto stateAt = [](double eps) {
    return DetailedIntegrationResult(Deformation({eps, 0, 0}), VelmoLoad(),
                                     std::make_shared<Components>());
  };
  SlsResponse response{stateAt(1.0), stateAt(3.0), 0.25};
  EXPECT_DOUBLE_EQ(AnalysisResult::GetSlsDeformation(response).interpolated.Vector().x, 1.5);
  response.zeta = std::numeric_limits<double>::infinity();
  EXPECT_DOUBLE_EQ(AnalysisResult::GetSlsDeformation(response).interpolated.Vector().x, 3.0);
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
