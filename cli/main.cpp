#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>

#include "cli/commands.h"
#include "cli/interrupt.h"

namespace {

constexpr const char* kExample = R"(Example, from nothing to results:
  velmo new column.json --template rectangle
  velmo show column.json
  velmo solve column.json

Numbers of sections, tasks, cases and components count from one; iSec, iTask and iCase in JSON
count from zero. Results go to standard output, messages to standard error.
Exit status: 0 done; 1 checks failed or the document has problems; 2 bad usage or unreadable input;
130 stopped by Ctrl-C.)";

int Run(int argc, char** argv) {
  CLI::App program{"Analyses reinforced-concrete and composite cross-sections.", "velmo"};
  program.set_version_flag("--version", VELMO_VERSION);
  program.footer(kExample);
  program.require_subcommand(1);
  int exitCode = Orlix::Cli::kDone;
  Orlix::Cli::AddNewCommand(program, exitCode);
  Orlix::Cli::AddSetCommand(program, exitCode);
  Orlix::Cli::AddSectionCommand(program, exitCode);
  Orlix::Cli::AddTaskCommand(program, exitCode);
  Orlix::Cli::AddShowCommand(program, exitCode);
  Orlix::Cli::AddValidateCommand(program, exitCode);
  Orlix::Cli::AddCheckCommand(program, exitCode);
  Orlix::Cli::AddConvertCommand(program, exitCode);
  Orlix::Cli::AddCasesCommand(program, exitCode);
  Orlix::Cli::AddSolveCommand(program, exitCode);
  Orlix::Cli::AddDxfCommand(program, exitCode);
  Orlix::Cli::AddDiagramCommand(program, exitCode);
  Orlix::Cli::AddReportCommand(program, exitCode);
  Orlix::Cli::AddPlotCommand(program, exitCode);
  Orlix::Cli::AddClipboardCommand(program, exitCode);
  Orlix::Cli::AddCurveCommand(program, exitCode);
  Orlix::Cli::AddCodesCommand(program, exitCode);
  Orlix::Cli::AddBenchCommand(program, exitCode);
  try {
    program.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    const bool asked = error.get_exit_code() == 0;  // for help or the version
    program.exit(error, std::cout, std::cerr);
    return asked ? Orlix::Cli::kDone : Orlix::Cli::kUnusable;
  }
  if (!std::cout.flush()) throw Orlix::Cli::CommandError("standard output cannot be written");
  return exitCode;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(argc, argv);
  } catch (const Orlix::Cli::Interrupted& error) {
    std::cerr << "velmo: " << error.what() << '\n';
    return Orlix::Cli::kInterrupted;
  } catch (const std::exception& error) {
    std::cerr << "velmo: " << error.what() << '\n';
    return Orlix::Cli::kUnusable;
  }
}
