#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "app/VelmoApp.h"
#include "cli/choices.h"
#include "cli/code_option.h"
#include "cli/commands.h"
#include "cli/documents.h"
#include "cli/option_checks.h"
#include "cli/templates.h"
#include "model/oxutil/text.h"

namespace Orlix::Cli {

namespace {

struct Arguments {
  std::string out;
  std::string title;
  std::string section;
  std::string code;
  std::string annex;
  std::string concrete;
  std::string reinforcement;
  std::vector<std::string> units;
  bool force{};
};

constexpr const char* kExample = R"(Example:
  velmo new column.json --template rectangle --title "Column A1" --annex UK
  velmo new beam.json --template beam --units force=kip,length=ft,stress=ksi)";

int Run(const Arguments& arguments) {
  if (!arguments.force && std::filesystem::exists(std::filesystem::symlink_status(arguments.out))) {
    throw CommandError(arguments.out + ": is there already; --force replaces it");
  }
  VelmoApp app;
  app.New(cstr(arguments.title), UnitsFrom(arguments.units, {}));
  SetCode(app, CodeFor(arguments.code, arguments.annex));
  if (!arguments.section.empty()) {
    AddTemplate(*app.pData(), arguments.section,
                FindGrade(app, MatType::concrete, arguments.concrete),
                FindGrade(app, MatType::reinforcement, arguments.reinforcement));
  }
  SaveDocument(app, arguments.out);
  std::cout << arguments.out << ": written";
  if (!arguments.section.empty()) std::cout << "; `velmo solve " << arguments.out << "` solves it";
  std::cout << '\n';
  return kDone;
}

}  // namespace

void AddNewCommand(CLI::App& program, int& exitCode) {
  auto arguments = std::make_shared<Arguments>();
  CLI::App* command = program.add_subcommand("new", "Make a document");
  command->footer(kExample);
  command->add_option("OUT", arguments->out, "File to write")->required()->check(NotEmpty);
  command->add_option("--template", arguments->section, "Section to start with; none without it")
      ->check(CLI::IsMember(TemplateNames()));
  command->add_option("--title", arguments->title, "Title of the project");
  command->add_option("--code", arguments->code, "Design code, e.g. \"EN 1992-1-1:2004\"")
      ->check(NotEmpty);
  command
      ->add_option("--annex", arguments->annex,
                   "National annex, e.g. UK, or the JSON file of one; the code's first without it")
      ->check(NotEmpty);
  command
      ->add_option("--concrete", arguments->concrete,
                   "Concrete grade of the template; C30/37 or like it without it")
      ->check(NotEmpty);
  command
      ->add_option("--rebar", arguments->reinforcement,
                   "Reinforcement grade of the template; B500B or like it without it")
      ->check(NotEmpty);
  command->add_option("--units", arguments->units, "Display units, e.g. force=kN,stress=MPa")
      ->delimiter(',');
  command->add_flag("--force", arguments->force, "Replace a file that is there");
  command->callback([arguments, &exitCode] { exitCode = Run(*arguments); });
}

}  // namespace Orlix::Cli
