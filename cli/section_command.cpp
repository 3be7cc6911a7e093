#include <rapidjson/document.h>

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <string>

#include "cli/TextTable.h"
#include "cli/choices.h"
#include "cli/commands.h"
#include "cli/documents.h"
#include "cli/json_input.h"
#include "cli/number_list.h"
#include "cli/option_checks.h"
#include "cli/printable.h"
#include "cli/templates.h"
#include "cli/verbs.h"
#include "model/oxutil/json.h"
#include "model/oxutil/text.h"
#include "model/vldata/json/sections_json.h"

namespace Orlix::Cli {

using Data::Velmo9::VelmoSection;

namespace {

struct Arguments {
  std::string document;
  std::string file;
  std::string section;
  std::string shape;
  std::string concrete;
  std::string reinforcement;
  std::string name;
  bool asJson{};
};

constexpr const char* kExample = R"(Examples:
  velmo section add column.json --template circle --name "Pile"
  velmo section list column.json --section 1 --json > section.json
  velmo section replace column.json section.json --section 1
  velmo section delete column.json --section 2

A section in JSON is one of a document's "sections"; docs/document.md describes it. Something in it
that is not understood changes nothing. The document is changed in place.)";

std::string Place(int iSec) { return "section " + std::to_string(iSec + 1); }

// Bars that cannot be generated are no reason to refuse a section that is still being made.
void WarnOfBars(const VelmoApp& app, int iSec) {
  std::string message;
  if (!app.allComponentsHaveValidRebarDefinition(iSec, message)) {
    std::cerr << Place(iSec) << ": " << Printable(message) << '\n';
  }
}

int Save(VelmoApp& app, const Arguments& arguments, const std::string& done) {
  SaveDocument(app, arguments.document);
  std::cout << arguments.document << ": " << done << '\n';
  return kDone;
}

int Add(const Arguments& arguments) {
  if (arguments.file.empty() == arguments.shape.empty()) {
    throw CommandError("give either a JSON file or --template");
  }
  VelmoApp app = OpenForEdit(arguments.document);
  Data::CVelmoData& document = *app.pData();
  if (arguments.file.empty()) {
    AddTemplate(document, arguments.shape, FindGrade(app, MatType::concrete, arguments.concrete),
                FindGrade(app, MatType::reinforcement, arguments.reinforcement));
  } else {
    Util::JsonDocument json;
    ReadJson(arguments.file, json);
    const VelmoSection section = app.section(json);
    CheckUnderstood(arguments.file, document.ReadProblems());
    document.AddSection(section);
  }
  const int iSec = document.NumSections() - 1;
  if (!arguments.name.empty()) document.getSection(iSec).SetName(cstr(arguments.name));
  WarnOfBars(app, iSec);
  return Save(app, arguments, Place(iSec) + " added");
}

int Replace(const Arguments& arguments) {
  if (arguments.file.empty() && arguments.name.empty()) {
    throw CommandError("give a JSON file or --name");
  }
  VelmoApp app = OpenForEdit(arguments.document);
  const int iSec = OneIndexFrom(arguments.section, app.pData()->NumSections(), "section");
  if (!arguments.file.empty()) {
    Util::JsonDocument json;
    ReadJson(arguments.file, json);
    app.setSection(iSec, json);
    CheckUnderstood(arguments.file, app.pData()->ReadProblems());
    WarnOfBars(app, iSec);
  }
  if (!arguments.name.empty()) app.pData()->getSection(iSec).SetName(cstr(arguments.name));
  return Save(app, arguments, Place(iSec) + " replaced");
}

int Delete(const Arguments& arguments) {
  VelmoApp app = OpenForEdit(arguments.document);
  const int iSec = OneIndexFrom(arguments.section, app.pData()->NumSections(), "section");
  app.deleteSection(iSec);
  return Save(app, arguments, Place(iSec) + " deleted");
}

void ListAsJson(const Data::CVelmoData& document, const Arguments& arguments) {
  Util::JsonDocument json;
  const Data::Materials& materials = *document.getMaterials();
  const auto chosen = ChosenIndices(arguments.section, document.NumSections(), "section");
  Util::JsonValue sections(rapidjson::kArrayType);
  for (const int iSec : chosen) {
    sections.PushBack(SectionToJson(document.Section(iSec), materials, json.GetAllocator()),
                      json.GetAllocator());
  }
  // One section that was asked for is what `replace` reads.
  const bool isOne = !arguments.section.empty() && chosen.size() == 1;
  std::cout << Util::PrettyJson(isOne ? sections[0] : sections) << '\n';
}

int List(const Arguments& arguments) {
  const VelmoApp app = OpenForUse(arguments.document);
  const Data::CVelmoData& document = *app.pData();
  if (arguments.asJson) {
    ListAsJson(document, arguments);
    return kDone;
  }
  TextTable table;
  table.AddColumn("Section", "", TextTable::Align::left);
  table.AddColumn("name", "", TextTable::Align::left);
  for (const char* heading : {"components", "bars", "tasks", "cases"}) table.AddColumn(heading, "");
  for (const int iSec : ChosenIndices(arguments.section, document.NumSections(), "section")) {
    const VelmoSection& section = document.Section(iSec);
    std::size_t numBars = 0;
    for (const Data::CSecComp& component : section.Components()) {
      if (component.ConcreteExist()) numBars += component.Concrete().Bars().size();
    }
    long long numCases = 0;
    for (const auto& task : section.Tasks()) numCases += task.NumCases();
    table.AddRow({std::to_string(iSec + 1), Printable(to_string(section.Name())),
                  std::to_string(section.Components().size()), std::to_string(numBars),
                  std::to_string(section.Tasks().size()), std::to_string(numCases)});
  }
  if (table.IsEmpty()) {
    std::cout << "No sections\n";
  } else {
    table.Print(std::cout);
  }
  return kDone;
}

}  // namespace

void AddSectionCommand(CLI::App& program, int& exitCode) {
  auto arguments = std::make_shared<Arguments>();
  CLI::App* command = program.add_subcommand("section", "Add, replace, delete or list sections");
  Verbs<Arguments> verbs(*command, arguments, kExample, exitCode);
  const auto addFile = [&](CLI::App* verb) {
    verb->add_option("FILE", arguments->file, "JSON file of the section; standard input for -")
        ->check(NotEmpty);
    verb->add_option("--name", arguments->name, "Name of the section")->check(NotEmpty);
  };
  const auto addNumber = [&](CLI::App* verb, const char* help) {
    return verb->add_option("--section", arguments->section, help)->check(NotEmpty);
  };

  CLI::App* add = verbs.Add("add", "Append a section, from JSON or a template", Add);
  addFile(add);
  add->add_option("--template", arguments->shape, "Section to add")
      ->check(CLI::IsMember(TemplateNames()));
  add->add_option("--concrete", arguments->concrete, "Concrete grade of the template")
      ->check(NotEmpty);
  add->add_option("--rebar", arguments->reinforcement, "Reinforcement grade of the template")
      ->check(NotEmpty);
  CLI::App* replace =
      verbs.Add("replace", "Replace a section with its tasks, or rename it", Replace);
  addFile(replace);
  addNumber(replace, "Number of the section")->required();
  addNumber(verbs.Add("delete", "Delete a section", Delete), "Number of the section")->required();
  CLI::App* list = verbs.Add("list", "List sections", List);
  addNumber(list, "Sections, e.g. 1 or 1-3,5; all without it");
  list->add_flag("--json", arguments->asJson, "Print them as they stand in the document");
}

}  // namespace Orlix::Cli
