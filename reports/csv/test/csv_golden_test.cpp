// Whole reports of a small column, compared with files and, number by number, with the JSON of the
// same cases.

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <numbers>
#include <numeric>
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
  CurveKind serviceModel;
  const char* options;  // those of ULS, ";", those of SLS
  Inputs inputs;
  LoadAction action = LoadAction::load;
  const char* code = "EN 1992-1-1:2004";
  std::map<Dimension, const wchar_t*> units = {};
};

const std::vector<Report>& Reports() {
  static const std::vector<Report> kReports = {
      {"loads",
       CurveKind::linear,
       "appliedLoad responseDeformation failureLoad failureDeformation ; "
       "appliedLoad responseDeformation stiffness",
       {{-1e6, 120e3, 30e3}, {-5e6, 0, 0}, {-1e5, -60e3, 0}, {-2e6, -60e3, 20e3}}},
      {"deformations",
       CurveKind::interpolated,
       "appliedDeformation responseLoad failureDeformation ; "
       "appliedDeformation responseLoad stiffness",
       {{-0.0005, 0.004, 0.0005}, {0.0002, 0.002, 0.001}, {-0.001, -0.003, 0.002}},
       LoadAction::deformation},
      {"strength_reduction",
       CurveKind::none,
       "appliedLoad responseDeformation responseLoad",
       {{-1e6, 120e3, 30e3}, {-2e5, -90e3, 0}, {0, 40e3, 0}},
       LoadAction::load,
       "ACI 318-19"},
      {"interpolated",
       CurveKind::interpolated,
       "stressStrainProfile stressStrainRebar ; responseDeformation stressStrainProfile "
       "stressStrainRebar interpolatedStrainPlane stiffness",
       {{-1e5, 60e3, 10e3}}},
      {"bs8110_tension",
       CurveKind::bs8110Tension,
       "; responseDeformation stressStrainRebar stiffness",
       {{-1e5, 60e3, 10e3}, {-5e5, 5e3, 0}}},
      {"failed_cases",
       CurveKind::linear,
       "failureLoad ; appliedLoad crackResults",
       {{-1e5, 0, 0}, {-9e6, 0, 0}, {-8e6, 0, 0}, {9e6, 0, 0}, {-2e5, 0, 0}, {8e6, 0, 0}}},
      {"units",
       CurveKind::interpolated,
       "appliedLoad responseDeformation stressStrainRebar ; stiffness",
       {{-1e6, 120e3, 30e3}},
       LoadAction::load,
       "EN 1992-1-1:2004",
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
  std::vector<int> cases(report.inputs.size());
  std::iota(cases.begin(), cases.end(), 0);
  return cases;
}

std::vector<std::string> LinesOf(VelmoApp& app, const Report& report) {
  Util::JsonDocument json(rapidjson::kArrayType);
  auto& allocator = json.GetAllocator();
  std::istringstream names(report.options);
  int id = 0;
  for (std::string name; names >> name;) {
    if (name == ";") id = 50;
    Util::JsonValue element(rapidjson::kObjectType);
    element.AddMember("varName", name, allocator).AddMember("id", id, allocator);
    json.PushBack(element, allocator);
  }
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

// A field of a row, with what stands above it.
struct Field {
  std::string title;
  std::string label;  // of the envelope
  std::string column;
  std::string state;  // " (cracked)" and the like, cut off the column
  unsigned iCase;
  std::string text;
};

std::vector<std::string> Split(const std::string& line) {
  std::vector<std::string> fields;
  std::istringstream stream(line);
  for (std::string field; std::getline(stream, field, ',');) {
    fields.push_back(field.substr(field.find_first_not_of(' ')));
  }
  return fields;
}

std::vector<Field> FieldsOf(const std::vector<std::string>& lines) {
  std::vector<Field> found;
  Field field;
  std::vector<std::string> columns;
  for (std::size_t i = 16; i < lines.size(); ++i) {  // behind the units
    if (lines[i - 2] == " ") field.title = lines[i];
    if (lines[i].starts_with("Section,")) columns = Split(lines[i]);
    if (!lines[i].starts_with("1,1,")) field.label = lines[i];
    if (!lines[i].starts_with("1,1,")) continue;
    const std::vector<std::string> texts = Split(lines[i]);
    EXPECT_LE(texts.size(), columns.size()) << lines[i];
    field.iCase = static_cast<unsigned>(std::stoi(texts[2]) - 1);
    for (std::size_t k = 3; k < texts.size(); ++k) {
      const std::size_t end = std::min(columns[k].find(" ("), columns[k].size());
      field.column = columns[k].substr(0, end);
      field.state = columns[k].substr(end);
      field.text = texts[k];
      found.push_back(field);
    }
  }
  return found;
}

// The member of a record, or null.
const Util::JsonValue* Find(const Util::JsonValue* json, const std::string& key) {
  return json != nullptr && json->HasMember(key) ? &(*json)[key] : nullptr;
}

// Where a column's number stands in its object, or else in the case itself.
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
          {"Bending stiffness ZZ", {"EIzz", of(Dimension::bendingStiffness)}},
          {"Stress", {"Stress", of(Dimension::stress)}},
          {"Strain", {"Strain", of(Dimension::strain)}}};
}

// The number that a field of a table with a row a case shows; null where the JSON leaves it out.
const Util::JsonValue* NumberOf(const Field& field, const Util::JsonValue& record, CurveKind model,
                                const std::string& key) {
  const std::string state =
      field.state == " (cracked)" || model == CurveKind::bs8110Tension ? "Cracked" : "Uncracked";
  const std::map<std::string, std::string> kObjects = {
      {"ULS - Applied Loads", "load"},
      {"ULS - Deformations under applied loads", "deformation"},
      {"ULS - Applied Deformations", "neutralAxis"},
      {"ULS - Loads under applied deformations", "load"},
      {"ULS - Loads at failure", "loadAtFailure"},
      {"ULS - Deformations at failure", "deformationAtFailure"},
      {"SLS - Applied Loads", "load"},
      {"SLS - Deformations under applied loads", "deformations" + state},
      {"SLS - Applied Deformations", "neutralAxis"},
      {"SLS - Loads under applied deformations", "load" + state},
      {"SLS - Interpolated strain", "interpolatedDeformations"},
      {"SLS - Stiffness", "stiffness"}};
  const auto* number = Find(Find(&record, kObjects.at(field.title)), key);
  return number != nullptr ? number : Find(&record, key);
}

// The number that an envelope of a stress-strain table shows in the column it is of.
const Util::JsonValue* ExtremeOf(const Field& field, const Util::JsonValue& record,
                                 const std::string& key) {
  const bool isMost = field.label.starts_with("Maximum");
  std::string shown = field.column + field.state;
  shown[0] = 's';
  if (field.label != (isMost ? "Maximum " : "Minimum ") + shown) return nullptr;
  const Util::JsonValue* summary = Find(&record, "stressStrainSummary");
  if (field.title[0] == 'S') {
    summary = Find(Find(&record, "slsStressStrainSummary"),
                   field.state.substr(2, field.state.size() - 3));
  }
  const bool isRebar = field.title.ends_with("reinforcement");
  return Find(Find(summary, isRebar ? "rebar" : "concrete"), (isMost ? "max" : "min") + key);
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
    for (const Field& field : FieldsOf(LinesOf(app, report))) {
      const auto source = sources.find(field.column);
      const bool isStress = field.title.find("Stresses") != std::string::npos;
      // The envelopes are over all cases, the JSON's extremes over one.
      if (source == sources.end() || (isStress && report.inputs.size() > 1)) continue;
      const auto& [key, factor] = source->second;
      const Util::JsonValue& record = json["results"][field.iCase];
      const auto* number = isStress ? ExtremeOf(field, record, key)
                                    : NumberOf(field, record, report.serviceModel, key);
      if (number == nullptr || !number->IsNumber() || number->GetDouble() > 1e300) continue;
      EXPECT_EQ(field.text, StringFrom(number->GetDouble() * factor))
          << field.title << ", case " << field.iCase + 1 << ": " << field.column << field.state;
      ++compared[field.column];
    }
  }
  EXPECT_EQ(compared.size(), Sources({}).size());  // every column had something to compare
}

}  // namespace
}  // namespace Orlix::Velmo
