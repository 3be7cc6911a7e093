#include "reports/csv/CsvBuilder.h"

#include <rapidjson/document.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <span>
#include <utility>

#include "app/model_indices.h"
#include "model/vlsol/Solver.h"

namespace Orlix::Velmo {

using Data::CSecComp;
using Data::Velmo9::OutputOptions;
using Data::Velmo9::VelmoSection;

namespace {

constexpr std::int64_t kFirstSlsId = 50;

// A name of a front end's list: the flag of each limit state, null where it has none.
struct OptionName {
  std::string_view name;
  bool ULSOptions::*uls;
  bool SLSOptions::*sls;
};

constexpr OptionName kOptionNames[] = {
    {"stressStrainProfile", &ULSOptions::stressStrainProfile, &SLSOptions::stressStrainProfile},
    {"stressStrainRebar", &ULSOptions::stressStrainRebar, &SLSOptions::stressStrainRebar},
    {"appliedLoad", &ULSOptions::appliedLoad, &SLSOptions::appliedLoad},
    {"appliedDeformation", &ULSOptions::appliedDeformation, &SLSOptions::appliedDeformation},
    {"responseDeformation", &ULSOptions::responseDeformation, &SLSOptions::responseDeformation},
    {"responseLoad", &ULSOptions::responseLoad, &SLSOptions::responseLoad},
    {"failureLoad", &ULSOptions::failureLoad, nullptr},
    {"failureDeformation", &ULSOptions::failureDeformation, nullptr},
    {"interpolatedStrainPlane", nullptr, &SLSOptions::interpolatedStrainPlane},
    {"stiffness", nullptr, &SLSOptions::stiffness},
    {"crackResults", nullptr, &SLSOptions::crackResults},
    {"crackResultsPerFace", nullptr, &SLSOptions::crackResultsPerFace},
};

void Select(std::string_view name, std::int64_t id, CsvOptions& options) {
  const auto* found = std::ranges::find(kOptionNames, name, &OptionName::name);
  if (found == std::end(kOptionNames)) return;
  if (found->sls == nullptr || (found->uls != nullptr && id < kFirstSlsId)) {
    options.uls.*found->uls = true;
  } else {
    options.sls.*found->sls = true;
  }
}

// Asks the application for the records of cases, a block at a time, and calls use(record) with
// each in turn. Each call has a price of its own, while records with all their points are large.
template <class Use>
void ForEachRecord(const VelmoApp& app, int iSec, int iTask, std::span<const int> cases,
                   const OutputOptions& options, Use use) {
  const bool hasPoints = options.uls.pointResults || options.sls.pointResults;
  const std::size_t block = hasPoints ? 1024 : 16384;
  for (std::size_t begin = 0; begin < cases.size(); begin += block) {
    const auto some = cases.subspan(begin, std::min(block, cases.size() - begin));
    std::vector<VelmoApp::CaseRecords> records;
    std::string message;
    if (!app.CompileCaseResults(iSec, iTask, {some.begin(), some.end()}, message, records,
                                options)) {
      records.resize(some.size());  // no such task: default records, as of a case that is not there
      for (std::size_t i = 0; i < some.size(); ++i) records[i].first = some[i];
    }
    for (VelmoApp::CaseRecords& record : records) use(record);
  }
}

// Leaves point results, by far the largest part of a record, out of what a builder asks for while
// its report does not show them. Everything is asked for again behind it.
class WithoutUnshownPoints {
 public:
  WithoutUnshownPoints(OutputOptions& wanted, const CsvOptions& shown) : wanted_(wanted) {
    wanted.uls.pointResults = shown.uls.stressStrainProfile || shown.uls.stressStrainRebar;
    wanted.sls.pointResults = shown.sls.stressStrainProfile || shown.sls.stressStrainRebar;
  }
  WithoutUnshownPoints(const WithoutUnshownPoints&) = delete;
  WithoutUnshownPoints& operator=(const WithoutUnshownPoints&) = delete;
  ~WithoutUnshownPoints() {
    wanted_.uls.pointResults = true;
    wanted_.sls.pointResults = true;
  }

