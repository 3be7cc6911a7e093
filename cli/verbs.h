#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <utility>

#include "cli/option_checks.h"

namespace Orlix::Cli {

/// The verbs of a command on a document, such as "velmo task add": each has the document as its
/// first argument and the command's examples, and sets the exit code of the program.
/// `Arguments` has a text `document`.
template <class Arguments>
class Verbs {
 public:
  /// @param exitCode  lives as long as the program
  Verbs(CLI::App& command, std::shared_ptr<Arguments> arguments, const char* example, int& exitCode)
      : command_(command),
        arguments_(std::move(arguments)),
        example_(example),
        exitCode_(exitCode) {
    command_.footer(example_);
    command_.require_subcommand(1);
  }

  CLI::App* Add(const char* name, const char* help, int (*run)(const Arguments&)) {
    CLI::App* verb = command_.add_subcommand(name, help);
    verb->footer(example_);
    verb->add_option("DOC", arguments_->document, "Document")->required()->check(NotEmpty);
    verb->callback([arguments = arguments_, run, &exit = exitCode_] { exit = run(*arguments); });
    return verb;
  }

 private:
  CLI::App& command_;
  std::shared_ptr<Arguments> arguments_;
  const char* example_;
  int& exitCode_;
};

}  // namespace Orlix::Cli
