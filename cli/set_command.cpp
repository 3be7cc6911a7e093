#include <rapidjson/document.h>

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/choices.h"
#include "cli/code_option.h"
#include "cli/commands.h"
#include "cli/documents.h"
#include "cli/json_input.h"
#include "cli/option_checks.h"
#include "model/oxutil/json.h"
#include "model/oxutil/text.h"
#include "model/vldata/document/unit_keys.h"

namespace Orlix::Cli {

namespace {

struct Arguments {
  std::string document;
  std::optional<std::string> title;
  std::optional<std::string> part;
  std::optional<std::string> description;
  std::optional<std::string> jobNumber;
  std::optional<std::string> initials;
  std::vector<std::string> units;
  std::string code;
  std::string annex;
  std::string grade;
};

constexpr const char* kExample = R"(Examples:
  velmo set column.json --title "Harbour bridge" --part "Pier 3" --units force=MN,stress=MPa
  velmo set column.json --code "EN 1992-1-1:2004" --annex UK
  echo '{"type": "concrete", "name": "C30/37", "gamma": 1.2}' | velmo set column.json --grade -

What is not mentioned stays. Standard grades follow the code; edited ones stay as they are, and each
that changes or stays is listed. --annex also takes the JSON file of an annex of your own, which
docs/national-annex.md describes; the document keeps all of it. A grade is an object with "type",
"name" and the members of a document's material table that change; one of a new name is added.
Changed are display units, not numbers: those in the document are always SI. Something wrong changes
nothing.)";

void SetTitles(Data::CVelmoData& document, const Arguments& arguments) {
  Data::CTitles titles = document.Titles();
  titles.project = arguments.title.value_or(titles.project);
  titles.part = arguments.part.value_or(titles.part);
  titles.description = arguments.description.value_or(titles.description);
  titles.jobNumber = arguments.jobNumber.value_or(titles.jobNumber);
  titles.initials = arguments.initials.value_or(titles.initials);
  document.SetTitle(titles);
}

void ChangeCode(VelmoApp& app, const Arguments& arguments) {
  const std::string present = app.pData()->CodePointer()->name;
  if (arguments.code == present && arguments.annex.empty()) return;  // its annex stays
  SetCode(app, CodeFor(arguments.code.empty() ? present : arguments.code, arguments.annex));
  PrintGradeChanges(*app.pData(), std::cout);
}

// Through the facade, which sees to the lengths of bar descriptions that have no unit.
void ChangeUnits(VelmoApp& app, const Data::CUnit& units) {
  Util::JsonDocument json(rapidjson::kObjectType);
  auto& allocator = json.GetAllocator();
  for (const auto& [key, dimension] : Data::kUnitKeys) {
    Util::JsonValue unit(rapidjson::kObjectType);
    const std::string label = to_string(units.UnitString(dimension));
    unit.AddMember("label", Util::JsonValue(label.c_str(), allocator), allocator);
    json.AddMember(rapidjson::StringRef(key), unit, allocator);
  }
  app.setUnits(json);
}

bool IsAnythingSaid(const Arguments& a) {
  return a.title || a.part || a.description || a.jobNumber || a.initials || !a.units.empty() ||
         !a.code.empty() || !a.annex.empty() || !a.grade.empty();
}

int Run(const Arguments& arguments) {
  if (!IsAnythingSaid(arguments)) {
    throw CommandError("say what to change; `velmo set --help` lists what there is");
  }
  VelmoApp app = OpenForEdit(arguments.document);
  SetTitles(*app.pData(), arguments);
  if (!arguments.units.empty()) {
    ChangeUnits(app, UnitsFrom(arguments.units, app.pData()->Units()));
  }
  if (!arguments.code.empty() || !arguments.annex.empty()) ChangeCode(app, arguments);
  if (!arguments.grade.empty()) {
    Util::JsonDocument json;
    ReadJson(arguments.grade, json);
    app.setGrade(json);
    CheckUnderstood(arguments.grade, app.pData()->ReadProblems());
  }
  SaveDocument(app, arguments.document);
  std::cout << arguments.document << ": written\n";
  return kDone;
}

}  // namespace

void AddSetCommand(CLI::App& program, int& exitCode) {
  auto arguments = std::make_shared<Arguments>();
  CLI::App* command =
      program.add_subcommand("set", "Change titles, display units, code or grades of a document");
  command->footer(kExample);
  command->add_option("DOC", arguments->document, "Document")->required()->check(NotEmpty);
  command->add_option("--title", arguments->title, "Title of the project");
  command->add_option("--part", arguments->part, "Part of the project");
  command->add_option("--description", arguments->description, "Description");
  command->add_option("--job-number", arguments->jobNumber, "Job number");
  command->add_option("--initials", arguments->initials, "Initials of the engineer");
  command->add_option("--units", arguments->units, "Display units, e.g. force=kN,stress=MPa")
      ->delimiter(',');
  command->add_option("--code", arguments->code, "Design code, e.g. \"ACI 318-19\"")
      ->check(NotEmpty);
  command
      ->add_option("--annex", arguments->annex, "National annex, e.g. UK, or the JSON file of one")
      ->check(NotEmpty);
  command
      ->add_option("--grade", arguments->grade,
                   "JSON file of a grade to change or add; standard input for -")
      ->check(NotEmpty);
  command->callback([arguments, &exitCode] { exitCode = Run(*arguments); });
}

}  // namespace Orlix::Cli
