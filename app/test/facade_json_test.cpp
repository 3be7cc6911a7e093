// Runs every example of docs/facade-json.md.

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <cmath>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "app/VelmoApp.h"
#include "app/test/Column.h"
#include "model/oxutil/json.h"

namespace Orlix {
namespace {

using Data::Velmo9::AnalysisTask;
using Util::JsonValue;

// The JSON blocks of the page by what stands behind "```json ".
std::map<std::string, std::string> Examples() {
  std::ifstream page("docs/facade-json.md");
  std::map<std::string, std::string> examples;
  const std::string fence = "```json ";
  std::string* text = nullptr;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with(fence)) {
      text = &examples[line.substr(fence.size())];
    } else if (line.starts_with("```")) {
      text = nullptr;
    } else if (text != nullptr) {
      *text += line + '\n';
    }
  }
  return examples;
}

void Parse(const std::string& text, Util::JsonDocument& json) {
  std::string error;
  ASSERT_TRUE(Util::ParseJson(text, json, error)) << error;
}

// Same members in the same order, same texts, numbers alike to six digits and zeros to 1e-9: the
// page is no proof of the solver, and its last digits may differ between processors.
void ExpectAlike(const JsonValue& got, const JsonValue& want, const std::string& path) {
  SCOPED_TRACE(path);
  ASSERT_EQ(got.GetType(), want.GetType());
  if (want.IsObject()) {
    ASSERT_EQ(got.MemberCount(), want.MemberCount());
    auto member = got.MemberBegin();
    for (const auto& wanted : want.GetObject()) {
      const std::string name = wanted.name.GetString();
      ASSERT_EQ(std::string(member->name.GetString()), name);
      ExpectAlike(member->value, wanted.value, path + "." + name);
      ++member;
    }
  } else if (want.IsArray()) {
    ASSERT_EQ(got.Size(), want.Size());
    for (rapidjson::SizeType i = 0; i < want.Size(); ++i) {
      ExpectAlike(got[i], want[i], path + "[" + std::to_string(i) + "]");
    }
  } else if (want.IsDouble()) {
    EXPECT_NEAR(got.GetDouble(), want.GetDouble(), 1e-6 * std::abs(want.GetDouble()) + 1e-9);
  } else {
    EXPECT_EQ(got, want);
  }
}

void CheckTitles(const Util::JsonDocument& json) {
  VelmoApp app;
  app.setTitles(json);
  const Data::CTitles& titles = app.pData()->Titles();
  EXPECT_EQ(titles.project, "Harbour bridge");
  EXPECT_EQ(titles.part, "Pier 3");
  EXPECT_EQ(titles.description, "Column head");
  EXPECT_EQ(titles.jobNumber, "1204");
  EXPECT_EQ(titles.initials, "AB");
}

void CheckUnits(const Util::JsonDocument& json) {
  VelmoApp app;
  app.setUnits(json);
  const Data::CUnit& units = app.pData()->Units();
  EXPECT_EQ(units.UnitString(Dimension::force), L"kip");
  EXPECT_EQ(units.UnitString(Dimension::length), L"ft");
  EXPECT_EQ(units.UnitString(Dimension::sectionDimensions), L"in");
  EXPECT_EQ(units.UnitString(Dimension::stress), L"ksi");
  EXPECT_EQ(units.UnitString(Dimension::mass), L"lb");
  EXPECT_EQ(units.UnitString(Dimension::strain), L"ε");
  EXPECT_EQ(units.UnitString(Dimension::temperature), L"°F");
}

void CheckCodes(const Util::JsonDocument& json) {
  VelmoApp app;
  app.setCodes(json);
  EXPECT_TRUE(app.pData()->ReadProblems().empty());
  EXPECT_EQ(app.pData()->CodePointer()->country, Data::Design::CCountry::Code::unitedKingdom);
}

void CheckGrade(const Util::JsonDocument& json) {
  VelmoApp app;
  const Data::Materials& materials = *app.pData()->getMaterials();
  const int grade = materials.Find(MatType::concrete, L"C30/37");
  app.setGrade(json);
  EXPECT_TRUE(app.pData()->ReadProblems().empty());
  EXPECT_DOUBLE_EQ(materials.Grade(MatType::concrete, grade).DesignStrength(), 25e6);
  app.resetGrade(MatType::concrete, grade);
  EXPECT_DOUBLE_EQ(materials.Grade(MatType::concrete, grade).DesignStrength(), 20e6);
}

void CheckSection(const Util::JsonDocument& json) {
  VelmoApp app;
  AddColumn(*app.pData());
  app.setSection(0, json);
  EXPECT_TRUE(app.pData()->ReadProblems().empty());
  const Data::Velmo9::VelmoSection& section = app.pData()->Section(0);
  EXPECT_EQ(section.Name(), L"Wall");
  EXPECT_EQ(section.Components().front().Concrete().Bars().size(), 1U);
  EXPECT_EQ(section.Task(0).Cases().front().input, (Vec3<double>{-5e5, 8e4, 0.0}));
  EXPECT_EQ(app.pData()->Queue().NumCases(0, 0), 1);

  const std::wstring before = app.fileString(false);
  const JsonValue wrong(3);
  app.setSection(0, wrong);
  EXPECT_FALSE(app.pData()->ReadProblems().empty());
  EXPECT_EQ(app.fileString(false), before);
}

void CheckProperties(const Util::JsonDocument& json) {
  VelmoApp app;
  AddColumn(*app.pData());
  Util::JsonDocument got;
  ExpectAlike(app.sectionProperties(0, got.GetAllocator()), json, "properties");
  EXPECT_NEAR(app.rebarPercentage(0), json["rebarPercentage"].GetDouble(), 1e-9);
}

