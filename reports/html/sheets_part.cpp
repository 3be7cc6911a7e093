#include "reports/html/sheets_part.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "model/vlsol/diagrams/diagrams.h"
#include "plot/diagram_picture.h"
#include "plot/section_picture.h"
#include "reports/html/ReportText.h"
#include "reports/html/sls_tables.h"
#include "reports/html/uls_tables.h"

namespace Orlix::Velmo {

namespace {

using Data::Velmo9::AnalysisTask;
using VlSol::DiagramKind;
using VlSol::DiagramRequest;

// Ids of the drawings of one page may not meet.
Plot::PictureOptions SvgOptions(const std::string& prefix) {
  Plot::PictureOptions options;
  options.idPrefix = prefix + "-";
  return options;
}

void AddCaseSheet(const VelmoApp& app, int iSec, const Plot::PictureCase& ofCase,
                  const std::string& limitState, const std::string& remark, HtmlPage& page) {
  const AnalysisTask& task = app.pData()->Section(iSec).Task(ofCase.iTask);
  std::string caption = "Governing case of the " + limitState + " limit state: case " +
                        ReportText::CaseName(task, ofCase.iCase) + remark;
  page.Sheet(Plot::SectionPicture(app, iSec, ofCase, SvgOptions(limitState)), caption + ".");
}

// Where there are no strains under the load, those at failure show why.
Plot::SectionState UlsState(const Data::Velmo9::UlSResult& result) {
  const bool hasFailure = result.DeformationAtFailure().Vector() != Vec3<double>{};
  return result.IsFail() && hasFailure ? Plot::SectionState::atFailure
                                       : Plot::SectionState::underLoad;
}

void AddUlsCaseSheet(const VelmoApp& app, int iSec, int iTask, int iCase, HtmlPage& page) {
  const AnalysisTask& task = app.pData()->Section(iSec).Task(iTask);
  const Plot::SectionState state = UlsState(task.ULSResult(iCase, false));
  const bool isFailure = state == Plot::SectionState::atFailure;
  AddCaseSheet(app, iSec, {iTask, iCase, state}, "ultimate",
               isFailure ? ", not carried; at its failure load" : "", page);
}

// The worst of the cases that have a solution: nothing can be drawn of the others, which the tables
// name first.
void AddSlsCaseSheet(const VelmoApp& app, int iSec, int iTask, HtmlPage& page) {
  const AnalysisTask& task = app.pData()->Section(iSec).Task(iTask);
  const std::vector<int> ranked = RankedSls(task);
  const auto solved = std::ranges::find_if(
      ranked, [&](int iCase) { return !task.SLSResult(iCase, true, true, false).IsFail(); });
  const int iCase = solved == ranked.end() ? ranked.front() : *solved;
  const bool isCracked = task.SLSResult(iCase, true, true, false).CrackingUtilisation() > 1.0;
  std::string remark;
  if (solved == ranked.end()) {
    remark = ", without a solution";
  } else if (solved != ranked.begin()) {
    remark = ", the worst of those that have a solution; case " +
             ReportText::CaseName(task, ranked.front()) + " has none";
  }
  AddCaseSheet(
      app, iSec,
      {iTask, iCase, isCracked ? Plot::SectionState::cracked : Plot::SectionState::uncracked},
      "serviceability", remark, page);
}

// Of a load whose moments are rounding of each other the direction of Myy.
double DirectionOf(const Vec3<double>& load) {
  const double moment = std::hypot(load.y, load.z);
  constexpr double kNone = 1e-9;  // of the axial force, at a lever of a metre
  return moment > kNone * std::abs(load.x) ? std::atan2(load.z, load.y) : 0.0;
}

void AddDiagram(const VelmoApp& app, int iSec, int iTask, const DiagramRequest& request,
                const std::string& prefix, const std::string& caption, HtmlPage& page) {
  const Data::CVelmoData& document = *app.pData();
  const VlSol::Diagram diagram = VlSol::DiagramOf(document, document.Section(iSec), iTask, request);
  if (diagram.nominal.empty()) return;  // there is none of this section, which the tables tell
  page.Sheet(Plot::DiagramPicture(app, iSec, iTask, diagram, SvgOptions(prefix)), caption);
}

void AddDiagrams(const VelmoApp& app, int iSec, int iTask, int iCase, HtmlPage& page) {
  const AnalysisTask& task = app.pData()->Section(iSec).Task(iTask);
  const ReportText text(*app.pData());
  const Vec3<double> load = task.ULSResult(iCase, false).Load().Vector();
  const std::string ofCase = " of case " + ReportText::CaseName(task, iCase) + ".";
  DiagramRequest request;
  request.angle = DirectionOf(load);
  AddDiagram(app, iSec, iTask, request, "axial-moment",
             "Axial force and moment in the direction of the moment" + ofCase, page);
  request.kind = DiagramKind::biaxialMoment;
  request.axial = load.x;
  AddDiagram(app, iSec, iTask, request, "biaxial",
             "Moments about both axes at the axial force" + ofCase, page);
  request.kind = DiagramKind::momentCurvature;
  AddDiagram(app, iSec, iTask, request, "curvature",
             "Moment and curvature at the axial force and in the direction of the moment" + ofCase,
             page);
}

}  // namespace

void AddSectionSheet(const VelmoApp& app, int iSec, HtmlPage& page) {
  page.Sheet(Plot::SectionPicture(app, iSec, std::nullopt, SvgOptions("section")), "The section.");
}

void AddResultSheets(const VelmoApp& app, int iSec, int iTask, HtmlPage& page) {
  const AnalysisTask& task = app.pData()->Section(iSec).Task(iTask);
  if (task.ComputesULS()) {
    const int iCase = RankedUls(task).front();
    AddUlsCaseSheet(app, iSec, iTask, iCase, page);
    AddDiagrams(app, iSec, iTask, iCase, page);
  }
  if (task.ComputesSLS()) AddSlsCaseSheet(app, iSec, iTask, page);
}

}  // namespace Orlix::Velmo
