#include <rapidjson/document.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>
#include <string>

#include "cli/TextTable.h"
#include "cli/commands.h"
#include "cli/documents.h"
#include "cli/json_input.h"
#include "cli/number_list.h"
#include "cli/option_checks.h"
#include "cli/printable.h"
#include "cli/task_options.h"
#include "cli/verbs.h"
#include "model/oxutil/json.h"
#include "model/oxutil/text.h"
#include "model/vldata/json/tasks_json.h"

namespace Orlix::Cli {

using Data::Velmo9::AnalysisTask;
using Data::Velmo9::VelmoSection;

namespace {

struct Arguments {
  std::string document;
  std::string file;
  std::string section;
  std::string task;
  std::string other;
  std::string otherSection;
  TaskOptions options;
  bool asJson{};
  bool withNames{};
};

constexpr const char* kExample = R"(Examples:
  velmo task add column.json --section 1 --name "in service" --limit-states sls --creep 2 \
      --load-term long --case quasi-permanent=-6e5,4e4,0
  velmo task list column.json --section 1 --task 1 --json > task.json
  velmo task replace column.json task.json --section 1 --task 2
  velmo task compare column.json --section 1 --task 1 --with 2
  velmo task delete column.json --section 1 --task 2

A task in JSON is one of a section's "tasks"; docs/document.md describes it. Options change what the
file says or, without a file, a new task (add) or the task as it is (replace). Something that is not
understood changes nothing. The document is changed in place. compare ends with 1 when the tasks
differ.)";

int SectionOf(const VelmoApp& app, const Arguments& arguments) {
  return OneIndexFrom(arguments.section, app.pData()->NumSections(), "section");
}

int TaskOf(const VelmoApp& app, int iSec, const std::string& text) {
  return OneIndexFrom(text, static_cast<int>(app.pData()->Section(iSec).Tasks().size()), "task");
}

std::string Place(int iSec, int iTask) {
  return "section " + std::to_string(iSec + 1) + ", task " + std::to_string(iTask + 1);
}

// The task that file and options make of one that is there.
AnalysisTask TaskFrom(const Arguments& arguments, const VelmoSection& section,
                      const AnalysisTask& present) {
  if (arguments.file.empty() && !arguments.options.IsAnyGiven()) {
    throw CommandError("give a JSON file or say by options what the task is");
  }
  const auto numComponents = static_cast<int>(section.Components().size());
  AnalysisTask task = present;
  if (!arguments.file.empty()) {
    Util::JsonDocument json;
    ReadJson(arguments.file, json);
    Data::ProblemList problems;
    const Data::JsonPath root;
    task = Data::TaskFromJson(json, root.Member("task"), numComponents, problems);
    CheckUnderstood(arguments.file, problems.Problems());
  }
  arguments.options.ApplyTo(task, numComponents);
  return task;
}

int Save(VelmoApp& app, const Arguments& arguments, const std::string& done) {
  SaveDocument(app, arguments.document);
  std::cout << arguments.document << ": " << done << '\n';
  return kDone;
}

int Add(const Arguments& arguments) {
  VelmoApp app = OpenForEdit(arguments.document);
  const int iSec = SectionOf(app, arguments);
  const VelmoSection& section = app.pData()->Section(iSec);
  app.addTask(iSec, TaskFrom(arguments, section, AnalysisTask()));
  return Save(app, arguments, Place(iSec, static_cast<int>(section.Tasks().size()) - 1) + " added");
}

int Replace(const Arguments& arguments) {
  VelmoApp app = OpenForEdit(arguments.document);
  const int iSec = SectionOf(app, arguments);
  const int iTask = TaskOf(app, iSec, arguments.task);
  const VelmoSection& section = app.pData()->Section(iSec);
  app.updateTask(iSec, iTask, TaskFrom(arguments, section, section.Task(iTask)));
  return Save(app, arguments, Place(iSec, iTask) + " replaced");
}

int Delete(const Arguments& arguments) {
  VelmoApp app = OpenForEdit(arguments.document);
  const int iSec = SectionOf(app, arguments);
  const int iTask = TaskOf(app, iSec, arguments.task);
  const bool isReferenced = app.IsTaskReferenced(iSec, iTask);
  app.deleteTask(iSec, iTask);
  if (isReferenced) {
    std::cerr << Place(iSec, iTask)
              << " preloaded later tasks: they now refer to task 0, which is none; "
                 "`velmo check` lists them\n";
  }
  return Save(app, arguments, Place(iSec, iTask) + " deleted");
}

const char* LimitStates(const AnalysisTask& task) {
  if (task.ComputesULS()) return task.ComputesSLS() ? "ULS, SLS" : "ULS";
  return task.ComputesSLS() ? "SLS" : "none";
}

std::string PreloadText(const AnalysisTask& task) {
  const auto& from = task.PreloadFrom();
  if (!from) return "-";
  return "task " + std::to_string(from->task) + ", case " + std::to_string(from->iCase);
}

std::string ComponentsText(const AnalysisTask& task, std::size_t numComponents) {
  if (task.IncludesAllComponents()) return "all";
  std::string text;
  for (std::size_t i = 0; i < numComponents; ++i) {
    if (!task.IncludesComponent(static_cast<int>(i))) continue;
    if (!text.empty()) text += ',';
    text += std::to_string(i + 1);
  }
  return text.empty() ? "none" : text;
}

int List(const Arguments& arguments) {
  const VelmoApp app = OpenForUse(arguments.document);
  const Data::CVelmoData& document = *app.pData();
  TextTable table;
  for (const char* heading : {"Section", "task", "name", "computes", "cases are", "cases",
                              "components", "preload from"}) {
    table.AddColumn(heading, "", TextTable::Align::left);
  }
  Util::JsonDocument json(rapidjson::kArrayType);
  auto& allocator = json.GetAllocator();
  for (const int iSec : ChosenIndices(arguments.section, document.NumSections(), "section")) {
    const VelmoSection& section = document.Section(iSec);
    const auto count = static_cast<int>(section.Tasks().size());
    for (const int iTask : ChosenIndices(arguments.task, count, "task")) {
      const AnalysisTask& task = section.Task(iTask);
      if (arguments.asJson) json.PushBack(task.toJson(allocator, true, true, 0), allocator);
      table.AddRow({std::to_string(iSec + 1), std::to_string(iTask + 1), Printable(task.Name()),
                    LimitStates(task), task.Action() == LoadAction::load ? "loads" : "deformations",
                    std::to_string(task.NumCases()),
                    ComponentsText(task, section.Components().size()), PreloadText(task)});
    }
  }
  if (arguments.asJson) {
    // One task that was asked for is what `replace` reads.
    const bool isOne = !arguments.task.empty() && json.Size() == 1;
    std::cout << Util::PrettyJson(isOne ? json[0] : json) << '\n';
  } else if (table.IsEmpty()) {
    std::cout << "No tasks\n";
  } else {
    table.Print(std::cout);
  }
  return kDone;
}

std::string Short(const Util::JsonValue* value) {
  return value == nullptr ? "not given" : Data::DescribeJson(value);
}

// One line for each setting in which two tasks differ.
void PrintDifferences(const AnalysisTask& a, const AnalysisTask& b, bool withNames) {
  Util::JsonDocument json;
  const Util::JsonValue first = a.toJson(json.GetAllocator(), true, withNames, 0);
  const Util::JsonValue second = b.toJson(json.GetAllocator(), true, withNames, 0);
  for (const auto& member : first.GetObject()) {
    const char* name = member.name.GetString();
    const Util::JsonValue* other = Util::FindMember(second, name);
    if (other != nullptr && *other == member.value) continue;
    std::cout << "  " << name << ": ";
    if (other != nullptr && other->IsArray() && member.value.IsArray()) {
      rapidjson::SizeType i = 0;
      const rapidjson::SizeType common = std::min(other->Size(), member.value.Size());
      while (i < common && (*other)[i] == member.value[i]) ++i;
      std::cout << member.value.Size() << " and " << other->Size() << ", different from number "
                << i + 1 << " on\n";
    } else {
      std::cout << Printable(Short(&member.value)) << " and " << Printable(Short(other)) << '\n';
    }
  }
  for (const auto& member : second.GetObject()) {
    if (Util::FindMember(first, member.name.GetString()) != nullptr) continue;
    std::cout << "  " << member.name.GetString() << ": not given and "
              << Printable(Short(&member.value)) << '\n';
  }
}

int Compare(const Arguments& arguments) {
  const VelmoApp app = OpenForUse(arguments.document);
  const int iSec = SectionOf(app, arguments);
  const int iTask = TaskOf(app, iSec, arguments.task);
  const int iOtherSec =
      arguments.otherSection.empty()
          ? iSec
          : OneIndexFrom(arguments.otherSection, app.pData()->NumSections(), "section");
  const int iOther = TaskOf(app, iOtherSec, arguments.other);
  const AnalysisTask& a = app.pData()->Section(iSec).Task(iTask);
  const AnalysisTask& b = app.pData()->Section(iOtherSec).Task(iOther);
  const bool isEqual = VelmoApp::AreTasksEqual(a, b, arguments.withNames);
  std::cout << Place(iSec, iTask) << " and " << Place(iOtherSec, iOther)
            << (isEqual ? " are equal\n" : " differ:\n");
  if (!isEqual) PrintDifferences(a, b, arguments.withNames);
  return isEqual ? kDone : kProblems;
}

}  // namespace

