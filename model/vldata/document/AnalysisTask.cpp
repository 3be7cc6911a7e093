#include "model/vldata/document/AnalysisTask.h"

#include <cmath>
#include <stdexcept>
#include <utility>

#include "model/oxutil/json.h"
#include "model/vldata/json/json_values.h"
#include "model/vldata/json/task_names.h"

namespace Orlix::Data::Velmo9 {
namespace {

Util::JsonValue CaseToJson(const TaskCase& taskCase, LoadAction action, bool withName,
                           Util::JsonAllocator& allocator) {
  Util::JsonValue json(rapidjson::kObjectType);
  if (withName) AddText(json, "name", taskCase.name, allocator);
  const bool isLoad = action == LoadAction::load;
  AddNumber(json, isLoad ? "N" : "eps", taskCase.input.x, allocator);
  AddNumber(json, isLoad ? "Myy" : "kyy", taskCase.input.y, allocator);
  AddNumber(json, isLoad ? "Mzz" : "kzz", taskCase.input.z, allocator);
  return json;
}

// Members that have their defaults are left out.
void AddCreep(Util::JsonValue& json, const CreepSettings& creep, Util::JsonAllocator& allocator) {
  if (creep.term != LoadTerm::shortTerm) {
    for (const auto& [name, term] : kLoadTermNames) {
      if (term == creep.term) AddText(json, "loadTerm", name, allocator);
    }
  }
  if (creep.creepCoefficient != 0.0) AddNumber(json, "creep", creep.creepCoefficient, allocator);
  if (creep.term == LoadTerm::intermediate) {
    AddNumber(json, "longTermShare", creep.longTermShare, allocator);
  }
}

void AddPhiFactors(Util::JsonValue& json, const CustomPhi& phi, Util::JsonAllocator& allocator) {
  Util::JsonValue value(rapidjson::kObjectType);
  for (const auto& [name, member] : kPhiMembers) AddNumber(value, name, phi.*member, allocator);
  AddMember(json, "phiFactors", value, allocator);
}

void AddComponentNumbers(Util::JsonValue& json, const char* name, const std::set<int>& components,
                         Util::JsonAllocator& allocator) {
  Util::JsonValue numbers(rapidjson::kArrayType);
  for (const int component : components) numbers.PushBack(component + 1, allocator);
  AddMember(json, name, numbers, allocator);
}

void AddPreload(Util::JsonValue& json, const PreloadReference& from,
                Util::JsonAllocator& allocator) {
  Util::JsonValue value(rapidjson::kObjectType);
  value.AddMember("task", from.task, allocator);
  value.AddMember("case", from.iCase, allocator);
  if (!from.barsAddedLater.empty()) {
    AddComponentNumbers(value, "barsAddedLater", from.barsAddedLater, allocator);
  }
  AddMember(json, "preload", value, allocator);
}

// Whether a limit state has, for a case, a solution of its input.
template <class Solution>
bool IsSolved(const std::vector<Solution>& solutions, std::size_t index, const TaskCase& of) {
  if (index >= solutions.size()) return false;
  // An input that is not a number is solved, too: as a case that fails.
  const auto same = [](double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); };
  const Vec3<double>& solved = solutions[index].input;
  return same(solved.x, of.input.x) && same(solved.y, of.input.y) && same(solved.z, of.input.z);
}

}  // namespace

double CreepSettings::LongShare() const {
  switch (term) {
    case LoadTerm::shortTerm:
      return 0.0;
    case LoadTerm::longTerm:
      return 1.0;
    case LoadTerm::intermediate:
      break;
  }
  return longTermShare;
}

void AnalysisTask::SetLimitStates(bool uls, bool sls) {
  computesUls_ = uls;
  computesSls_ = sls;
}

bool AnalysisTask::IncludesComponent(int component) const {
  return includesAll_ || included_.contains(component);
}

void AnalysisTask::SetIncludedComponents(std::set<int> components) {
  includesAll_ = false;
  included_ = std::move(components);
}

void AnalysisTask::IncludeAllComponents() {
  includesAll_ = true;
  included_.clear();
}

std::optional<ComponentPreload> AnalysisTask::PreloadOf(int component) const {
  if (!preloadFrom_) return std::nullopt;
  return ComponentPreload{preloadFrom_->barsAddedLater.contains(component)};
}

void AnalysisTask::SetCaseInput(int iCase, const Vec3<double>& input) {
  const auto index = static_cast<std::size_t>(iCase);
  if (index >= Cases().size()) throw std::out_of_range("no such case");
  cases_.Own()[index].input = input;
}

bool AnalysisTask::IsCaseAnalysed(int iCase) const {
  if (!results_ || results_->action != action_ || iCase < 0) return false;
  const auto index = static_cast<std::size_t>(iCase);
  if (index >= Cases().size() || !(computesUls_ || computesSls_)) return false;
  return (!computesUls_ || IsSolved(results_->uls, index, Cases()[index])) &&
         (!computesSls_ || IsSolved(results_->sls, index, Cases()[index]));
}

UlSResult AnalysisTask::ULSResult(int iCase, bool withDetails) const {
  if (!computesUls_) return UlSResult::NotAskedFor();
  if (!IsCaseAnalysed(iCase)) return {};
  return {results_->uls[static_cast<std::size_t>(iCase)],
          withDetails ? results_->ulsComponents : nullptr};
}

Velmo9::SLSResult AnalysisTask::SLSResult(int iCase, bool withCrackWidth, bool withCracked,
                                          bool withDetails) const {
  if (!computesSls_) return Velmo9::SLSResult::NotAskedFor();
  if (!IsCaseAnalysed(iCase)) return {};
  SlsCaseSolution solution = results_->sls[static_cast<std::size_t>(iCase)];
  if (!withCrackWidth) solution.crackWidth = SlsCaseSolution().crackWidth;
  if (!withCracked) {
    solution.cracked = solution.uncracked;
    solution.crackedLoad = solution.uncrackedLoad;
  }
  if (!withDetails) return {solution, nullptr, nullptr};
  // Under a load that does not crack the section its one state is that of uncracked concrete.
  const bool staysWhole = action_ == LoadAction::load && solution.crackingUtilisation <= 1.0;
  return {solution, results_->uncrackedComponents,
          withCracked && !staysWhole ? results_->crackedComponents : results_->uncrackedComponents};
}

Util::JsonValue AnalysisTask::toJson(Util::JsonAllocator& allocator, bool withCases, bool withNames,
                                     unsigned long long firstCase) const {
  Util::JsonValue json(rapidjson::kObjectType);
  if (withNames) AddText(json, "name", name_, allocator);
  AddFlag(json, "uls", computesUls_, allocator);
  AddFlag(json, "sls", computesSls_, allocator);
  AddText(json, "action", std::string_view(action_ == LoadAction::load ? "load" : "deformation"),
          allocator);
  AddCreep(json, creep_, allocator);
  if (phi_) AddPhiFactors(json, *phi_, allocator);
  if (includesAll_) {
    AddText(json, "components", std::string_view("all"), allocator);
  } else {
    AddComponentNumbers(json, "components", included_, allocator);
  }
  if (preloadFrom_) AddPreload(json, *preloadFrom_, allocator);
  if (!withCases) return json;
  Util::JsonValue cases(rapidjson::kArrayType);
  for (auto i = firstCase; i < Cases().size(); ++i) {
    cases.PushBack(CaseToJson(Cases()[i], action_, withNames, allocator), allocator);
  }
  AddMember(json, "cases", cases, allocator);
  return json;
}

}  // namespace Orlix::Data::Velmo9
