#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <string>

#include "cli/commands.h"
#include "cli/documents.h"
#include "cli/option_checks.h"

namespace Orlix::Cli {

namespace {

constexpr const char* kExample = R"(Example:
  velmo validate column.json
Each line says where something stands that was not understood, what was found and what was
expected; in its place the document takes the default. Exit status 1 when there is any.)";

int Run(const std::string& path) {
  const VelmoApp app = OpenDocument(path);
  for (const Data::ReadProblem& problem : app.pData()->ReadProblems()) {
    std::cout << ProblemText(problem) << '\n';
  }
  if (!app.pData()->ReadProblems().empty()) return kProblems;
  std::cout << path << ": no problems\n";
  return kDone;
}

}  // namespace

void AddValidateCommand(CLI::App& program, int& exitCode) {
  auto path = std::make_shared<std::string>();
  CLI::App* command =
      program.add_subcommand("validate", "List what in a document was not understood");
  command->footer(kExample);
  command->add_option("DOC", *path, "Document")->required()->check(NotEmpty);
  command->callback([path, &exitCode] { exitCode = Run(*path); });
}

}  // namespace Orlix::Cli
