#include "reports/html/html_report.h"

#include <algorithm>
#include <vector>

#include "model/oxdata/section/section_properties.h"
#include "model/oxutil/text.h"
#include "model/vldata/document/used_grades.h"
#include "plot/drawing_text.h"
#include "reports/html/HtmlPage.h"
#include "reports/html/ReportText.h"
#include "reports/html/inputs_part.h"
#include "reports/html/sheets_part.h"
#include "reports/html/sls_tables.h"
#include "reports/html/uls_tables.h"

namespace Orlix::Velmo {

namespace {

using Data::CVelmoData;
using Data::Velmo9::AnalysisTask;

std::string NumberAndName(int index, const std::string& name) {
  const std::string number = std::to_string(index + 1);
  return name.empty() ? number : number + " “" + name + "”";
}

void AddHead(const VelmoApp& app, int iSec, int iTask, const HtmlReportOptions& options,
             HtmlPage& page) {
  const CVelmoData& document = *app.pData();
  const Data::CTitles& titles = document.Titles();
  const auto code = document.CodePointer();
  page.Facts({{"Project", titles.project},
              {"Part", titles.part},
              {"Description", titles.description},
              {"Job number", titles.jobNumber},
              {"By", titles.initials},
              {"Section", NumberAndName(iSec, to_string(document.Section(iSec).Name()))},
              {"Task", NumberAndName(iTask, document.Section(iSec).Task(iTask).Name())},
              {"Design code", code->name + (code->annex.empty() ? "" : " (" + code->annex + ")")},
              {"Document", document.FilePath().filename().string()},
              {"Document's identity", document.ModelId()},
              {"Made", options.date},
              {"Program", "velmo " + options.version}});
}

void AddChecks(const std::vector<std::string>& messages, HtmlPage& page) {
  page.Heading("Checks before the solution");
  if (messages.empty()) {
    page.Paragraph(
        "Passed: materials and grades, stress-strain curves, outlines, bars and their "
        "descriptions, components of the task, phi factors and component preload.");
    return;
  }
  page.Verdict("NOT SOLVED: what the checks found has to be put right first.");
  page.List(messages);
}

// How far the program's own constants are from a printed code.
std::string SourcesText(const CVelmoData& document) {
  const auto code = document.CodePointer();
  const int all = static_cast<int>(code->constants.size());
  const int checked = Data::Design::CountConstants(*code, Data::Design::ConstantSource::compared);
  return "Constants of the design code: " + std::to_string(all) + ", of which " +
         std::to_string(checked) +
         " were compared with the printed text; the command velmo codes lists them with their "
         "clauses.";
}

void AddReadingRules(const VelmoApp& app, int iSec, int iTask, HtmlPage& page) {
  const CVelmoData& document = *app.pData();
  const AnalysisTask& task = document.Section(iSec).Task(iTask);
  const ReportText text(document);
  const auto unit = [&](Dimension dimension) { return text.Unit(dimension); };
  const auto gross = Data::SectionPropertiesOf(document.Section(iSec)).gross;
  std::vector<std::string> lines = {
      "Signs: tension is positive in forces, strains and stresses. Positive Myy puts tension on "
      "the +z side, positive Mzz on the -y side.",
      "Axes: y and z in the section, x along the member. Strains are eps0 + kyy z - kzz y.",
      "Loads act at the section's origin; the gross centroid is at y = " +
          text.Place(gross.centroid.x, gross.area) +
          ", z = " + text.Place(gross.centroid.y, gross.area) + " " +
          text.Unit(Dimension::sectionDimensions) + ".",
      "Units: forces " + unit(Dimension::force) + ", moments " + unit(Dimension::moment) +
          ", section dimensions " + unit(Dimension::sectionDimensions) + ", stresses " +
          unit(Dimension::stress) + ", strains " + unit(Dimension::strain) + ", curvatures " +
          unit(Dimension::curvature) + "."};
  if (task.ComputesULS()) {
    lines.push_back(
        task.Action() == LoadAction::load
            ? "Utilisation: the load over the load of the same ratios N : Myy : Mzz at which a "
              "strain limit is reached; up to 1 the case is carried. M/Mu: the same of the moments "
              "alone, at the given axial force."
            : "Utilisation: the strain plane over the plane of the same ratios at which a strain "
              "limit is reached; up to 1 it is borne.");
    if (document.concreteCode().IsStrengthReduction()) {
      lines.emplace_back("phi: strength reduction factor, part of the capacity.");
    }
  }
  if (task.ComputesSLS()) {
    lines.emplace_back(
        "Cracking: tension of the uncracked concrete over what it bears, above 1 it is cracked; "
        "zeta: 0 uncracked to 1 fully cracked; EI: secant stiffness, moment over curvature.");
    if (document.concreteCode().IsCrackWidthCode()) {
      lines.emplace_back(
          "Crack width: of the widest crack in an outer face of the concrete; "
          "faces of holes are not looked at.");
    }
  }
  lines.emplace_back("Neutral axis: angle from the y axis towards z, offset from the origin.");
  lines.push_back(SourcesText(document));
  page.Heading("How to read the numbers");
  page.List(lines);
}

}  // namespace

std::string HtmlReport(const VelmoApp& app, int iSec, int iTask, const HtmlReportOptions& options) {
  const TaskContext context(app, iSec, iTask);
  const AnalysisTask& task = context.task;
  HtmlPage page("Section analysis: " +
                NumberAndName(iSec, to_string(app.pData()->Section(iSec).Name())));
  AddHead(app, iSec, iTask, options, page);
  std::vector<std::string> messages;
  app.preSolutionChecksPassed(messages, iSec, iTask);
  const bool hasCases = task.NumCases() > 0 && (task.ComputesULS() || task.ComputesSLS());
  const bool isSolved = messages.empty() && hasCases && task.IsCaseAnalysed(0);
  if (isSolved) {
    if (task.ComputesULS()) page.Verdict(UlsVerdict(context));
    if (task.ComputesSLS()) page.Verdict(SlsVerdict(context));
  } else if (messages.empty()) {
    page.Verdict(hasCases ? "NOT SOLVED: the task has no results."
                          : "NOTHING TO SOLVE: the task has no cases or no limit state.");
  }
  AddChecks(messages, page);
  for (const std::string& line : Data::ForeignFactors(*app.pData(), app.pData()->Section(iSec))) {
    page.Verdict("Factors not of the code: " + line);
  }
  if (isSolved) {
    page.Heading("Governing cases");
    if (task.ComputesULS()) AddUlsGoverning(context, page);
    if (task.ComputesSLS()) AddSlsGoverning(context, page);
  }
  AddInputs(app, iSec, iTask, page);
  if (messages.empty()) AddSectionSheet(app, iSec, page);
  if (isSolved) {
    AddResultSheets(app, iSec, iTask, page);
    page.Heading("Cases");
    if (task.ComputesULS()) AddUlsTable(context, options.mostRows, page);
    if (task.ComputesSLS()) AddSlsTable(context, options.mostRows, page);
  }
  AddReadingRules(app, iSec, iTask, page);
  return page.Finish();
}

}  // namespace Orlix::Velmo
