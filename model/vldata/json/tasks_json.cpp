#include "model/vldata/json/tasks_json.h"

#include <array>
#include <optional>
#include <set>

#include "model/oxutil/json.h"
#include "model/vldata/json/ObjectReader.h"
#include "model/vldata/json/task_names.h"

namespace Orlix::Data {
namespace {

using Velmo9::AnalysisTask;
using Velmo9::CreepSettings;
using Velmo9::CustomPhi;
using Velmo9::LoadTerm;
using Velmo9::TaskCase;

constexpr std::array<std::pair<std::string_view, LoadAction>, 2> kActionNames = {{
    {"load", LoadAction::load},
    {"deformation", LoadAction::deformation},
}};

TaskCase CaseFromJson(const Util::JsonValue& json, const JsonPath& path, LoadAction action,
                      ProblemList& problems) {
  ObjectReader reader(json, path, problems);
  TaskCase taskCase;
  taskCase.name = reader.Text("name").value_or("");
  const bool isLoad = action == LoadAction::load;
  taskCase.input.x = reader.Number(isLoad ? "N" : "eps").value_or(0.0);
  taskCase.input.y = reader.Number(isLoad ? "Myy" : "kyy").value_or(0.0);
  taskCase.input.z = reader.Number(isLoad ? "Mzz" : "kzz").value_or(0.0);
  reader.ReportUnknown();
  return taskCase;
}

CreepSettings CreepFrom(ObjectReader& reader) {
  CreepSettings creep;
  creep.term = reader.Choice<LoadTerm>("loadTerm", kLoadTermNames).value_or(creep.term);
  creep.creepCoefficient =
      reader.Number("creep", NumberRange::notNegative).value_or(creep.creepCoefficient);
  if (creep.term == LoadTerm::intermediate) {
    creep.longTermShare =
        reader.Number("longTermShare", NumberRange::zeroToOne).value_or(creep.longTermShare);
  } else if (reader.Find("longTermShare") != nullptr) {
    reader.Report("longTermShare", "a share with the load term \"intermediate\" alone");
  }
  return creep;
}

// Factors out of order or range are taken over as they are: the checks before a solution name them.
std::optional<CustomPhi> PhiFrom(const Util::JsonValue& json, const JsonPath& path,
                                 ProblemList& problems) {
  ObjectReader reader(json, path, problems);
  CustomPhi phi;
  bool isComplete = true;
  for (const auto& [name, member] : kPhiMembers) {
    const auto number = reader.Number(name);
    if (reader.Find(name) == nullptr) reader.Report(name, "a number");
    isComplete = isComplete && number.has_value();
    phi.*member = number.value_or(0.0);
  }
  reader.ReportUnknown();
  return isComplete ? std::optional(phi) : std::nullopt;
}

void ReadComponents(ObjectReader& reader, int numComponents, AnalysisTask& task) {
  const Util::JsonValue* value = reader.Find("components");
  if (value == nullptr) return;
  if (value->IsString() && std::string_view(value->GetString()) == "all") return;
  if (!value->IsArray()) {
    reader.Report("components", "\"all\" or an array of component numbers");
    return;
  }
  const std::string expected =
      "the number of a component, 1 to " + std::to_string(numComponents) + ", once each";
  const JsonPath path = reader.PathOf("components");
  std::set<int> included;
  for (rapidjson::SizeType i = 0; i < value->Size(); ++i) {
    const Util::JsonValue& number = (*value)[i];
    const bool isComponent =
        number.IsInt() && number.GetInt() >= 1 && number.GetInt() <= numComponents;
    if (!isComponent || !included.insert(number.GetInt() - 1).second) {
      reader.Problems().Add(path.Element(i), &number, expected);
    }
  }
  task.SetIncludedComponents(std::move(included));
}

}  // namespace

AnalysisTask TaskFromJson(const Util::JsonValue& json, const JsonPath& path, int numComponents,
                          ProblemList& problems) {
  ObjectReader reader(json, path, problems);
  AnalysisTask task;
  task.SetName(reader.Text("name").value_or(""));
  const bool uls = reader.Flag("uls").value_or(task.ComputesULS());
  const bool sls = reader.Flag("sls").value_or(task.ComputesSLS());
  task.SetLimitStates(uls, sls);
  task.SetAction(reader.Choice<LoadAction>("action", kActionNames).value_or(task.Action()));
  task.SetCreep(CreepFrom(reader));
  if (const Util::JsonValue* phi = reader.Object("phiFactors")) {
    task.SetPhiFactors(PhiFrom(*phi, reader.PathOf("phiFactors"), problems));
  }
  ReadComponents(reader, numComponents, task);
  if (const Util::JsonValue* cases = reader.Array("cases")) {
    const JsonPath casesPath = reader.PathOf("cases");
    for (rapidjson::SizeType i = 0; i < cases->Size(); ++i) {
      task.addCase(CaseFromJson((*cases)[i], casesPath.Element(i), task.Action(), problems));
    }
  }
  reader.ReportUnknown();
  return task;
}

}  // namespace Orlix::Data
