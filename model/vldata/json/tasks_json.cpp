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
using Velmo9::PreloadReference;
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

// The indices of the components whose numbers an array holds.
std::set<int> ComponentsFrom(const Util::JsonValue& array, const JsonPath& path, int numComponents,
                             ProblemList& problems) {
  const std::string expected =
      "the number of a component, 1 to " + std::to_string(numComponents) + ", once each";
  std::set<int> components;
  for (rapidjson::SizeType i = 0; i < array.Size(); ++i) {
    const Util::JsonValue& number = array[i];
    const bool isComponent =
        number.IsInt() && number.GetInt() >= 1 && number.GetInt() <= numComponents;
    if (!isComponent || !components.insert(number.GetInt() - 1).second) {
      problems.Add(path.Element(i), &number, expected);
    }
  }
  return components;
}

void ReadComponents(ObjectReader& reader, int numComponents, AnalysisTask& task) {
  const Util::JsonValue* value = reader.Find("components");
  if (value == nullptr) return;
  if (value->IsString() && std::string_view(value->GetString()) == "all") return;
  if (!value->IsArray()) {
    reader.Report("components", "\"all\" or an array of component numbers");
    return;
  }
  task.SetIncludedComponents(
      ComponentsFrom(*value, reader.PathOf("components"), numComponents, reader.Problems()));
}

// A number that is absent or none takes its default. Whether there are such a task and case is for
// the checks before a solution to say.
int NumberFrom(ObjectReader& reader, std::string_view name, int otherwise) {
  const Util::JsonValue* value = reader.Find(name);
  if (value != nullptr && value->IsInt()) return value->GetInt();
  reader.Report(name, "a whole number, counted from 1");
  return otherwise;
}

PreloadReference PreloadFrom(const Util::JsonValue& json, const JsonPath& path, int numComponents,
                             ProblemList& problems) {
  ObjectReader reader(json, path, problems);
  PreloadReference from;
  from.task = NumberFrom(reader, "task", from.task);
  from.iCase = NumberFrom(reader, "case", from.iCase);
  if (const Util::JsonValue* later = reader.Array("barsAddedLater")) {
    from.barsAddedLater =
        ComponentsFrom(*later, reader.PathOf("barsAddedLater"), numComponents, problems);
  }
  reader.ReportUnknown();
  return from;
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
  if (const Util::JsonValue* preload = reader.Object("preload")) {
    task.SetPreloadFrom(PreloadFrom(*preload, reader.PathOf("preload"), numComponents, problems));
  }
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
