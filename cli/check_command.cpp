#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "cli/commands.h"
#include "cli/documents.h"
#include "cli/number_list.h"
#include "cli/option_checks.h"
#include "cli/prepare_task.h"
#include "cli/printable.h"
#include "model/vldata/document/used_grades.h"
#include "model/vldata/response/bar_problems.h"

namespace Orlix::Cli {

namespace {

struct Arguments {
  std::string document;
  std::string section;
  std::string task;
};

constexpr const char* kExample = R"(Example:
  velmo check column.json
  velmo check column.json --section 1 --task 1

Each line says what keeps a task from being solved. Tasks whose cases preload another one are solved
first, in memory; the task that is checked is not. Exit status 1 when there is any message,
also about values of the document that were not understood. Notes on safety factors that are none
of the code's, as of grades that stayed when the code changed, are no messages in that sense.)";

// What keeps a section and tasks of it from being solved, each message once.
std::vector<std::string> MessagesOf(VelmoApp& app, int iSec, const std::vector<int>& tasks) {
  std::vector<std::string> messages;
  const auto add = [&](std::vector<std::string> more) {
    for (std::string& message : more) {
      if (std::find(messages.begin(), messages.end(), message) == messages.end()) {
        messages.push_back(std::move(message));
      }
    }
  };
  if (tasks.empty()) app.preSolutionChecksPassed(messages, iSec);
  for (const int iTask : tasks) add(PrepareTask(app, iSec, iTask));
  // Where a bar description goes wrong, which the checks of a section sum up.
  add(Data::Velmo9::DescriptionProblems(*app.pData(), app.pData()->Section(iSec)));
  return messages;
}

int Run(const Arguments& arguments) {
  VelmoApp app = OpenForUse(arguments.document);
  const Data::CVelmoData& document = *app.pData();
  const auto sections = ChosenIndices(arguments.section, document.NumSections(), "section");
  if (sections.empty()) throw CommandError(arguments.document + ": there is no section to check");
  std::size_t numTasks = 0;
  bool isAny = !document.ReadProblems().empty();
  for (const int iSec : sections) {
    const auto count = static_cast<int>(document.Section(iSec).Tasks().size());
    const std::vector<int> tasks = ChosenIndices(arguments.task, count, "task");
    numTasks += tasks.size();
    const std::string place =
        sections.size() > 1 ? "section " + std::to_string(iSec + 1) + ": " : "";
    for (const std::string& message : MessagesOf(app, iSec, tasks)) {
      std::cout << place << Printable(message) << '\n';
      isAny = true;
    }
    for (const std::string& line : Data::ForeignFactors(document, document.Section(iSec))) {
      std::cout << place << "note: factors not of the code: " << Printable(line) << '\n';
    }
  }
  if (isAny) return kProblems;
  std::cout << arguments.document << ": no problems in " << sections.size()
            << (sections.size() == 1 ? " section, " : " sections, ") << numTasks
            << (numTasks == 1 ? " task\n" : " tasks\n");
  return kDone;
}

}  // namespace

void AddCheckCommand(CLI::App& program, int& exitCode) {
  auto arguments = std::make_shared<Arguments>();
  CLI::App* command =
      program.add_subcommand("check", "List what keeps the tasks of a document from being solved");
  command->footer(kExample);
  command->add_option("DOC", arguments->document, "Document")->required()->check(NotEmpty);
  command->add_option("--section", arguments->section, "Sections, e.g. 1 or 1-3,5; all without it")
      ->check(NotEmpty);
  command->add_option("--task", arguments->task, "Tasks of these sections; all without it")
      ->check(NotEmpty);
  command->callback([arguments, &exitCode] { exitCode = Run(*arguments); });
}

}  // namespace Orlix::Cli