 private:
  OutputOptions& wanted_;
};

}  // namespace

CsvBuilder::CsvBuilder(VelmoApp& app) : app_(app), wanted_(true), row_(app.pData()->Units()) {}

CsvOptions CsvBuilder::GetCsvOptions(const Util::JsonValue& json) {
  CsvOptions options;
  if (!json.IsArray()) return options;
  for (const Util::JsonValue& element : json.GetArray()) {
    if (!element.IsObject()) continue;
    const auto name = element.FindMember("varName");
    const auto id = element.FindMember("id");
    if (name == element.MemberEnd() || !name->value.IsString()) continue;
    if (id == element.MemberEnd() || !id->value.IsInt64()) continue;
    Select({name->value.GetString(), name->value.GetStringLength()}, id->value.GetInt64(), options);
  }
  return options;
}

std::vector<CsvBuilder::ULSCaseInformation> CsvBuilder::GenerateULSResults(
    int iSec, int iTask, const std::vector<int>& cases) {
  OutputOptions options;
  options.uls = wanted_.uls;
  std::vector<ULSCaseInformation> list;
  list.reserve(cases.size());
  const Data::CVelmoData& document = *app_.pData();
  const bool canFail =
      !HasTask(document, iSec, iTask) || document.Section(iSec).Task(iTask).ComputesULS();
  ForEachRecord(app_, iSec, iTask, cases, options, [&](VelmoApp::CaseRecords& record) {
    const int iCase = record.first;
    list.push_back({{iSec, iTask, iCase}, std::move(record.second.first)});
    if (!canFail) list.back().details.status = HasCase(document, iSec, iTask, iCase);
  });
  return list;
}

std::vector<CsvBuilder::SLSCaseInformation> CsvBuilder::GenerateSLSResults(
    int iSec, int iTask, const std::vector<int>& cases,
    const std::vector<ULSCaseInformation>& uls) {
  failedCases_.clear();
  std::vector<int> carried;
  carried.reserve(cases.size());
  for (std::size_t i = 0; i < cases.size(); ++i) {
    if (uls.at(i).details.status) {
      carried.push_back(cases[i]);
    } else {
      failedCases_.push_back(std::int64_t{cases[i]} + 1);
    }
  }
  OutputOptions options;
  options.sls = wanted_.sls;
  std::vector<SLSCaseInformation> list;
  list.reserve(carried.size());
  ForEachRecord(app_, iSec, iTask, carried, options, [&](VelmoApp::CaseRecords& record) {
    list.push_back({{iSec, iTask, record.first}, std::move(record.second.second)});
  });
  return list;
}

const std::vector<std::string>& CsvBuilder::BuildCaseDetails(int iSec, int iTask,
                                                             const std::vector<int>& cases,
                                                             const CsvOptions& options) {
  lines_.clear();
  const Data::CVelmoData& document = *app_.pData();
  const VelmoSection& section = document.Section(iSec);
  taskKind_ = static_cast<std::int32_t>(section.Task(iTask).Action());
  interpolatedModel_ = VlSol::Solver::IsInterpolatedModel(document, section);
  bs8110TensionModel_ = HasBS8110TensionModel(iSec);
  strengthReduction_ = document.concreteCode().IsStrengthReduction();
  row_ = CsvRow(document.Units());
  const WithoutUnshownPoints scope(wanted_, options);

  const UlsList uls = GenerateULSResults(iSec, iTask, cases);
  SlsList sls;
  if (options.IsAnySLSOptionSelected()) sls = GenerateSLSResults(iSec, iTask, cases, uls);

  AddUnits();
  if (!failedCases_.empty()) AddFailedCasesString();
  const std::pair<bool, void (CsvBuilder::*)(const UlsList&)> ulsTables[] = {
      {options.uls.appliedLoad, &CsvBuilder::AddUlsAppliedLoads},
      {options.uls.responseDeformation, &CsvBuilder::AddUlsResponseDeformations},
      {options.uls.appliedDeformation, &CsvBuilder::AddUlsAppliedDeformations},
      {options.uls.responseLoad, &CsvBuilder::AddUlsResponseLoads},
      {options.uls.failureLoad, &CsvBuilder::AddUlsFailureLoads},
      {options.uls.failureDeformation, &CsvBuilder::AddUlsFailureDeformations},
      {options.uls.stressStrainProfile, &CsvBuilder::AddUlsProfile},
      {options.uls.stressStrainRebar, &CsvBuilder::AddUlsRebar},
  };
  for (const auto& [isWanted, addTable] : ulsTables) {
    if (isWanted) (this->*addTable)(uls);
  }
  if (sls.empty()) return lines_;
  const std::pair<bool, void (CsvBuilder::*)(const SlsList&)> slsTables[] = {
      {options.sls.appliedLoad, &CsvBuilder::AddSlsAppliedLoads},
      {options.sls.responseDeformation, &CsvBuilder::AddSlsResponseDeformations},
      {options.sls.appliedDeformation, &CsvBuilder::AddSlsAppliedDeformations},
      {options.sls.responseLoad, &CsvBuilder::AddSlsResponseLoads},
      {options.sls.stressStrainProfile, &CsvBuilder::AddSlsProfile},
      {options.sls.stressStrainRebar, &CsvBuilder::AddSlsRebar},
      {options.sls.interpolatedStrainPlane, &CsvBuilder::AddSlsInterpolatedStrains},
      {options.sls.stiffness, &CsvBuilder::AddSlsStiffnesses},
  };
  for (const auto& [isWanted, addTable] : slsTables) {
    if (isWanted) (this->*addTable)(sls);
  }
  if (options.sls.crackResults) AddSlsCracks(sls, options.sls.crackResultsPerFace);
  return lines_;
}

bool CsvBuilder::HasBS8110TensionModel(int iSec) const {
  const Data::CVelmoData& document = *app_.pData();
  const auto materials = document.getMaterials();
  const auto& components = document.Section(iSec).Components();
  return std::any_of(components.begin(), components.end(), [&](const CSecComp& component) {
    const int grade = component.MaterialGrade();
    return component.MaterialType() == MatType::concrete &&
           materials->IsValidGrade(MatType::concrete, grade) &&
           materials->Grade(MatType::concrete, grade)
                   .Model(LoadState::SLS, LoadSign::compression) ==
               Data::Design::CurveKind::bs8110Tension;
  });
}

}  // namespace Orlix::Velmo
