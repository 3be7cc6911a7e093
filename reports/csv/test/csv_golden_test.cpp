// Whole reports of a small column, compared with files and, number by number, with the JSON of the
// same cases.

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <map>
#include <numbers>
#include <sstream>

#include "app/test/Column.h"
#include "model/oxutil/StringFrom.h"
#include "model/oxutil/text.h"
#include "reports/csv/CsvBuilder.h"

namespace Orlix::Velmo {
namespace {

using Data::Design::CurveKind;
using Inputs = std::vector<Vec3<double>>;

struct Report {
  const char* file;
  const char* code;
  CurveKind serviceModel;
  LoadAction action;
  Inputs inputs;
  std::vector<const char*> uls;
  std::vector<const char*> sls;
  std::map<Dimension, const wchar_t*> units;
};

constexpr const char* kEn1992 = "EN 1992-1-1:2004";
constexpr LoadAction kLoads = LoadAction::load;
constexpr LoadAction kPlanes = LoadAction::deformation;

const std::vector<Report>& Reports() {
  static const std::vector<Report> kReports = {
      {"loads",
       kEn1992,
       CurveKind::linear,
       kLoads,
       {{-1e6, 120e3, 30e3}, {-5e6, 0, 0}, {-1e5, -60e3, 0}, {-2e6, -60e3, 20e3}},
       {"appliedLoad", "responseDeformation", "failureLoad", "failureDeformation"},
       {"appliedLoad", "responseDeformation", "stiffness"},
       {}},
      {"deformations",
       kEn1992,
       CurveKind::interpolated,
       kPlanes,
       {{-0.0005, 0.004, 0.0005}, {0.0002, 0.002, 0.001}, {-0.001, -0.003, 0.002}},
       {"appliedDeformation", "responseLoad", "failureDeformation"},
       {"appliedDeformation", "responseLoad", "stiffness"},
       {}},
      {"strength_reduction",
       "ACI 318-19",
       CurveKind::none,
       kLoads,
       {{-1e6, 120e3, 30e3}, {-2e5, -90e3, 0}, {0, 40e3, 0}},
       {"appliedLoad", "responseDeformation", "responseLoad"},
       {},
       {}},
      {"interpolated",
       kEn1992,
       CurveKind::interpolated,
       kLoads,
       {{-1e5, 60e3, 10e3}},
       {"stressStrainProfile", "stressStrainRebar"},
       {"responseDeformation", "stressStrainProfile", "stressStrainRebar",
        "interpolatedStrainPlane", "stiffness"},
       {}},
      {"bs8110_tension",
       kEn1992,
       CurveKind::bs8110Tension,
       kLoads,
       {{-1e5, 60e3, 10e3}, {-5e5, 5e3, 0}},
       {},
       {"responseDeformation", "stressStrainRebar", "stiffness"},
       {}},
      {"failed_cases",
       kEn1992,
       CurveKind::linear,
       kLoads,
       {{-1e5, 0, 0},
        {-9e6, 0, 0},
        {-8e6, 0, 0},
        {-7e6, 0, 0},
        {-2e5, 0, 0},
        {9e6, 0, 0},
        {8e6, 0, 0},
        {-3e5, 0, 0}},
       {"failureLoad"},
       {"appliedLoad", "crackResults"},
       {}},
      {"units",
       kEn1992,
       CurveKind::interpolated,
       kLoads,
       {{-1e6, 120e3, 30e3}},
       {"appliedLoad", "responseDeformation", "stressStrainRebar"},
       {"stiffness"},
       {{Dimension::force, L"kip"},
        {Dimension::length, L"ft"},
        {Dimension::stress, L"ksi"},
        {Dimension::strain, L"με"}}}};
  return kReports;
}

void Prepare(VelmoApp& app, const Report& report) {
  Data::CVelmoData& document = *app.pData();
  AddColumn(document);
  document.SetCodes(cstr(report.code));
  Data::CUnit units;
  for (const auto& [dimension, text] : report.units) units.SetUnitString(dimension, text);
  document.SetUnits(units);
  Data::Velmo9::VelmoSection& section = document.getSection(0);
  if (report.serviceModel != CurveKind::none) {
    document.getMaterials()
        ->Grade(MatType::concrete, section.Components()[0].MaterialGrade())
        .SetShape(LoadState::SLS, LoadSign::compression, {.kind = report.serviceModel});
  }
  Data::Velmo9::AnalysisTask& task = section.Task(0);
  task.SetAction(report.action);
  task.SetLimitStates(true, report.serviceModel != CurveKind::none);
  for (const Vec3<double>& input : report.inputs) task.addCase({"", input});
  app.SolveTask(section, 0);
}

std::vector<int> CasesOf(const Report& report) {
  std::vector<int> cases;
  for (int i = 0; i < static_cast<int>(report.inputs.size()); ++i) cases.push_back(i);
  return cases;
}

std::vector<std::string> LinesOf(VelmoApp& app, const Report& report) {
  Util::JsonDocument json(rapidjson::kArrayType);
  const auto add = [&](const char* name, int id) {
    Util::JsonValue element(rapidjson::kObjectType);
    element.AddMember("varName", rapidjson::StringRef(name), json.GetAllocator());
    json.PushBack(element.AddMember("id", id, json.GetAllocator()), json.GetAllocator());
  };
  for (const char* name : report.uls) add(name, 0);
  for (const char* name : report.sls) add(name, 50);
  CsvBuilder builder(app);
  return builder.BuildCaseDetails(0, 0, CasesOf(report), CsvBuilder::GetCsvOptions(json));
}

TEST(CsvGolden, ReportsAreThoseOfTheFiles) {
  for (const Report& report : Reports()) {
    SCOPED_TRACE(report.file);
    VelmoApp app;
    Prepare(app, report);
    std::string text;
    for (const std::string& line : LinesOf(app, report)) text += line + "\n";
    const std::string name = std::string(report.file) + ".csv";
    std::ostringstream golden;
    golden << std::ifstream("reports/csv/test/golden/" + name, std::ios::binary).rdbuf();
    EXPECT_TRUE(text == golden.str()) << "what was built: " << testing::TempDir() + name;
    std::ofstream(testing::TempDir() + name, std::ios::binary) << text;
  }
}

std::vector<std::string> Split(const std::string& line) {
  std::vector<std::string> fields;
  std::istringstream stream(line);
  for (std::string field; std::getline(stream, field, ',');) {
    fields.push_back(field.substr(field.find_first_not_of(' ')));
  }
  return fields;
}

// Calls use(title, column, case, field) for every field of every row of every table.
void ForEachField(const std::vector<std::string>& lines,
                  const std::function<void(const std::string&, const std::string&, std::size_t,
                                           const std::string&)>& use) {
  std::string title;
  std::vector<std::string> columns;
  for (std::size_t i = 1; i < lines.size(); ++i) {
    if (i > 1 && lines[i - 2] == " ") title = lines[i];
    if (lines[i].starts_with("Section,")) columns = Split(lines[i]);
    if (title == "Units" || !lines[i].starts_with("1,1,")) continue;
    const std::vector<std::string> fields = Split(lines[i]);
    ASSERT_LE(fields.size(), columns.size()) << lines[i];
    for (std::size_t k = 3; k < fields.size(); ++k) {
      use(title, columns[k], static_cast<std::size_t>(std::stoi(fields[2]) - 1), fields[k]);
    }
  }
}

// The object of a case's JSON that a table shows, by title, and by state where both stand in it.
std::string ObjectOf(const std::string& title, const std::string& column, CurveKind model) {
  const bool isCracked = column.find("(cracked)") != std::string::npos ||
                         (model == CurveKind::bs8110Tension && column.back() != ')');
  const std::map<std::string, std::string> kObjects = {
      {"ULS - Applied Loads", "load"},
      {"ULS - Deformations under applied loads", "deformation"},
      {"ULS - Applied Deformations", "neutralAxis"},
      {"ULS - Loads under applied deformations", "load"},
      {"ULS - Loads at failure", "loadAtFailure"},
      {"ULS - Deformations at failure", "deformationAtFailure"},
      {"SLS - Applied Loads", "load"},
      {"SLS - Deformations under applied loads",
       isCracked ? "deformationsCracked" : "deformationsUncracked"},
      {"SLS - Applied Deformations", "neutralAxis"},
      {"SLS - Loads under applied deformations", isCracked ? "loadCracked" : "loadUncracked"},
      {"SLS - Interpolated strain", "interpolatedDeformations"},
      {"SLS - Stiffness", "stiffness"}};
  const auto found = kObjects.find(title);
  return found == kObjects.end() ? "" : found->second;
}

// Where a column's number stands: a member of the table's object, else of the case itself.
struct Source {
  const char* key;
  double factor;
};

std::map<std::string, Source> Sources(const Data::CUnit& units) {
  const auto of = [&](Dimension dimension) { return units.Conversion(dimension); };
  return {{"Force X", {"N", of(Dimension::force)}},
          {"Moment YY", {"Myy", of(Dimension::moment)}},
          {"Moment ZZ", {"Mzz", of(Dimension::moment)}},
          {"Strain X", {"eps", of(Dimension::strain)}},
          {"Curvature YY", {"kyy", of(Dimension::curvature)}},
          {"Curvature ZZ", {"kzz", of(Dimension::curvature)}},
          {"Neutral axis angle", {"na_angle", 180.0 / std::numbers::pi}},
          {"Neutral axis offset", {"na_offset", of(Dimension::length)}},
          {"Load Utilisation %", {"utilisation", 100.0}},
          {"Load utilisation %", {"utilisation", 100.0}},
          {"Deformation utilisation", {"deformationUtilisation", 100.0}},
          {"M/Mu", {"momentRatio", 1.0}},
          {"Reduction Factor", {"reductionFactor", 1.0}},
          {"zeta", {"zeta", 1.0}},
          {"Axial stiffness", {"EA", of(Dimension::force)}},
          {"Bending stiffness YY", {"EIyy", of(Dimension::bendingStiffness)}},
          {"Bending stiffness ZZ", {"EIzz", of(Dimension::bendingStiffness)}}};
}

TEST(CsvGolden, NumbersAreThoseOfTheJson) {
  std::map<std::string, int> compared;  // by column
  for (const Report& report : Reports()) {
    SCOPED_TRACE(report.file);
    VelmoApp app;
    Prepare(app, report);
    Util::JsonDocument json;
    std::string message;
    ASSERT_TRUE(app.GetCaseResults(0, 0, CasesOf(report), json, message, false)) << message;
    const std::map<std::string, Source> sources = Sources(app.pData()->Units());
    ForEachField(LinesOf(app, report), [&](const std::string& title, const std::string& column,
                                           std::size_t iCase, const std::string& field) {
      const auto source = sources.find(column.substr(0, column.find(" (")));
      if (source == sources.end()) return;
      const Util::JsonValue& record = json["results"][static_cast<rapidjson::SizeType>(iCase)];
      const std::string object = ObjectOf(title, column, report.serviceModel);
      const char* key = source->second.key;
      const Util::JsonValue* value = nullptr;
      if (record.HasMember(object) && record[object].HasMember(key)) value = &record[object][key];
      if (value == nullptr && record.HasMember(key)) value = &record[key];
      if (value == nullptr || !value->IsNumber() || value->GetDouble() > 1e300) return;
      EXPECT_EQ(field, StringFrom(value->GetDouble() * source->second.factor))
          << title << ": " << column << " of case " << iCase + 1;
      ++compared[source->first];
    });
  }
  EXPECT_EQ(compared.size(), Sources({}).size());  // every column had something to compare
}

TEST(CsvGolden, ExtremesOfStressTablesAreThoseOfTheJsonSummary) {
  const Report& report = Reports()[3];  // one case, model 22
  VelmoApp app;
  Prepare(app, report);
  Util::JsonDocument json;
  std::string message;
  ASSERT_TRUE(app.GetCaseResults(0, 0, {0}, json, message, false)) << message;
  std::map<std::string, std::pair<double, double>> extremes;  // by table and column
  ForEachField(LinesOf(app, report), [&](const std::string& title, const std::string& column,
                                         std::size_t, const std::string& field) {
    const double value = std::strtod(field.c_str(), nullptr);
    auto& [least, most] = extremes.try_emplace(title + column, value, value).first->second;
    least = std::min(least, value);
    most = std::max(most, value);
  });
  const auto& record = json["results"][0];
  const auto expect = [&](const std::string& column, const Util::JsonValue& summary) {
    for (const bool isRebar : {false, true}) {
      const auto& part = summary[isRebar ? "rebar" : "concrete"];
      const auto& [least, most] = extremes.at(
          (column.empty() ? "ULS" : "SLS") + std::string(" - Stresses and strains of the ") +
          (isRebar ? "reinforcement" : "profile") + "Stress" + column);
      // Half a unit in the sixth digit of the text, MPa.
      EXPECT_NEAR(most, part["maxStress"].GetDouble() * 1e-6, std::abs(most) * 5e-6);
      EXPECT_NEAR(least, part["minStress"].GetDouble() * 1e-6, std::abs(least) * 5e-6);
    }
  };
  expect("", record["stressStrainSummary"]);
  expect(" (uncracked)", record["slsStressStrainSummary"]["uncracked"]);
  expect(" (cracked)", record["slsStressStrainSummary"]["cracked"]);
}

}  // namespace
}  // namespace Orlix::Velmo
