#include "model/vldata/json/tasks_json.h"

#include <array>
#include <set>

#include "model/oxutil/json.h"
#include "model/vldata/json/ObjectReader.h"

namespace Orlix::Data {
namespace {

using Velmo9::AnalysisTask;
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
