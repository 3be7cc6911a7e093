#include "cli/dxf_section.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <map>
#include <system_error>
#include <vector>

#include "bridge/drawing_section.h"
#include "cli/choices.h"
#include "cli/code_option.h"
#include "cli/commands.h"
#include "cli/documents.h"
#include "cli/option_checks.h"
#include "cli/printable.h"
#include "model/oxutil/text.h"

namespace Orlix::Cli {
namespace {

using Util::BarSystem;

const std::map<std::string, BarSystem> kBarSystems = {
    {"metric", BarSystem::metric},
    {"us", BarSystem::us},
    {"canadian", BarSystem::canadian},
    {"australian", BarSystem::australian},
};

// A document that is there keeps its code; one that is made takes the code asked for.
VelmoApp DocumentFor(const DxfSectionArguments& arguments) {
  std::error_code failure;
  const auto status = std::filesystem::status(arguments.document, failure);
  if (!std::filesystem::status_known(status)) {
    throw CommandError(arguments.document + ": " + failure.message());
  }
  const bool isThere = std::filesystem::exists(status);
  VelmoApp app;
  if (isThere) app = OpenForEdit(arguments.document);
  if (arguments.code.empty() && arguments.annex.empty()) return app;
  const Data::Design::CConcCode asked = CodeFor(arguments.code, arguments.annex);
  if (!isThere) {
    SetCode(app, asked);
    return app;
  }
  const Data::Design::CConcCode& own = app.pData()->concreteCode();
  if (own.Data().code != asked.Data().code || (!arguments.annex.empty() && !AreEqual(own, asked))) {
    throw CommandError(arguments.document + ": its code is " + CodeText(*app.pData()) +
                       "; leave --code and --annex out to keep it");
  }
  return app;
}

BarSystem BarSizesFor(const DxfSectionArguments& arguments, const VelmoApp& app) {
  return arguments.barSizes.empty() ? app.pData()->concreteCode().Data().barSystem
                                    : kBarSystems.at(arguments.barSizes);
}

}  // namespace

CLI::Option* AddDxfSectionOptions(CLI::App& command, DxfSectionArguments& arguments) {
  CLI::Option* into =
      command
          .add_option("--into", arguments.document,
                      "Document that the section is added to; made when it is not there")
          ->check(NotEmpty);
  const auto add = [&](const char* option, std::string& value, const char* text) {
    return command.add_option(option, value, text)->check(NotEmpty)->needs(into);
  };
  add("--name", arguments.name, "Name of the section; the file's without it");
  add("--code", arguments.code, "Design code of a document that is made");
  add("--annex", arguments.annex, "National annex of a document that is made, or its JSON file");
  add("--grade", arguments.concrete, "Concrete grade; C30/37 or like it without it");
  add("--rebar", arguments.reinforcement, "Reinforcement grade; B500B or like it without it");
  add("--bars", arguments.barSizes, "Table of bar sizes; the code's country's without it")
      ->check(CLI::IsMember(&kBarSystems));
  add("--origin", arguments.origin, "Where the origin lies: centroid of the concrete, or as drawn")
      ->check(CLI::IsMember({"centroid", "drawing"}))
      ->capture_default_str();
  return into;
}

int AddDrawingToDocument(const DxfSectionArguments& arguments,
                         const dxf_import::SectionGeometry& drawing, std::ostream& out) {
  VelmoApp app = DocumentFor(arguments);
  Bridge::DrawingSettings settings;
  settings.name = arguments.name;
  settings.concreteGrade = FindGrade(app, MatType::concrete, arguments.concrete);
  settings.rebarGrade = FindGrade(app, MatType::reinforcement, arguments.reinforcement);
  settings.origin = arguments.origin == "drawing" ? Bridge::DrawingOrigin::asDrawn
                                                  : Bridge::DrawingOrigin::centroid;
  settings.barSizes = BarSizesFor(arguments, app);
  const Bridge::DrawingSection made =
      Bridge::SectionFromDrawing(drawing, settings, Util::CBarHelper());
  for (const std::string& line : made.problems) std::cerr << "error: " << line << '\n';
  for (const std::string& line : made.warnings) std::cerr << "warning: " << line << '\n';
  if (!made.problems.empty()) return kProblems;

  app.AddSection(made.section).AddTask();
  std::vector<std::string> checks;
  app.preSolutionChecksPassed(checks, app.pData()->NumSections() - 1, 0);
  for (const std::string& line : checks) std::cerr << "warning: " << line << '\n';
  SaveDocument(app, arguments.document);
  const std::string number = std::to_string(app.pData()->NumSections());
  out << arguments.document << ": section " << number << " \""
      << Printable(ValidUtf8(arguments.name))
      << "\" added, with one task without cases; `velmo cases " << arguments.document
      << " --section " << number << " --task 1 --from loads.csv` gives it loads\n";
  return kDone;
}

}  // namespace Orlix::Cli
