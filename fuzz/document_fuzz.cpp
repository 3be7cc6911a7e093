// Any bytes as a document: refused as text with the place of the fault, or read, with what was
// wrong listed, into a document that writes itself and reads back the same; its sections can be
// checked and solved.

#include <rapidjson/document.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "app/VelmoApp.h"
#include "model/oxutil/json.h"

namespace Orlix {
namespace {

// More would be tried for long: a description may stand for ten thousand bars.
constexpr std::size_t kPointsToSolve = 400;
constexpr int kCasesToSolve = 20;

void Require(bool holds) {
  if (!holds) std::abort();
}

std::string Written(const Data::CVelmoData& document) {
  Util::JsonDocument json;
  document.toJson(json, json.GetAllocator(), false);
  return Util::PrettyJson(json);
}

std::size_t PointsOf(const Data::Velmo9::VelmoSection& section) {
  std::size_t points = 0;
  for (const Data::CSecComp& component : section.Components()) {
    for (const auto& polygon : component.Geometry().Polygons(0.0)) points += polygon.outline.size();
    if (component.ConcreteExist()) points += component.Concrete().Bars().size();
  }
  return points;
}

void CheckAndSolve(VelmoApp& app) {
  for (int iSec = 0; iSec < app.pData()->NumSections(); ++iSec) {
    Data::Velmo9::VelmoSection& section = app.pData()->getSection(iSec);
    if (PointsOf(section) > kPointsToSolve) continue;
    for (int iTask = 0; iTask < static_cast<int>(section.Tasks().size()); ++iTask) {
      std::vector<std::string> messages;
      const bool passed = app.preSolutionChecksPassed(messages, iSec, iTask);
      Require(passed == messages.empty());
      if (passed && section.Task(iTask).NumCases() <= kCasesToSolve) app.SolveTask(section, iTask);
    }
  }
}

void Read(std::string_view bytes) {
  Util::JsonDocument json;
  std::string error;
  if (!Util::ParseJson(bytes, json, error)) {
    Require(!error.empty());
    return;
  }
  VelmoApp app;
  *app.pData() = Data::CVelmoData(json);
  const std::string text = Written(*app.pData());
  Util::JsonDocument again;
  Require(Util::ParseJson(text, again, error));
  Require(Written(Data::CVelmoData(again)) == text);
  CheckAndSolve(app);
}

}  // namespace
}  // namespace Orlix

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Orlix::Read(std::string(data, data + size));
  return 0;
}