void AddTaskCommand(CLI::App& program, int& exitCode) {
  auto arguments = std::make_shared<Arguments>();
  CLI::App* command =
      program.add_subcommand("task", "Add, replace, delete, list or compare analysis tasks");
  Verbs<Arguments> verbs(*command, arguments, kExample, exitCode);
  const auto addSettings = [&](CLI::App* verb) {
    verb->add_option("FILE", arguments->file, "JSON file of the task; standard input for -")
        ->check(NotEmpty);
    arguments->options.AddTo(*verb);
  };
  const auto addNumber = [&](CLI::App* verb, const char* option, std::string& text,
                             const char* help) {
    return verb->add_option(option, text, help)->check(NotEmpty);
  };

  CLI::App* add = verbs.Add("add", "Append a task", Add);
  CLI::App* replace = verbs.Add("replace", "Replace a task or change its settings", Replace);
  CLI::App* remove = verbs.Add("delete", "Delete a task", Delete);
  CLI::App* compare = verbs.Add("compare", "Say in what two tasks differ", Compare);
  CLI::App* list = verbs.Add("list", "List tasks", List);
  addSettings(add);
  addSettings(replace);
  for (CLI::App* verb : {add, replace, remove, compare}) {
    addNumber(verb, "--section", arguments->section, "Number of the section")->required();
  }
  for (CLI::App* verb : {replace, remove, compare}) {
    addNumber(verb, "--task", arguments->task, "Number of the task")->required();
  }
  addNumber(compare, "--with", arguments->other, "Number of the other task")->required();
  addNumber(compare, "--with-section", arguments->otherSection,
            "Section of the other task; the same without it");
  compare->add_flag("--names", arguments->withNames, "Names of tasks and cases count, too");
  addNumber(list, "--section", arguments->section, "Sections, e.g. 1 or 1-3,5; all without it");
  addNumber(list, "--task", arguments->task, "Tasks of these sections; all without it");
  list->add_flag("--json", arguments->asJson, "Print them as they stand in the document");
}

}  // namespace Orlix::Cli
