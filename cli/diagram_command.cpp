#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <iostream>
#include <memory>
#include <numbers>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/diagram_json.h"
#include "cli/commands.h"
#include "cli/diagram_table.h"
#include "cli/documents.h"
#include "cli/interrupt.h"
#include "cli/number_list.h"
#include "cli/option_checks.h"
#include "cli/picture_file.h"
#include "cli/prepare_task.h"
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
mm: Myy against Mzz, the axial force held.
mk: M against curvature, axial force and direction of the moment held, from no moment until a strain
limit is reached; past a peak the curvature goes on and the moment falls. --sls: in service, from
the reported plane under each moment.

The table names pure compression, decompression, balanced, pure bending and pure tension, or start,
cracking, first yield, peak and failure, and shows the task's loads with their utilisations. Under a
code with strength reduction there are nominal and design values, the latter with phi and the cap on
axial force. -o writes by the ending of the file: CSV in the document's units, JSON in SI units, or
a sheet, A4 landscape, as .svg, .pdf or .png.
docs/diagrams.md explains all of it. Exit status 1 when checks fail or there is no curve.)";

// The one that is meant; none need be named where there is one.
int OneOf(const std::string& text, int count, const std::string& what) {
  if (count == 0) throw CommandError("there is no " + what + " to make a diagram of");
  if (text.empty() && count == 1) return 0;
  if (text.empty()) {
    throw CommandError("there are " + std::to_string(count) + " " + what +
                       "s: a diagram is of one; give its number with --" + what);
  }
  return OneIndexFrom(text, count, what);
}

double AngleFrom(const std::string& text) {
  if (text.empty()) return 0.0;
  const std::optional<double> degrees = ParseDouble(text);
  if (!degrees || !std::isfinite(*degrees)) {
    throw CommandError("--angle " + text + ": give a number of degrees, such as 30");
  }
  return *degrees * std::numbers::pi / 180.0;
}

// A force in the document's unit, or in one that follows the number.
double ForceFrom(const std::string& text, const Data::CUnit& units) {
  if (text.empty()) return 0.0;
  double factor = 1.0 / units.Conversion(Dimension::force);
  std::optional<double> number = ParseDouble(text);
  for (std::size_t i = 1; i < text.size() && !number; ++i) {
    const std::string_view view = text;
    const std::size_t unit = std::min(view.size(), view.find_first_not_of(' ', i));
    const auto toSi = FactorToSi(view.substr(unit), Dimension::force);
    if (!toSi) continue;
    number = ParseDouble(view.substr(0, i));
    factor = *toSi;
  }
  const double force = number ? *number * factor : 0.0;
  if (!number || !std::isfinite(force)) {
    throw CommandError("--axial " + text + ": give a force, such as -800 in the document's unit " +
                       "or -800kN; tension is positive");
  }
  return force;
}

// The ending of a file in small letters.
std::string EndingOf(const std::filesystem::path& path) {
  std::string ending = path.extension().string();
  std::transform(ending.begin(), ending.end(), ending.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return ending;
}

constexpr std::array<std::string_view, 2> kTexts = {".csv", ".json"};

void CheckEnding(const std::string& out) {
  if (std::find(kTexts.begin(), kTexts.end(), EndingOf(out)) != kTexts.end()) return;
  if (Plot::PictureFormatOf(out)) return;
  std::string list;
  for (const std::string_view ending : kTexts) list += std::string(ending) + ", ";
  throw CommandError(out + ": the ending of the file says what is written; known are " + list +
                     Plot::kPictureEndings);
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
  request.axial = ForceFrom(arguments.axial, units);
  request.points = arguments.points;
  request.state = arguments.service ? LoadState::SLS : LoadState::ULS;
  return request;
}

int Run(const Arguments& arguments) {
  if (!arguments.file.out.empty()) {
    CheckEnding(arguments.file.out);
    CheckIsNotDocument(arguments.file.out, arguments.document);
  }
  const InterruptGuard guard;
  VelmoApp app = OpenForUse(arguments.document);
  const Data::CVelmoData& document = *app.pData();
  DiagramPlace place;
  place.iSec = OneOf(arguments.section, document.NumSections(), "section");
  const auto& tasks = document.Section(place.iSec).Tasks();
  place.iTask = OneOf(arguments.task, static_cast<int>(tasks.size()), "task");
  const DiagramRequest request = RequestFrom(arguments, document.Units());

  const std::string prefix = "section " + std::to_string(place.iSec + 1) + ", task " +
                             std::to_string(place.iTask + 1) + ": ";
  std::vector<std::string> messages = PrepareTask(app, place.iSec, place.iTask);
  Diagram diagram;
  std::string message;
  if (messages.empty() && !app.GetDiagram(place.iSec, place.iTask, request, diagram, message)) {
    messages.push_back(message);
  }
  for (const std::string& line : messages) std::cerr << prefix << line << '\n';
  if (!messages.empty()) return kProblems;

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
                   "it; 0 without it")
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
