#pragma once

#include <stdexcept>

namespace CLI {
class App;
}

namespace Orlix::Cli {

/// What the program ends with.
enum ExitCode : int {
  kDone = 0,
  kProblems = 1,  ///< checks failed, a document has problems, with --strict a case is not carried
  kUnusable = 2,  ///< bad usage, input that cannot be read, output that cannot be written
  kInterrupted = 130  ///< ended by Ctrl-C, as shells count it
};

/// Ends a command with kUnusable; the text says what is wrong, where and how to put it right.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Each adds a subcommand. Parsing the arguments runs the one that was asked for, which sets
// `exitCode` or throws a CommandError.
void AddNewCommand(CLI::App& program, int& exitCode);
void AddSetCommand(CLI::App& program, int& exitCode);
void AddSectionCommand(CLI::App& program, int& exitCode);
void AddTaskCommand(CLI::App& program, int& exitCode);
void AddShowCommand(CLI::App& program, int& exitCode);
void AddValidateCommand(CLI::App& program, int& exitCode);
void AddCheckCommand(CLI::App& program, int& exitCode);
void AddConvertCommand(CLI::App& program, int& exitCode);
void AddCasesCommand(CLI::App& program, int& exitCode);
void AddSolveCommand(CLI::App& program, int& exitCode);
void AddDxfCommand(CLI::App& program, int& exitCode);
void AddDiagramCommand(CLI::App& program, int& exitCode);
void AddReportCommand(CLI::App& program, int& exitCode);
void AddPlotCommand(CLI::App& program, int& exitCode);
void AddClipboardCommand(CLI::App& program, int& exitCode);
void AddCurveCommand(CLI::App& program, int& exitCode);
void AddBenchCommand(CLI::App& program, int& exitCode);
void AddCodesCommand(CLI::App& program, int& exitCode);

}  // namespace Orlix::Cli
