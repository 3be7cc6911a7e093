#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/documents.h"
#include "cli/number_list.h"
#include "cli/option_checks.h"
#include "cli/report_outputs.h"
#include "cli/solve_task.h"
#include "model/oxutil/AtomicFile.h"
#include "reports/csv/CsvBuilder.h"

namespace Orlix::Cli {

namespace {

struct Arguments {
  std::string document;
  std::string section;
  std::string task;
  std::string cases;
  std::string outputs{"all"};
  std::string out;
};

constexpr const char* kExample = R"(Example:
  velmo report column.json --section 1 --task 1 -o report.csv
  velmo report column.json --cases 1-2,4 --outputs uls.appliedLoad,uls.failureLoad

The report is text in UTF-8 with commas between the fields and a point in numbers, in the document's
units, which stand at its top. Cases that are not carried at ULS have no SLS rows. Exit status 1,
and no file, when checks fail.

Outputs, in the order of the report; "all", "uls" and "sls" stand for those that say something of
the task:
)";

// The one that is meant; none need be named where there is one.
int OneOf(const std::string& text, int count, const std::string& what) {
  if (text.empty() && count == 1) return 0;
  if (text.empty()) {
    throw CommandError("there are " + std::to_string(count) + " " + what +
                       "s: a report is of one; give its number with --" + what);
  }
  const std::vector<int> indices = IndicesFrom(text, count, what);
  if (indices.size() > 1) {
    throw CommandError("--" + what + " " + text + ": a report is of one " + what);
  }
  return indices.front();
}

std::vector<int> CasesFrom(const std::string& text, int count) {
  if (!text.empty()) return IndicesFrom(text, count, "case");
  std::vector<int> cases(static_cast<std::size_t>(count));
  std::iota(cases.begin(), cases.end(), 0);
  return cases;
}

// Whether a file holds exactly these lines.
bool Holds(const std::filesystem::path& path, const std::vector<std::string>& lines) {
  std::ifstream stream(path);
  std::string read;
  for (const std::string& line : lines) {
    const bool isWhole = std::getline(stream, read) && !stream.eof();  // with its line end
    if (!isWhole || read != line) return false;
  }
  return stream.peek() == std::ifstream::traits_type::eof();
}

void Write(const Velmo::CsvBuilder& builder, const std::vector<std::string>& lines,
           const std::string& out) {
  Util::AtomicFile file(out);
  if (!file.IsReadable()) {  // the stream of a device or a pipe tells what went wrong
    for (const std::string& line : lines) file.Stream() << line << '\n';
  } else {
    builder.SaveFile(file.Place());
    if (!Holds(file.Place(), lines)) {
      throw CommandError(out + ": could not be written whole; is the disk full?");
    }
  }
  file.Commit();
}

int Run(const Arguments& arguments) {
  VelmoApp app = OpenForUse(arguments.document);
  const Data::CVelmoData& document = *app.pData();
  const int iSec = OneOf(arguments.section, document.NumSections(), "section");
  const auto& tasks = document.Section(iSec).Tasks();
  const int iTask = OneOf(arguments.task, static_cast<int>(tasks.size()), "task");
  const std::vector<int> cases =
      CasesFrom(arguments.cases, document.Section(iSec).Task(iTask).NumCases());
  const Velmo::CsvOptions options = OutputsFrom(arguments.outputs, document, iSec, iTask);
  if (!arguments.out.empty()) CheckIsNotDocument(arguments.out, arguments.document);
  if (!CheckAndSolve(app, iSec, iTask)) return kProblems;

  Velmo::CsvBuilder builder(app);
  const std::vector<std::string>& lines = builder.BuildCaseDetails(iSec, iTask, cases, options);
  if (arguments.out.empty()) {
    for (const std::string& line : lines) std::cout << line << '\n';
  } else {
    Write(builder, lines, arguments.out);
  }
  return kDone;
}

}  // namespace

void AddReportCommand(CLI::App& program, int& exitCode) {
  auto arguments = std::make_shared<Arguments>();
  CLI::App* command =
      program.add_subcommand("report", "Check a task, solve it, write its results as CSV");
  command->footer(kExample + OutputNames());
  command->add_option("DOC", arguments->document, "Document")->required()->check(NotEmpty);
  command
      ->add_option("--section", arguments->section,
                   "Number of the section; needed where there are several")
      ->check(NotEmpty);
  command->add_option("--task", arguments->task, "Number of the task; likewise")->check(NotEmpty);
  command->add_option("--cases", arguments->cases, "Cases, e.g. 1-20,25; all without it")
      ->check(NotEmpty);
  command->add_option("--outputs", arguments->outputs, "Tables, e.g. all or uls,sls.stiffness")
      ->capture_default_str()
      ->check(NotEmpty);
  command->add_option("-o,--output", arguments->out, "Write the report to a file")->check(NotEmpty);
  command->callback([arguments, &exitCode] { exitCode = Run(*arguments); });
}

}  // namespace Orlix::Cli
