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
#include "model/oxutil/json.h"
#include "reports/csv/CsvBuilder.h"

namespace Orlix::Velmo {
namespace {

using Data::Design::CurveKind;

constexpr const char* kFolder = "reports/csv/test/golden/";

std::string FileText(const std::string& name) {
  std::ostringstream text;
  text << std::ifstream(kFolder + name, std::ios::binary).rdbuf();
  return text.str();
}

// A report that a file describes, of a column solved for it.
struct Report {
  explicit Report(const Util::JsonValue& json)
      : file(json["file"].GetString()),
        model(json.HasMember("model") ? CurveKind{json["model"].GetInt()} : CurveKind::none),
        cases(json["inputs"].Size()) {
    Data::CVelmoData& document = *app.pData();
    AddColumn(document);
    if (json.HasMember("code")) app.setCodes(json["code"]);
    if (json.HasMember("units")) app.setUnits(json["units"]);
    Data::Velmo9::VelmoSection& section = document.getSection(0);
    Data::Velmo9::AnalysisTask& task = section.Task(0);
    if (model != CurveKind::none) {
      document.getMaterials()
          ->Grade(MatType::concrete, section.Components()[0].MaterialGrade())
          .SetShape(LoadState::SLS, LoadSign::compression, {.kind = model});
    }
    task.SetLimitStates(true, model != CurveKind::none);
    if (json.HasMember("deformations")) task.SetAction(LoadAction::deformation);
    for (const auto& v : json["inputs"].GetArray()) {
      task.addCase({"", {v[0].GetDouble(), v[1].GetDouble(), v[2].GetDouble()}});
    }
    app.SolveTask(section, 0);
    std::iota(cases.begin(), cases.end(), 0);
    CsvBuilder builder(app);
    lines = builder.BuildCaseDetails(0, 0, cases, CsvBuilder::GetCsvOptions(json["options"]));
  }

  VelmoApp app;
  std::string file;
  CurveKind model;
  std::vector<int> cases;
  std::vector<std::string> lines;
};

// Calls use(report) with every report.
template <class Use>
void ForEachReport(Use use) {
  Util::JsonDocument json;
  std::string error;
  ASSERT_TRUE(Util::ParseJson(FileText("reports.json"), json, error)) << error;
  for (const Util::JsonValue& description : json.GetArray()) {
    Report report(description);
    SCOPED_TRACE(report.file);
    use(report);
  }
}

TEST(CsvGolden, ReportsAreThoseOfTheFiles) {
  ForEachReport([](const Report& report) {
    std::string text;
    for (const std::string& line : report.lines) text += line + "\n";
    const std::string built = testing::TempDir() + report.file + ".csv";
    std::ofstream(built, std::ios::binary) << text;
    EXPECT_TRUE(text == FileText(report.file + ".csv")) << "what was built: " << built;
  });
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
  ForEachReport([&](Report& report) {
    Util::JsonDocument json;
    std::string message;
    ASSERT_TRUE(report.app.GetCaseResults(0, 0, report.cases, json, message, false)) << message;
    const std::map<std::string, Source> sources = Sources(report.app.pData()->Units());
    for (const Field& field : FieldsOf(report.lines)) {
      const auto source = sources.find(field.column);
      const bool isStress = field.title.find("Stresses") != std::string::npos;
      // The envelopes are over all cases, the JSON's extremes over one.
      if (source == sources.end() || (isStress && report.cases.size() > 1)) continue;
      const auto& [key, factor] = source->second;
      const Util::JsonValue& record = json["results"][field.iCase];
      const auto* number =
          isStress ? ExtremeOf(field, record, key) : NumberOf(field, record, report.model, key);
      if (number == nullptr || !number->IsNumber() || number->GetDouble() > 1e300) continue;
      EXPECT_EQ(field.text, StringFrom(number->GetDouble() * factor))
          << field.title << ", case " << field.iCase + 1 << ": " << field.column << field.state;
      ++compared[field.column];
    }
  });
  EXPECT_EQ(compared.size(), Sources({}).size());  // every column had something to compare
}

}  // namespace
}  // namespace Orlix::Velmo
