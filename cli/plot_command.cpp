#include <CLI/CLI.hpp>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "cli/commands.h"
#include "cli/documents.h"
#include "cli/interrupt.h"
#include "cli/number_list.h"
#include "cli/option_checks.h"
#include "cli/picture_file.h"
#include "cli/solve_task.h"
#include "model/oxutil/AtomicFile.h"
#include "plot/section_picture.h"

namespace Orlix::Cli {

namespace {

struct Arguments {
  std::string document;
  std::string section;
  std::string task;
  std::string oneCase;
  std::string state;
  PictureArguments picture;
};

constexpr const char* kExample = R"(Example:
  velmo plot beam.json --section 1 -o section.svg
  velmo plot beam.json --section 1 --task 1 --case 3 -o case.pdf
  velmo plot beam.json --section 1 --task 1 --case 7 --state failure -o failure.png --width 3000

A sheet, A4 landscape, by the ending of the file: .svg, .pdf or .png. Without a case it shows the
section, with one also its neutral axis, strains and stresses; the task is checked and solved first.
A case that is not carried, or has no solution in service, is drawn without them and says so.
Exit status 1, and no file, when checks fail.)";

const std::map<std::string, Plot::SectionState>& States() {
  static const std::map<std::string, Plot::SectionState> kStates = {
      {"load", Plot::SectionState::underLoad},
      {"failure", Plot::SectionState::atFailure},
      {"uncracked", Plot::SectionState::uncracked},
      {"cracked", Plot::SectionState::cracked},
      {"interpolated", Plot::SectionState::interpolated},
  };
  return kStates;
}

int Run(const Arguments& arguments) {
  const Plot::PictureOptions options = PictureOptionsFrom(arguments.picture);
  CheckIsNotDocument(arguments.picture.out, arguments.document);
  const InterruptGuard guard;
  VelmoApp app = OpenForUse(arguments.document);
  const Data::CVelmoData& document = *app.pData();
  const int iSec = IndexOfOne(arguments.section, document.NumSections(), "section");
  std::optional<Plot::PictureCase> ofCase;
  if (!arguments.oneCase.empty()) {
    const auto& tasks = document.Section(iSec).Tasks();
    const int iTask = IndexOfOne(arguments.task, static_cast<int>(tasks.size()), "task");
    const int count = document.Section(iSec).Task(iTask).NumCases();
    ofCase = {iTask, IndexOfOne(arguments.oneCase, count, "case"), Plot::SectionState::reported};
    if (!arguments.state.empty()) ofCase->state = States().at(arguments.state);
    if (!CheckAndSolve(app, iSec, iTask)) return kProblems;
  }
  try {
    Util::WriteWhole(arguments.picture.out, Plot::SectionPicture(app, iSec, ofCase, options));
  } catch (const std::invalid_argument& error) {
    throw CommandError(arguments.document + ": " + error.what());
  }
  return kDone;
}

}  // namespace

void AddPlotCommand(CLI::App& program, int& exitCode) {
  auto arguments = std::make_shared<Arguments>();
  CLI::App* command =
      program.add_subcommand("plot", "Draw a section, or the strains and stresses of a case");
  command->footer(kExample);
  command->add_option("DOC", arguments->document, "Document")->required()->check(NotEmpty);
  command
      ->add_option("--section", arguments->section,
                   "Number of the section; needed where there are several")
      ->check(NotEmpty);
  auto* task = command->add_option("--task", arguments->task, "Number of the task; likewise")
                   ->check(NotEmpty);
  auto* oneCase =
      command->add_option("--case", arguments->oneCase, "Number of the case")->check(NotEmpty);
  task->needs(oneCase);
  command
      ->add_option("--state", arguments->state,
                   "Strains shown: load, failure, uncracked, cracked or interpolated; without it "
                   "under the load or, in a service task, as reported")
      ->check(CLI::IsMember(States()))
      ->needs(oneCase);
  command->add_option("-o,--output", arguments->picture.out, "File to write: .svg, .pdf or .png")
      ->required()
      ->check(NotEmpty);
  AddPictureWidth(*command, arguments->picture);
  command->callback([arguments, &exitCode] { exitCode = Run(*arguments); });
}

}  // namespace Orlix::Cli
