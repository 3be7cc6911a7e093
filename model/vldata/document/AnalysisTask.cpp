#include "model/vldata/document/AnalysisTask.h"

#include <stdexcept>
#include <utility>

#include "model/oxutil/json.h"
#include "model/vldata/json/json_values.h"

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

}  // namespace

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

void AnalysisTask::SetCaseInput(int iCase, const Vec3<double>& input) {
  if (iCase < 0) throw std::out_of_range("no such case");
  cases_.at(static_cast<std::size_t>(iCase)).input = input;
}

bool AnalysisTask::IsCaseAnalysed(int iCase) const {
  if (!results_ || !computesUls_ || results_->action != action_ || iCase < 0) return false;
  const auto index = static_cast<std::size_t>(iCase);
  return index < cases_.size() && index < results_->uls.size() &&
         results_->uls[index].input == cases_[index].input;
}

UlSResult AnalysisTask::ULSResult(int iCase, bool withDetails) const {
  if (!computesUls_) return UlSResult::NotAskedFor();
  if (!IsCaseAnalysed(iCase)) return {};
  return {results_->uls[static_cast<std::size_t>(iCase)],
          withDetails ? results_->ulsComponents : nullptr};
}

Util::JsonValue AnalysisTask::toJson(Util::JsonAllocator& allocator, bool withCases, bool withNames,
                                     unsigned long long firstCase) const {
  Util::JsonValue json(rapidjson::kObjectType);
  if (withNames) AddText(json, "name", name_, allocator);
  AddFlag(json, "uls", computesUls_, allocator);
  AddFlag(json, "sls", computesSls_, allocator);
  AddText(json, "action", std::string_view(action_ == LoadAction::load ? "load" : "deformation"),
          allocator);
  if (includesAll_) {
    AddText(json, "components", std::string_view("all"), allocator);
  } else {
    Util::JsonValue numbers(rapidjson::kArrayType);
    for (const int component : included_) numbers.PushBack(component + 1, allocator);
    AddMember(json, "components", numbers, allocator);
  }
  if (!withCases) return json;
  Util::JsonValue cases(rapidjson::kArrayType);
  for (auto i = firstCase; i < cases_.size(); ++i) {
    cases.PushBack(CaseToJson(cases_[i], action_, withNames, allocator), allocator);
  }
  AddMember(json, "cases", cases, allocator);
  return json;
}

}  // namespace Orlix::Data::Velmo9
