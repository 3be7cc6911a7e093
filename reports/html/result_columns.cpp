#include "reports/html/result_columns.h"

#include <cmath>
#include <numbers>
#include <numeric>
#include <stdexcept>

#include "model/oxdata/section/section_properties.h"
#include "plot/drawing_text.h"
#include "results/NeutralAxisCalculator.h"

namespace Orlix::Velmo {

namespace {

Columns StressColumns(const ReportText& text) {
  const std::string stress = text.Unit(Dimension::stress);
  return {{"Outlines least stress", stress},
          {"Outlines largest stress", stress},
          {"Bars least stress", stress},
          {"Bars largest stress", stress}};
}

void AppendStresses(Cells& cells, const ReportText& text,
                    const Data::Velmo9::StressStrainSummary& summary) {
  double largest = 0.0;
  const auto widen = [&](const Data::Velmo9::StressStrain& extremes) {
    largest = std::fmax(largest, std::fmax(std::abs(extremes.minStress), extremes.maxStress));
  };
  if (summary.HasConcrete()) widen(summary.Concrete());
  if (summary.HasRebar()) widen(summary.Rebar());
  const auto add = [&](bool isThere, double value) {
    cells.push_back(isThere ? text.Value(Plot::Snapped(value, largest), Dimension::stress) : "-");
  };
  add(summary.HasConcrete(), summary.Concrete().minStress);
  add(summary.HasConcrete(), summary.Concrete().maxStress);
  add(summary.HasRebar(), summary.Rebar().minStress);
  add(summary.HasRebar(), summary.Rebar().maxStress);
}

}  // namespace

TaskContext::TaskContext(const VelmoApp& ofApp, int ofSection, int ofTask)
    : app(ofApp),
      task(ofApp.pData()->Section(ofSection).Task(ofTask)),
      text(*ofApp.pData()),
      iSec(ofSection),
      iTask(ofTask),
      isLoad(task.Action() == LoadAction::load),
      area(Data::SectionPropertiesOf(ofApp.pData()->Section(ofSection)).gross.area),
      hasPhi(ofApp.pData()->concreteCode().IsStrengthReduction()),
      hasCrackWidth(ofApp.pData()->concreteCode().IsCrackWidthCode() &&
                    ofApp.pData()->Section(ofSection).hasConcreteComponent(ofTask)) {}

std::vector<int> AllCases(const Data::Velmo9::AnalysisTask& task) {
  std::vector<int> cases(static_cast<std::size_t>(task.NumCases()));
  std::iota(cases.begin(), cases.end(), 0);
  return cases;
}

std::vector<int> First(std::vector<int> cases, std::size_t most) {
  if (cases.size() > most) cases.resize(most);
  return cases;
}

std::vector<VelmoApp::CaseRecords> RecordsOf(const TaskContext& c, const std::vector<int>& cases,
                                             LoadState state) {
  Data::Velmo9::OutputOptions options;
  if (state == LoadState::ULS) {
    options.uls = Data::Velmo9::UlsOutputOptions(true);
  } else {
    options.sls = Data::Velmo9::SlsOutputOptions(true);
  }
  std::vector<VelmoApp::CaseRecords> records;
  std::string message;
  if (!c.app.CompileCaseResults(c.iSec, c.iTask, cases, message, records, options)) {
    throw std::runtime_error(message);
  }
  return records;
}

std::string ShownText(const TaskContext& c, std::size_t mostRows) {
  const auto count = static_cast<std::size_t>(c.task.NumCases());
  if (count <= mostRows) return "all cases";
  return "the worst " + std::to_string(mostRows) + " of " + std::to_string(count) + " cases";
}

Columns InputColumns(const TaskContext& c) {
  Columns columns{{"Case", "", false}};
  AppendColumns(columns, c.isLoad ? LoadColumns(c.text) : PlaneColumns(c.text));
  return columns;
}

Cells InputCells(const TaskContext& c, int iCase) {
  const Vec3<double>& input = c.task.Cases()[static_cast<std::size_t>(iCase)].input;
  Cells cells{ReportText::CaseName(c.task, iCase)};
  AppendThree(cells, c.isLoad ? c.text.Load(input) : c.text.Plane(input));
  return cells;
}

Columns LoadColumns(const ReportText& text, const std::string& suffix) {
  return {{"N" + suffix, text.Unit(Dimension::force)},
          {"Myy" + suffix, text.Unit(Dimension::moment)},
          {"Mzz" + suffix, text.Unit(Dimension::moment)}};
}

Columns PlaneColumns(const ReportText& text) {
  return {{"eps0", text.Unit(Dimension::strain)},
          {"kyy", text.Unit(Dimension::curvature)},
          {"kzz", text.Unit(Dimension::curvature)}};
}

void AppendThree(Cells& cells, const std::array<std::string, 3>& three) {
  cells.insert(cells.end(), three.begin(), three.end());
}

void AppendColumns(Columns& columns, const Columns& more) {
  columns.insert(columns.end(), more.begin(), more.end());
}

Columns AnswerColumns(const TaskContext& c) {
  Columns columns{{"Case", "", false}};
  AppendColumns(columns, c.isLoad ? PlaneColumns(c.text) : LoadColumns(c.text));
  AppendColumns(columns, {{"Neutral axis angle", "°"},
                          {"offset", c.text.Unit(Dimension::sectionDimensions)}});
  AppendColumns(columns, StressColumns(c.text));
  return columns;
}

void AppendAnswer(Cells& cells, const TaskContext& c, const Data::Velmo9::Deformation& plane,
                  const Data::Velmo9::StressStrainSummary& summary) {
  const NeutralAxisData axis = NeutralAxisCalculator::ComputeNeutralAxisData(plane);
  const double angle = axis.angle * 180.0 / std::numbers::pi;
  cells.push_back(Plot::NumberText(Plot::Snapped(angle, 1.0)));
  cells.push_back(c.text.Place(axis.offset, c.area));
  AppendStresses(cells, c.text, summary);
}

}  // namespace Orlix::Velmo
