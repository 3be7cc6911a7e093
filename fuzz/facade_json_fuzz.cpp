// Any JSON as an argument of the facade: a document that reads back the same, and nothing thrown.

#include <rapidjson/document.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "app/VelmoApp.h"
#include "model/oxutil/json.h"
#include "model/oxutil/text.h"

namespace Orlix {
namespace {

using Data::Velmo9::AnalysisTask;

void Require(bool holds) {
  if (!holds) std::abort();
}

void Parse(std::string_view text, Util::JsonDocument& json) {
  std::string error;
  Require(Util::ParseJson(text, json, error));
}

// A column with two solved tasks, one of loads and one of deformations. Few grades, since runs are
// short then.
VelmoApp Prepared() {
  Util::JsonDocument json;
  Parse(R"({"materials": {"concrete": [{"name": "C30/37"}], "reinforcement": [{"name": "B500B"}],
            "steel": [], "FRP": []},
            "sections": [{"components": [{"material": "concrete", "grade": "C30/37",
              "geometry": {"shape": "rectangle", "width": 0.3, "depth": 0.5},
              "bars": [{"y": 0.1, "z": 0.2, "diameter": 0.02, "grade": "B500B"},
                       {"y": -0.1, "z": -0.2, "diameter": 0.02, "grade": "B500B"}]}],
              "tasks": [{"uls": true, "sls": true, "cases": [{"N": -1e6}, {"Myy": 5e4}]},
                        {"uls": true, "sls": true, "action": "deformation",
                         "cases": [{"eps": -5e-4, "kyy": 2e-3}]}]}]})",
        json);
  VelmoApp app;
  *app.pData() = Data::CVelmoData(json);
  for (int iTask = 0; iTask < 2; ++iTask) app.SolveTask(app.pData()->getSection(0), iTask);
  Require(app.pData()->Section(0).Task(1).IsCaseAnalysed(0));
  return app;
}

// The table has as many cells in each row.
void CheckTable(const VelmoApp& app, const Util::JsonValue& request) {
  std::string text = "before";
  if (!app.CopyTaskData(request, text)) {
    Require(text == "before");
    return;
  }
  std::istringstream lines(text);
  std::ptrdiff_t tabs = -1;
  for (std::string line; std::getline(lines, line);) {
    const std::ptrdiff_t found = std::count(line.begin(), line.end(), '\t');
    Require(tabs < 0 || found == tabs);
    tabs = found;
  }
}

void CheckResults(const VelmoApp& app, const Util::JsonValue& json) {
  const Data::Velmo9::OutputOptions options(json);
  std::string message;
  std::vector<VelmoApp::CaseRecords> records;
  Require(app.CompileCaseResults(0, 0, {0, 1, 7}, message, records, options));
  Require(records.size() == 3);
}

void Call(VelmoApp& app, std::string_view command, const Util::JsonValue& json) {
  if (command == "setTitles") {
    app.setTitles(json);
  } else if (command == "setUnits") {
    app.setUnits(json);
  } else if (command == "setCodes") {
    app.setCodes(json);
  } else if (command == "setGrade") {
    app.setGrade(json);
  } else if (command == "setSection") {
    app.setSection(0, json);
  } else if (command == "CopyTaskData") {
    CheckTable(app, json);
  } else if (command == "OutputOptions") {
    if (app.isValidTaskIndex(0, 0)) CheckResults(app, json);
  }
}

// An object is a list of commands with their arguments, run in order; a command may come again.
void Run(const Util::JsonDocument& json) {
  static const VelmoApp kPrepared = Prepared();
  VelmoApp app = kPrepared;
  for (const auto& member : json.GetObject()) {
    Call(app, std::string_view(member.name.GetString(), member.name.GetStringLength()),
         member.value);
  }
  const std::string text = to_string(app.fileString(true));
  Util::JsonDocument again;
  Parse(text, again);
  const Data::CVelmoData read(again);
  Util::JsonDocument written;
  read.toJson(written, written.GetAllocator(), true);
  Require(Util::PrettyJson(written) == text);
}

}  // namespace
}  // namespace Orlix

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Orlix::Util::JsonDocument json;
  std::string error;
  const std::string text(data, data + size);
  if (Orlix::Util::ParseJson(text, json, error) && json.IsObject()) Orlix::Run(json);
  return 0;
}
