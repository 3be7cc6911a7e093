#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstddef>
#include <iostream>
#include <limits>
#include <memory>
#include <numeric>
#include <optional>
#include <string>
#include <vector>

#include "cli/case_details.h"
#include "cli/commands.h"
#include "cli/documents.h"
#include "cli/interrupt.h"
#include "cli/number_list.h"
#include "cli/option_checks.h"
#include "cli/printable.h"
#include "cli/sls_table.h"
#include "cli/solve_json.h"
#include "cli/solve_table.h"
#include "cli/solve_task.h"
#include "model/oxutil/AtomicFile.h"
#include "model/oxutil/text.h"
#include "model/vldata/document/used_grades.h"

namespace Orlix::Cli {

using Data::CVelmoData;
using Data::Velmo9::AnalysisTask;
using Data::Velmo9::VelmoSection;

namespace {

constexpr std::size_t kLines = 40;

struct Arguments {
  std::string document;
  std::string section;
  std::string task;
  std::string cases;
  std::string oneCase;
  std::string out;
  bool json{};
  bool all{};
  bool strict{};
  bool details{};
};

constexpr const char* kExample = R"(Example:
  velmo solve column.json
  velmo solve column.json --section 1 --task 1 --cases 1-2,4 --json -o results.json
  velmo solve column.json --case 3

Tables, one for each limit state, are in the document's units, JSON in SI units. Exit status 1 when
checks fail; cases that are not carried, or have no solution in service, are results and give 0, or
1 with --strict. Ctrl-C ends the work, and then a file of -o stays as it was.)";

/// A task with the cases that are asked for.
struct Job {
  int iSec{};
  int iTask{};
  std::vector<int> cases;
};

std::vector<int> AllOf(int count) {
  std::vector<int> indices(static_cast<std::size_t>(count));
  std::iota(indices.begin(), indices.end(), 0);
  return indices;
}

std::vector<int> Chosen(const std::string& text, int count, const char* what) {
  return text.empty() ? AllOf(count) : IndicesFrom(text, count, what);
}

std::vector<Job> JobsOf(const CVelmoData& document, const Arguments& arguments) {
  std::vector<Job> jobs;
  const std::string& cases = arguments.oneCase.empty() ? arguments.cases : arguments.oneCase;
  for (const int iSec : Chosen(arguments.section, document.NumSections(), "section")) {
    const auto& tasks = document.Section(iSec).Tasks();
    for (const int iTask : Chosen(arguments.task, static_cast<int>(tasks.size()), "task")) {
      const int count = tasks[static_cast<std::size_t>(iTask)].NumCases();
      jobs.push_back({iSec, iTask, Chosen(cases, count, "case")});
    }
  }
  if (jobs.empty()) throw CommandError(arguments.document + ": there is no task to solve");
  return jobs;
}

void PrintTitle(const CVelmoData& document, const Job& job, const char* limitState,
                std::ostream& out) {
  const VelmoSection& section = document.Section(job.iSec);
  const AnalysisTask& task = section.Task(job.iTask);
  const auto quoted = [](const std::string& name) {
    return name.empty() ? std::string() : " \"" + Printable(name) + "\"";
  };
  out << "Section " << job.iSec + 1 << quoted(to_string(section.Name())) << ", task "
      << job.iTask + 1 << quoted(task.Name()) << ": " << limitState << " under "
      << (task.Action() == LoadAction::load ? "loads" : "deformations") << ", "
      << CodeText(document) << '\n';
  if (const auto& from = task.PreloadFrom()) {
    out << "Built on task " << from->task << ", case " << from->iCase
        << ": planes come on top of its strains; loads, strains and stresses are totals\n";
  }
  for (const std::string& line : Data::ForeignFactors(document, section)) {
    out << "Factors not of the code: " << Printable(line) << '\n';
  }
  out << '\n';
}

// The one or two accounts of a task.
void PrintText(const VelmoApp& app, const Job& job, const Arguments& arguments, std::ostream& out) {
  const CVelmoData& document = *app.pData();
  const AnalysisTask& task = document.Section(job.iSec).Task(job.iTask);
  const bool inFull = arguments.details || !arguments.oneCase.empty();
  const std::size_t limit = arguments.all ? std::numeric_limits<std::size_t>::max() : kLines;
  if (!task.ComputesULS() && !task.ComputesSLS()) {
    PrintTitle(document, job, "no limit state", out);
    out << "The task computes neither ULS nor SLS: there is nothing to solve\n";
    return;
  }
  if (task.ComputesULS()) {
    PrintTitle(document, job, "ULS", out);
    if (inFull) {
      PrintCaseDetails(app, job.iSec, job.iTask, job.cases, out);
    } else {
      PrintCaseTable(app, job.iSec, job.iTask, job.cases, limit, out);
    }
  }
  if (!task.ComputesSLS()) return;
  if (task.ComputesULS()) out << '\n';
  PrintTitle(document, job, "SLS", out);
  if (inFull) {
    PrintSlsDetails(app, job.iSec, job.iTask, job.cases, out);
  } else {
    PrintSlsTable(app, job.iSec, job.iTask, job.cases, limit, out);
  }
}

bool IsAllCarried(const CVelmoData& document, const Job& job) {
  const AnalysisTask& task = document.Section(job.iSec).Task(job.iTask);
  return std::none_of(job.cases.begin(), job.cases.end(), [&](int iCase) {
    return task.ULSResult(iCase, false).IsFail() ||
           task.SLSResult(iCase, false, true, false).IsFail();
  });
}

/// What solving gave.
struct Outcome {
  int exitCode{kDone};
  bool any{};  ///< something was written
};

Outcome SolveTo(VelmoApp& app, const Arguments& arguments, std::ostream& out) {
  const std::vector<Job> jobs = JobsOf(*app.pData(), arguments);
  const bool isObject = jobs.size() == 1 && !arguments.section.empty() && !arguments.task.empty();
  const bool isArray = arguments.json && !isObject;
  Outcome outcome;
  if (isArray) out << '[';
  for (const Job& job : jobs) {
    if (!CheckAndSolve(app, job.iSec, job.iTask)) {
      outcome.exitCode = kProblems;
      continue;
    }
    if (isArray) out << (outcome.any ? ",\n    " : "\n    ");
    if (arguments.json) {
      WriteCaseJson(app, job.iSec, job.iTask, job.cases, isArray ? "    " : "", out);
    } else {
      if (outcome.any) out << '\n';
      PrintText(app, job, arguments, out);
    }
    outcome.any = true;
    if (arguments.strict && !IsAllCarried(*app.pData(), job)) outcome.exitCode = kProblems;
  }
  if (isArray) out << (outcome.any ? "\n]" : "]");
  if (arguments.json && (isArray || outcome.any)) out << '\n';
  return outcome;
}

int Run(const Arguments& arguments) {
  const InterruptGuard guard;
  VelmoApp app = OpenForUse(arguments.document);
  if (arguments.out.empty()) return SolveTo(app, arguments, std::cout).exitCode;
  CheckIsNotDocument(arguments.out, arguments.document);
  Util::AtomicFile file(arguments.out);
  const Outcome outcome = SolveTo(app, arguments, file.Stream());
  if (outcome.any) file.Commit();
  return outcome.exitCode;
}

}  // namespace