void CheckOptions(const Util::JsonDocument& json) {
  const Data::Velmo9::OutputOptions options{static_cast<const JsonValue&>(json)};
  EXPECT_TRUE(options.uls.utilisations && options.uls.deformationAtFailure);
  EXPECT_TRUE(options.uls.loadAtFailure && options.uls.loadUnderDeformation);
  EXPECT_TRUE(options.uls.deformationUnderLoad);
  EXPECT_FALSE(options.uls.pointResults || options.sls.pointResults);
  EXPECT_TRUE(options.sls.deformations && options.sls.stiffness);
  EXPECT_FALSE(options.sls.loads || options.sls.crackWidth);
}

void CheckDiagram(const Util::JsonDocument& json) {
  VelmoApp app;
  AddColumn(*app.pData()).Task(0).addCase({"", {-1e6, 120e3, 30e3}});
  Util::JsonDocument got;
  Util::JsonDocument want;
  std::string message;
  ASSERT_TRUE(app.GetDiagram(json, got, message)) << message;
  Parse(Examples().at("GetDiagram result"), want);
  ExpectAlike(got, want, "diagram");
  EXPECT_FALSE(app.GetDiagram(want["loads"], got, message));
  EXPECT_EQ(got.MemberCount(), 0U);
  EXPECT_NE(message.find("request"), std::string::npos);
}

void CheckTaskData(const Util::JsonDocument& json) {
  VelmoApp app;
  AnalysisTask& task = AddColumn(*app.pData()).Task(0);
  for (const double force : {-1e6, -2e6, -3e6}) task.addCase({"", {force, 0, 0}});
  app.SolveTask(app.pData()->getSection(0), 0);
  std::string text;
  EXPECT_TRUE(app.CopyTaskData(json, text));
  EXPECT_EQ(text,
            "Case\tN\tMyy\tMzz\tULS failure N\tULS failure Myy\tULS failure Mzz\n"
            "\tkN\tkNm\tkNm\tkN\tkNm\tkNm\n"
            "1\t-1000\t0\t0\t-3477.52\t0\t0\n"
            "2\t-2000\t0\t0\t-3477.52\t0\t0\n");
}

void CheckLinks(const Util::JsonDocument& json) {
  VelmoApp app;
  Data::CSecComp& component = AddColumn(*app.pData()).Components()[0];
  component.SetName(L"shaft");
  Data::Reinforcement reinforcement = component.Concrete().GetReinforcement();
  reinforcement.links = {.size = 0.01,
                         .spacing = 0.2,
                         .legs = 4,
                         .perimeter = true,
                         .grade = reinforcement.bars.front().Grade()};
  component.Concrete().SetReinforcement(reinforcement);
  Util::JsonDocument got;
  ExpectAlike(app.SectionLinksToJson(0, got.GetAllocator()), json, "links");
}

TEST(FacadeJson, EveryInputOfThePageDoesWhatItSays) {
  const std::map<std::string, void (*)(const Util::JsonDocument&)> checks = {
      {"setTitles", CheckTitles},      {"setUnits", CheckUnits},
      {"setCodes", CheckCodes},        {"setGrade", CheckGrade},
      {"setSection", CheckSection},    {"sectionProperties", CheckProperties},
      {"OutputOptions", CheckOptions}, {"CopyTaskData", CheckTaskData},
      {"GetDiagram", CheckDiagram},    {"SectionLinksToJson", CheckLinks},
  };
  std::size_t inputs = 0;
  for (const auto& [name, text] : Examples()) {
    if (name.starts_with("GetCaseResults ") || name == "GetDiagram result") continue;
    SCOPED_TRACE(name);
    Util::JsonDocument json;
    Parse(text, json);
    ASSERT_TRUE(checks.contains(name)) << "an example that nothing runs";
    checks.at(name)(json);
    ++inputs;
  }
  EXPECT_EQ(inputs, checks.size());
}

TEST(FacadeJson, EveryResultOfThePageIsWhatTheFacadeGives) {
  constexpr LoadAction kLoad = LoadAction::load;
  constexpr LoadAction kDeformation = LoadAction::deformation;
  const struct {
    const char* name;
    bool uls;
    bool sls;
    LoadAction action;
    std::vector<Vec3<double>> inputs;
  } kCases[] = {
      {"loads", true, false, kLoad, {{-1e6, 120e3, 30e3}, {}, {-5e6, 0, 0}}},
      {"deformations", true, false, kDeformation, {{-0.0005, 0.004, 0}, {}, {-0.003, 0.01, 0}}},
      {"none", false, false, kLoad, {{}}},
      {"service loads", false, true, kLoad, {{-100e3, 60e3, 0}, {9e6, 0, 0}}},
      {"service deformations", false, true, kDeformation, {{0.0002, 0.002, 0.001}}},
  };
  const auto examples = Examples();
  for (const auto& c : kCases) {
    VelmoApp app;
    AnalysisTask& task = AddColumn(*app.pData()).Task(0);
    task.SetLimitStates(c.uls, c.sls);
    task.SetAction(c.action);
    std::vector<int> cases;
    for (const Vec3<double>& input : c.inputs) {
      cases.push_back(task.NumCases());
      task.addCase({"", input});
    }
    Util::JsonDocument got;
    std::string message;
    ASSERT_TRUE(app.GetCaseResults(0, 0, cases, got, message, true)) << message;
    Util::JsonDocument want;
    Parse(examples.at(std::string("GetCaseResults ") + c.name), want);
    ExpectAlike(got, want, c.name);
    if (testing::Test::HasFailure()) ADD_FAILURE() << Util::PrettyJson(got);
  }
}

}  // namespace
}  // namespace Orlix
