#include <CLI/CLI.hpp>
#include <cmath>
#include <iostream>
#include <memory>
#include <numbers>
#include <optional>
#include <string>

#include "app/diagram_json.h"
#include "cli/commands.h"
#include "cli/diagram_table.h"
#include "cli/documents.h"
#include "cli/governing_case.h"
#include "cli/interrupt.h"
#include "cli/number_list.h"
#include "cli/option_checks.h"
#include "cli/picture_file.h"
#include "cli/solve_task.h"
#include "cli/unit_factors.h"
#include "model/oxutil/AtomicFile.h"
#include "model/oxutil/ParseDouble.h"
#include "model/oxutil/json.h"
#include "plot/diagram_picture.h"

namespace Orlix::Cli {

using VlSol::Diagram;
using VlSol::DiagramKind;
using VlSol::DiagramRequest;

namespace {

struct Arguments {
  std::string kind;
  std::string document;
  std::string section;
  std::string task;
  std::string angle;
  std::string axial;
  PictureArguments file;
  int points{DiagramRequest{}.points};
  bool service{};
  bool json{};
  bool all{};
};

constexpr const char* kExample = R"(Example:
  velmo diagram nm column.json --section 1 --task 1
  velmo diagram nm column.json --angle 30 -o column.csv
  velmo diagram mm column.json --axial -800 --points 200 -o biaxial.json
  velmo diagram mk column.json --axial -800kN --angle 90 --all

nm: N against M, the moment's direction held. --angle is measured from Myy towards Mzz, so 0 is Myy
and 90 is Mzz; the neutral axis turns as it must for the moment across to vanish. Both signs of M
make one closed curve.
mm: Myy against Mzz, the axial force held: without --axial that of the task's governing case, or 0
without cases.
mk: M against curvature, axial force (as for mm) and direction of the moment held, from no moment
until a strain limit is reached; past a peak the curvature goes on and the moment falls. --sls: in
service, from the reported plane under each moment.

The table names pure compression, decompression, balanced, pure bending and pure tension, or start,
cracking, first yield, peak and failure, and shows the task's loads with their utilisations. Under a
code with strength reduction there are nominal and design values, the latter with phi and the cap on
axial force. -o writes by the ending of the file: CSV in the document's units, JSON in SI units, or
a sheet, A4 landscape, as .svg, .pdf or .png.
docs/diagrams.md explains all of it. Exit status 1 when checks fail or there is no curve.)";

double AngleFrom(const std::string& text) {
  if (text.empty()) return 0.0;
  const std::optional<double> degrees = ParseDouble(text);
  if (!degrees || !std::isfinite(*degrees)) {
    throw CommandError("--angle " + text + ": give a number of degrees, such as 30");
  }
  return std::remainder(*degrees, 360.0) * std::numbers::pi / 180.0;
}

// A force in the document's unit, or in one that follows the number.
double ForceFrom(const std::string& text, const Data::CUnit& units) {
  const auto force = QuantityFrom(text, Dimension::force, 1.0 / units.Conversion(Dimension::force));
  if (!force) {
    throw CommandError("--axial " + text + ": give a force, such as -800 in the document's unit " +
                       "or -800kN; tension is positive");
  }
  return *force;
}

void WriteJson(const DiagramPlace& place, const Diagram& diagram, std::ostream& out) {
  Util::JsonDocument json;
  json.SetObject();
  Util::JsonAllocator& allocator = json.GetAllocator();
  json.AddMember("iSec", place.iSec, allocator).AddMember("iTask", place.iTask, allocator);
  Util::JsonValue members = ToJson(diagram, allocator);
  for (auto& member : members.GetObject()) json.AddMember(member.name, member.value, allocator);
  out << Util::PrettyJson(json) << '\n';
}

void WriteFile(const VelmoApp& app, const DiagramPlace& place, const Diagram& diagram,
               const PictureArguments& arguments) {
  const std::string& out = arguments.out;
  if (Plot::PictureFormatOf(out)) {
    Util::WriteWhole(out, Plot::DiagramPicture(app, place.iSec, place.iTask, diagram,
                                               PictureOptionsFrom(arguments)));
    return;
  }
  Util::AtomicFile file(out);
  if (EndingOf(out) == ".json") {
    WriteJson(place, diagram, file.Stream());
  } else {
    WriteDiagramCsv(app, diagram, file.Stream());
  }
  file.Commit();
}

// Holds the axial force of the case that governs, so that its load lies in the diagram.
void HoldAxialOfGoverning(const VelmoApp& app, DiagramPlace& place, DiagramRequest& request) {
  const auto& task = app.pData()->Section(place.iSec).Task(place.iTask);
  const int iCase = GoverningCase(task, request.state);
  place.axialOf = iCase;
  request.axial = AxialForceOf(app, place.iSec, place.iTask, iCase, request.state);
}

// What helps where there is no diagram.
std::string AdviceOn(const VelmoApp& app, const DiagramPlace& place,
                     const DiagramRequest& request) {
  const auto& task = app.pData()->Section(place.iSec).Task(place.iTask);
  const bool isUls = request.state == LoadState::ULS;
  if (isUls && !task.ComputesULS()) {
    return request.kind == DiagramKind::momentCurvature && task.ComputesSLS()
               ? "; --sls gives curvatures in service"
               : "";
  }
  if (!place.axialOf) return "";
  return "; it is held at the axial force of case " + std::to_string(*place.axialOf + 1) +
         ", which governs: --axial holds another one";
}

DiagramRequest RequestFrom(const Arguments& arguments, const Data::CUnit& units) {
  DiagramRequest request;
  request.kind = *DiagramKindFrom(arguments.kind);
  if (request.kind == DiagramKind::biaxialMoment && !arguments.angle.empty()) {
    throw CommandError("--angle: a diagram of two moments has every direction; leave it out");
  }
  if (request.kind == DiagramKind::axialMoment && !arguments.axial.empty()) {
    throw CommandError("--axial: a diagram of N and M has every axial force; leave it out");
  }
  if (request.kind != DiagramKind::momentCurvature && arguments.service) {
    throw CommandError("--sls: a diagram of failure loads is of the ultimate limit state");
  }
  request.angle = AngleFrom(arguments.angle);
  if (!arguments.axial.empty()) request.axial = ForceFrom(arguments.axial, units);
  request.points = arguments.points;
  request.state = arguments.service ? LoadState::SLS : LoadState::ULS;
  return request;
}

int Run(const Arguments& arguments) {
  if (!arguments.file.out.empty()) {
    CheckEnding(arguments.file.out, std::string(".csv, .json, ") + Plot::kPictureEndings);
    CheckIsNotDocument(arguments.file.out, arguments.document);
  }
  const InterruptGuard guard;
  VelmoApp app = OpenForUse(arguments.document);
  const Data::CVelmoData& document = *app.pData();
  DiagramPlace place;
  place.iSec = IndexOfOne(arguments.section, document.NumSections(), "section");
  const auto& tasks = document.Section(place.iSec).Tasks();
  place.iTask = IndexOfOne(arguments.task, static_cast<int>(tasks.size()), "task");
  DiagramRequest request = RequestFrom(arguments, document.Units());

  const bool isAxialOpen = request.kind != DiagramKind::axialMoment && arguments.axial.empty() &&
                           document.Section(place.iSec).Task(place.iTask).NumCases() > 0;
  const bool needsResults = isAxialOpen || request.kind != DiagramKind::momentCurvature;
  const bool isReady = needsResults ? CheckAndSolve(app, place.iSec, place.iTask)
                                    : CheckTask(app, place.iSec, place.iTask);
  if (!isReady) return kProblems;
  if (isAxialOpen) HoldAxialOfGoverning(app, place, request);

  Diagram diagram;
  std::string message;
  if (!app.GetDiagram(place.iSec, place.iTask, request, diagram, message)) {
    std::cerr << PlaceText(place.iSec, place.iTask, message) << message
              << AdviceOn(app, place, request) << '\n';
    return kProblems;
  }

  if (!arguments.file.out.empty()) {
    WriteFile(app, place, diagram, arguments.file);
  } else if (arguments.json) {
    WriteJson(place, diagram, std::cout);
  } else {
    PrintDiagram(app, place, diagram, arguments.all, std::cout);
  }
  return kDone;
}

}  // namespace

