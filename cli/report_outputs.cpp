#include "cli/report_outputs.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <utility>

#include "cli/commands.h"
#include "model/vlsol/Solver.h"

namespace Orlix::Cli {

using Velmo::CsvOptions;
using Velmo::SLSOptions;
using Velmo::ULSOptions;

namespace {

/// What a task must have for a table to say something of it, besides its limit state.
enum class Needs { nothing, loads, deformations, interpolatedModel, crackWidths };

struct Output {
  std::string_view name;
  bool ULSOptions::*uls;  ///< null: a serviceability table
  bool SLSOptions::*sls;  ///< null: an ultimate limit state table
  Needs needs;
  std::string_view what;
};

using U = ULSOptions;
using S = SLSOptions;

// In the order of the report.
constexpr Output kOutputs[] = {
    {"uls.appliedLoad", &U::appliedLoad, nullptr, Needs::loads, "loads and load utilisations"},
    {"uls.responseDeformation", &U::responseDeformation, nullptr, Needs::loads,
     "deformations under the loads"},
    {"uls.appliedDeformation", &U::appliedDeformation, nullptr, Needs::deformations,
     "deformations and their utilisations"},
    {"uls.responseLoad", &U::responseLoad, nullptr, Needs::deformations,
     "loads under the deformations, M/Mu"},
    {"uls.failureLoad", &U::failureLoad, nullptr, Needs::nothing, "loads at failure, M/Mu"},
    {"uls.failureDeformation", &U::failureDeformation, nullptr, Needs::nothing,
     "deformations at failure"},
    {"uls.stressStrainProfile", &U::stressStrainProfile, nullptr, Needs::nothing,
     "stresses and strains of the outlines' vertices"},
    {"uls.stressStrainRebar", &U::stressStrainRebar, nullptr, Needs::nothing,
     "stresses, strains and forces of the bars"},
    {"sls.appliedLoad", nullptr, &S::appliedLoad, Needs::loads, "loads"},
    {"sls.responseDeformation", nullptr, &S::responseDeformation, Needs::loads,
     "deformations under the loads"},
    {"sls.appliedDeformation", nullptr, &S::appliedDeformation, Needs::deformations,
     "deformations"},
    {"sls.responseLoad", nullptr, &S::responseLoad, Needs::deformations,
     "loads under the deformations"},
    {"sls.stressStrainProfile", nullptr, &S::stressStrainProfile, Needs::nothing,
     "stresses and strains of the outlines' vertices"},
    {"sls.stressStrainRebar", nullptr, &S::stressStrainRebar, Needs::nothing,
     "stresses, strains and forces of the bars"},
    {"sls.interpolatedStrainPlane", nullptr, &S::interpolatedStrainPlane, Needs::interpolatedModel,
     "interpolated deformations and zeta"},
    {"sls.stiffness", nullptr, &S::stiffness, Needs::nothing, "secant stiffnesses"},
    {"sls.crackResults", nullptr, &S::crackResults, Needs::crackWidths, "cracks and their widths"},
    {"sls.crackResultsPerFace", nullptr, &S::crackResultsPerFace, Needs::crackWidths,
     "besides, the widest crack of each face"},
};

void Select(const Output& output, CsvOptions& options) {
  if (output.uls != nullptr) {
    options.uls.*output.uls = true;
  } else {
    options.sls.*output.sls = true;
  }
  // The table per face is part of that of all cracks.
  options.sls.crackResults = options.sls.crackResults || options.sls.crackResultsPerFace;
}

// Why a table says nothing of a task; empty when it does.
std::string Obstacle(const Output& output, const Data::CVelmoData& document, int iSec, int iTask) {
  const Data::Velmo9::VelmoSection& section = document.Section(iSec);
  const Data::Velmo9::AnalysisTask& task = section.Task(iTask);
  if (output.uls != nullptr && !task.ComputesULS()) return "the task does not compute ULS";
  if (output.sls != nullptr && !task.ComputesSLS()) return "the task does not compute SLS";
  const bool isLoad = task.Action() == LoadAction::load;
  if (output.needs == Needs::loads && !isLoad) return "the task's cases are deformations";
  if (output.needs == Needs::deformations && isLoad) return "the task's cases are loads";
  if (output.needs == Needs::interpolatedModel &&
      !VlSol::Solver::IsInterpolatedModel(document, section)) {
    return "no concrete of the section has the interpolated model";
  }
  if (output.needs == Needs::crackWidths) {
    if (!document.concreteCode().IsCrackWidthCode()) return "the code computes no crack widths";
    if (!section.hasConcreteComponent(iTask)) return "the task includes no concrete";
  }
  return "";
}

bool IsOfGroup(const Output& output, std::string_view group) {
  return group == "all" || output.name.substr(0, output.name.find('.')) == group;
}

void SelectGroup(std::string_view group, const Data::CVelmoData& document, int iSec, int iTask,
                 CsvOptions& options) {
  std::string obstacle;
  bool isAny = false;
  for (const Output& output : kOutputs) {
    if (!IsOfGroup(output, group)) continue;
    std::string here = Obstacle(output, document, iSec, iTask);
    isAny = isAny || here.empty();
    if (here.empty()) {
      Select(output, options);
    } else if (obstacle.empty()) {
      obstacle = std::move(here);
    }
  }
  if (!isAny) throw CommandError("no table of \"" + std::string(group) + "\": " + obstacle);
}

}  // namespace

std::string OutputNames() {
  std::string text;
  for (const Output& output : kOutputs) {
    constexpr std::size_t kWidth = 29;
    std::string name(output.name);
    name.resize(std::max(name.size(), kWidth), ' ');
    text.append("  ").append(name).append(output.what).append("\n");
  }
  return text;
}

CsvOptions OutputsFrom(std::string_view text, const Data::CVelmoData& document, int iSec,
                       int iTask) {
  CsvOptions options;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find(',', begin), text.size());
    const std::string_view name = text.substr(begin, end - begin);
    begin = end + 1;
    if (name == "all" || name == "uls" || name == "sls") {
      SelectGroup(name, document, iSec, iTask, options);
      continue;
    }
    const auto* found = std::ranges::find(kOutputs, name, &Output::name);
    if (found == std::end(kOutputs)) {
      throw CommandError("\"" + std::string(name) +
                         "\" is no output; `velmo report --help` lists them");
    }
    const std::string obstacle = Obstacle(*found, document, iSec, iTask);
    if (!obstacle.empty()) {
      throw CommandError(std::string(name) + " says nothing here: " + obstacle +
                         "; leave it out, or take \"all\" for what does");
    }
    Select(*found, options);
  }
  return options;
}

}  // namespace Orlix::Cli
