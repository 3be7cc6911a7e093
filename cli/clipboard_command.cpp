#include <rapidjson/document.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/documents.h"
#include "cli/number_list.h"
#include "cli/option_checks.h"
#include "cli/solve_task.h"
#include "model/oxutil/CopyToClipboard.h"
#include "model/oxutil/json.h"
#include "reports/clipboard/TaskDataToClipboardFormatter.h"

namespace Orlix::Cli {

namespace {

struct Arguments {
  std::string document;
  std::string section;
  std::string task;
  std::string cases;
  std::string columns;
  bool print{};
};

constexpr const char* kExample = R"(Example:
  velmo clipboard column.json --section 1 --task 1
  velmo clipboard column.json --section 1 --task 1 --cases 1-3 --columns 1-7 --print

The task is checked and solved first. A spreadsheet takes the text as rows and columns: a row of
titles, one of units, one for each case, in the document's units. Columns count from the left of the
whole table; docs/clipboard.md explains them. The text goes to the clipboard through wl-copy,
xclip or xsel; where none of them takes it, it is printed. Exit status 1 when checks fail.)";

/// Indices, both ends included; the end before the start: none.
struct Range {
  int first{};
  int last{};
};

int OneFrom(const std::string& text, int count, const std::string& what) {
  const std::vector<int> indices = IndicesFrom(text, count, what);
  if (indices.size() > 1) {
    throw CommandError("--" + what + " " + text + ": a table is of one " + what);
  }
  return indices.front();
}

// A block of consecutive ones; all of them without a text.
Range RangeFrom(const std::string& text, int count, const std::string& what) {
  if (text.empty()) return {0, count - 1};
  const std::vector<int> indices = IndicesFrom(text, count, what);
  const auto gap =
      std::adjacent_find(indices.begin(), indices.end(), [](int a, int b) { return b != a + 1; });
  if (gap != indices.end()) {
    throw CommandError("--" + what + "s " + text + ": a table is one block; give one range, " +
                       "such as 2-5");
  }
  return {indices.front(), indices.back()};
}

Util::JsonDocument RequestFor(int iSec, int iTask, const Range& cases, const Range& columns) {
  Util::JsonDocument request(rapidjson::kObjectType);
  Util::JsonAllocator& allocator = request.GetAllocator();
  const auto cell = [&allocator](int iCase, int column) {
    Util::JsonValue json(rapidjson::kObjectType);
    json.AddMember("case", iCase, allocator).AddMember("col", column, allocator);
    return json;
  };
  Util::JsonValue range(rapidjson::kObjectType);
  range.AddMember("start", cell(cases.first, columns.first), allocator);
  range.AddMember("end", cell(cases.last, columns.last), allocator);
  Util::JsonValue options(rapidjson::kObjectType);
  options.AddMember("uls", true, allocator).AddMember("sls", true, allocator);
  request.AddMember("iSec", iSec, allocator).AddMember("iTask", iTask, allocator);
  request.AddMember("range", range, allocator).AddMember("options", options, allocator);
  return request;
}

int Run(const Arguments& arguments) {
  VelmoApp app = OpenForUse(arguments.document);
  const Data::CVelmoData& document = *app.pData();
  const int iSec = OneFrom(arguments.section, document.NumSections(), "section");
  const Data::Velmo9::VelmoSection& section = document.Section(iSec);
  const int iTask = OneFrom(arguments.task, static_cast<int>(section.Tasks().size()), "task");
  const Range cases = RangeFrom(arguments.cases, section.Task(iTask).NumCases(), "case");
  const TaskDataToClipboardFormatter table(document, section, iTask);
  const Range columns = RangeFrom(arguments.columns, table.NumColumns(), "column");
  if (!CheckAndSolve(app, iSec, iTask)) return kProblems;

  std::string text;
  if (!app.CopyTaskData(RequestFor(iSec, iTask, cases, columns), text)) {
    throw CommandError(arguments.document + ": the table of the task could not be made");
  }
  if (arguments.print) {
    std::cout << text;
  } else if (CopyToClipboard(text)) {
    std::cerr << "On the clipboard: " << cases.last - cases.first + 1 << " cases, "
              << columns.last - columns.first + 1 << " columns\n";
  } else {
    std::cerr << "No clipboard program took the text (wl-copy, xclip or xsel, in a desktop "
                 "session); it is printed instead\n";
    std::cout << text;
  }
  return kDone;
}

}  // namespace

void AddClipboardCommand(CLI::App& program, int& exitCode) {
  auto arguments = std::make_shared<Arguments>();
  CLI::App* command =
      program.add_subcommand("clipboard", "Copy a task's cases and results for a spreadsheet");
  command->footer(kExample);
  command->add_option("DOC", arguments->document, "Document")->required()->check(NotEmpty);
  command->add_option("--section", arguments->section, "Section")->required()->check(NotEmpty);
  command->add_option("--task", arguments->task, "Task of the section")
      ->required()
      ->check(NotEmpty);
  command->add_option("--cases", arguments->cases, "Cases, e.g. 1-20; all without it")
      ->check(NotEmpty);
  command->add_option("--columns", arguments->columns, "Columns, e.g. 1-7; all without it")
      ->check(NotEmpty);
  command->add_flag("--print", arguments->print, "Print the text instead");
  command->callback([arguments, &exitCode] { exitCode = Run(*arguments); });
}

}  // namespace Orlix::Cli
