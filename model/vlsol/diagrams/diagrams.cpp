#include "model/vlsol/diagrams/diagrams.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <stdexcept>

#include "model/vldata/document/governing_utilisation.h"
#include "model/vldata/response/SectionCompiler.h"
#include "model/vlsol/diagrams/closed_diagrams.h"
#include "model/vlsol/diagrams/moment_curvature.h"
#include "model/vlsol/diagrams/service_curvature.h"
#include "model/vlsol/sls.h"

namespace Orlix::VlSol {

using Data::Velmo9::AnalysisTask;
using Data::Velmo9::SectionCompiler;
using Data::Velmo9::SectionState;

namespace {

void Check(const DiagramRequest& request) {
  if (!std::isfinite(request.angle) || !std::isfinite(request.axial)) {
    throw std::invalid_argument("DiagramRequest: angle and axial force have to be finite");
  }
  if (request.points < DiagramRequest::kFewestPoints ||
      request.points > DiagramRequest::kMostPoints) {
    throw std::invalid_argument("DiagramRequest: that number of points is out of range");
  }
  if (request.state == LoadState::SLS && request.kind != DiagramKind::momentCurvature) {
    throw std::invalid_argument("DiagramRequest: failure is of the ultimate limit state");
  }
}

// A load as the diagram shows it.
DiagramLoad Projected(const Diagram& diagram, const Vec3<double>& load, double size) {
  DiagramLoad shown;
  shown.load = load;
  const double c = std::cos(diagram.angle);
  const double s = std::sin(diagram.angle);
  if (diagram.kind == DiagramKind::axialMoment) {
    shown.at = {load.y * c + load.z * s, load.x};
    shown.outOfPlane = load.z * c - load.y * s;
  } else {
    shown.at = {load.y, load.z};
    shown.outOfPlane = load.x - diagram.axial;
  }
  constexpr double kRoundOff = 1e-9;  // of the diagram's size
  shown.isInPlane = std::abs(shown.outOfPlane) <= kRoundOff * size;
  return shown;
}

// What a distance from the diagram's plane is compared with.
double SizeOf(const Diagram& diagram) {
  double size = 0.0;
  for (const DiagramPoint& p : diagram.nominal) {
    const bool isOfMoments = diagram.kind == DiagramKind::axialMoment;
    size = std::max(size, isOfMoments ? std::abs(p.at.x) : std::abs(p.load.x));
  }
  return size;
}

void AddLoads(const AnalysisTask& task, Diagram& diagram) {
  const double size = SizeOf(diagram);
  std::size_t governing = 0;
  for (int i = 0; i < task.NumCases(); ++i) {
    const bool isSolved = task.IsCaseAnalysed(i);
    const Data::Velmo9::UlSResult result = task.ULSResult(i, false);
    const bool isLoad = task.Action() == LoadAction::load;
    if (!isSolved && !isLoad) continue;  // the load of an imposed plane is a result
    const Vec3<double> load =
        isLoad ? task.Cases()[static_cast<std::size_t>(i)].input : result.Load().Vector();
    DiagramLoad shown = Projected(diagram, load, size);
    shown.iCase = i;
    shown.utilisation = isSolved ? GoverningUtilisation(result, task.Action())
                                 : std::numeric_limits<double>::quiet_NaN();
    shown.isCarried = isSolved && !result.IsFail();
    diagram.loads.push_back(shown);
    const double most = diagram.loads[governing].utilisation;
    if (shown.utilisation > most || !(most >= 0.0)) governing = diagram.loads.size() - 1;
  }
  if (!diagram.loads.empty() && diagram.loads[governing].utilisation >= 0.0) {
    diagram.loads[governing].isGoverning = true;
  }
}

}  // namespace

const char* NameOf(DiagramMark mark) {
  switch (mark) {
    case DiagramMark::none:
      break;
    case DiagramMark::pureCompression:
      return "pure compression";
    case DiagramMark::decompression:
      return "decompression";
    case DiagramMark::balanced:
      return "balanced";
    case DiagramMark::pureBending:
      return "pure bending";
    case DiagramMark::pureTension:
      return "pure tension";
    case DiagramMark::axialCap:
      return "axial cap";
    case DiagramMark::start:
      return "start";
    case DiagramMark::cracking:
      return "cracking";
    case DiagramMark::firstYield:
      return "first yield";
    case DiagramMark::peak:
      return "peak";
    case DiagramMark::failure:
      return "failure";
    case DiagramMark::axialLost:
      return "axial force lost";
  }
  return "";
}

Diagram DiagramOf(const Numeric::CompiledSection& section, const DiagramRequest& request,
                  const StrengthReduction* reduction) {
  Check(request);
  switch (request.kind) {
    case DiagramKind::axialMoment:
      return AxialMomentDiagram(section, request, reduction);
    case DiagramKind::biaxialMoment:
      return BiaxialMomentDiagram(section, request, reduction);
    case DiagramKind::momentCurvature:
      break;
  }
  return MomentCurvatureDiagram(section, request, reduction);
}

Diagram DiagramOf(const Data::CVelmoData& document, const Data::Velmo9::VelmoSection& section,
                  int iTask, const DiagramRequest& request) {
  Check(request);
  const AnalysisTask& task = section.Task(iTask);
  Diagram diagram;
  diagram.kind = request.kind;
  diagram.angle = request.angle;
  diagram.axial = request.axial;
  diagram.state = request.state;
  const bool isService = request.state == LoadState::SLS;
  if (!(isService ? task.ComputesSLS() : task.ComputesULS())) {
    diagram.problem = DiagramProblem::notComputed;
    return diagram;
  }
  if (isService) {
    const auto model = SlsModel::Of(document, section, iTask);
    if (model) return ServiceCurvatureDiagram(*model, request);
    diagram.problem = DiagramProblem::notCompiled;
    return diagram;
  }
  const auto compiled = SectionCompiler::Compile(document, section, iTask, SectionState::ultimate);
  if (compiled == nullptr) {
    diagram.problem = DiagramProblem::notCompiled;
    return diagram;
  }
  const auto reduction = StrengthReductionOf(document, section, iTask, compiled->section);
  diagram = DiagramOf(compiled->section, request, reduction ? &*reduction : nullptr);
  if (diagram.IsClosed() && diagram.problem == DiagramProblem::none) AddLoads(task, diagram);
  return diagram;
}

}  // namespace Orlix::VlSol