void AddDiagramCommand(CLI::App& program, int& exitCode) {
  auto arguments = std::make_shared<Arguments>();
  CLI::App* command = program.add_subcommand(
      "diagram", "Diagrams of axial force and moment, of two moments, of moment and curvature");
  command->footer(kExample);
  command->add_option("KIND", arguments->kind, "nm, mm or mk")
      ->required()
      ->check(CLI::IsMember({"nm", "mm", "mk"}));
  command->add_option("DOC", arguments->document, "Document")->required()->check(NotEmpty);
  command
      ->add_option("--section", arguments->section,
                   "Number of the section; needed where there are several")
      ->check(NotEmpty);
  command->add_option("--task", arguments->task, "Number of the task; likewise")->check(NotEmpty);
  command
      ->add_option("--angle", arguments->angle,
                   "Direction of the moment in degrees from Myy towards Mzz; 0 without it")
      ->check(NotEmpty);
  command
      ->add_option("--axial", arguments->axial,
                   "Held axial force, tension positive, in the document's unit or with one behind "
                   "it; without it that of the governing case")
      ->check(NotEmpty);
  command->add_option("--points", arguments->points, "About so many points on a curve")
      ->capture_default_str()
      ->check(CLI::Range(DiagramRequest::kFewestPoints, DiagramRequest::kMostPoints));
  command->add_flag("--sls", arguments->service, "Curvatures in service (mk)");
  auto* json = command->add_flag("--json", arguments->json, "JSON in SI units");
  auto* all = command->add_flag("--all", arguments->all, "Show every point and every load");
  auto* out = command
                  ->add_option("-o,--output", arguments->file.out,
                               "File to write: .csv, .json, .svg, .pdf or .png")
                  ->check(NotEmpty);
  AddPictureWidth(*command, arguments->file);
  json->excludes(all)->excludes(out);
  all->excludes(out);
  command->callback([arguments, &exitCode] { exitCode = Run(*arguments); });
}

}  // namespace Orlix::Cli
