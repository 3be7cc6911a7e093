#include <CLI/CLI.hpp>
#include <cstddef>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <numeric>
#include <string>
#include <system_error>
#include <vector>

#include "cli/commands.h"
#include "cli/documents.h"
#include "cli/number_list.h"
#include "cli/option_checks.h"
#include "cli/picture_file.h"
#include "cli/report_outputs.h"
#include "cli/solve_task.h"
#include "model/oxutil/AtomicFile.h"
#include "reports/csv/CsvBuilder.h"
#include "reports/html/html_report.h"

namespace Orlix::Cli {

namespace {

struct Arguments {
  std::string document;
  std::string section;
  std::string task;
  std::string cases;
  std::string outputs{"all"};
  std::string out;
  std::size_t rows{Velmo::HtmlReportOptions{}.mostRows};
};

constexpr const char* kExample = R"(Example:
  velmo report column.json --section 1 --task 1 -o report.html
  velmo report column.json --section 1 --task 1 -o report.csv
  velmo report column.json --cases 1-2,4 --outputs uls.appliedLoad,uls.failureLoad

A file that ends in .html is a page for people: inputs, checks, drawings, governing cases, tables
and how to read them. It needs nothing beside it, opens in any browser and prints on A4.

One that ends in .csv or .txt, or standard output, is CSV, text in UTF-8 with commas between the
fields and a point in numbers.
Cases that are not carried at ULS have no SLS rows. Both are in the document's units. Exit status 1,
and no file, when checks fail.

Outputs of CSV, in the order of the report; "all", "uls" and "sls" stand for those that say
something of the task:
)";

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

bool IsHtml(const std::string& out) {
  const std::string ending = EndingOf(out);
  return ending == ".html" || ending == ".htm";
}

// A device or a pipe takes CSV whatever its name.
void CheckOut(const std::string& out, const std::string& document) {
  CheckIsNotDocument(out, document);
  std::error_code error;
  if (!std::filesystem::is_other(out, error)) CheckEnding(out, ".html, .htm, .csv, .txt");
}

// "2026-11-23 04:50", local time; empty where the system has none.
std::string Now() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  if (localtime_r(&now, &local) == nullptr) return "";
  char text[32];
  return std::string(text, std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", &local));
}

int ReportCsv(const Arguments& arguments, VelmoApp& app, int iSec, int iTask) {
  const Data::CVelmoData& document = *app.pData();
  const std::vector<int> cases =
      CasesFrom(arguments.cases, document.Section(iSec).Task(iTask).NumCases());
  const Velmo::CsvOptions options = OutputsFrom(arguments.outputs, document, iSec, iTask);
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

int ReportHtml(const Arguments& arguments, VelmoApp& app, int iSec, int iTask) {
  if (!CheckAndSolve(app, iSec, iTask)) return kProblems;
  Util::WriteWhole(arguments.out,
                   Velmo::HtmlReport(app, iSec, iTask, {VELMO_VERSION, Now(), arguments.rows}));
  return kDone;
}

int Run(const Arguments& arguments, bool isCsvAsked, bool isHtmlAsked) {
  if (!arguments.out.empty()) CheckOut(arguments.out, arguments.document);
  const bool isHtml = IsHtml(arguments.out);
  if (isHtml && isCsvAsked) {
    throw CommandError("--cases and --outputs are of a CSV report; a page has all of the task");
  }
  if (!isHtml && isHtmlAsked) throw CommandError("--rows is of a page: -o report.html");
  VelmoApp app = OpenForUse(arguments.document);
  const Data::CVelmoData& document = *app.pData();
  const int iSec = IndexOfOne(arguments.section, document.NumSections(), "section");
  const auto& tasks = document.Section(iSec).Tasks();
  const int iTask = IndexOfOne(arguments.task, static_cast<int>(tasks.size()), "task");
  return isHtml ? ReportHtml(arguments, app, iSec, iTask) : ReportCsv(arguments, app, iSec, iTask);
}

}  // namespace

void AddReportCommand(CLI::App& program, int& exitCode) {
  auto arguments = std::make_shared<Arguments>();
  CLI::App* command = program.add_subcommand(
      "report", "Check a task, solve it, write its results as a page or as CSV");
  command->footer(kExample + OutputNames());
  command->add_option("DOC", arguments->document, "Document")->required()->check(NotEmpty);
  command
      ->add_option("--section", arguments->section,
                   "Number of the section; needed where there are several")
      ->check(NotEmpty);
  command->add_option("--task", arguments->task, "Number of the task; likewise")->check(NotEmpty);
  auto* cases =
      command->add_option("--cases", arguments->cases, "CSV: cases, e.g. 1-20,25; all without it")
          ->check(NotEmpty);
  auto* outputs = command
                      ->add_option("--outputs", arguments->outputs,
                                   "CSV: tables, e.g. all or uls,sls.stiffness")
                      ->capture_default_str()
                      ->check(NotEmpty);
  constexpr std::size_t kMostRows = 100'000;
  auto* rows = command
                   ->add_option("--rows", arguments->rows,
                                "Page: rows of a table of cases; of more the worst are listed")
                   ->capture_default_str()
                   ->check(CLI::Range(std::size_t{1}, kMostRows));
  command
      ->add_option("-o,--output", arguments->out, "File to write: .html a page, .csv or .txt CSV")
      ->check(NotEmpty);
  command->callback([arguments, cases, outputs, rows, &exitCode] {
    const bool isCsvAsked = cases->count() > 0 || outputs->count() > 0;
    exitCode = Run(*arguments, isCsvAsked, rows->count() > 0);
  });
}

}  // namespace Orlix::Cli