void AddSolveCommand(CLI::App& program, int& exitCode) {
  auto arguments = std::make_shared<Arguments>();
  CLI::App* command = program.add_subcommand("solve", "Check tasks, solve them, print the results");
  command->footer(kExample);
  command->add_option("DOC", arguments->document, "Document")->required()->check(NotEmpty);
  command->add_option("--section", arguments->section, "Sections, e.g. 1 or 1-3,5; all without it")
      ->check(NotEmpty);
  command->add_option("--task", arguments->task, "Tasks of these sections; all without it")
      ->check(NotEmpty);
  auto* cases =
      command->add_option("--cases", arguments->cases, "Cases, e.g. 1-20,25")->check(NotEmpty);
  auto* oneCase =
      command->add_option("--case", arguments->oneCase, "One case, in full")->check(NotEmpty);
  auto* json = command->add_flag("--json", arguments->json, "JSON in SI units");
  command->add_option("-o,--output", arguments->out, "Write the results to a file")
      ->check(NotEmpty);
  auto* all = command->add_flag("--all", arguments->all, "Show every case, not the 40 worst alone");
  command->add_flag("--strict", arguments->strict, "Exit status 1 when a case is not carried");
  auto* details = command->add_flag("--details", arguments->details, "Show each case in full");
  oneCase->excludes(cases);
  json->excludes(details)->excludes(oneCase)->excludes(all);
  command->callback([arguments, &exitCode] { exitCode = Run(*arguments); });
}

}  // namespace Orlix::Cli
