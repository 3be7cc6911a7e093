// Diagrams of VelmoApp.

#include <rapidjson/document.h>

#include <cstddef>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "app/AppMessages.h"
#include "app/VelmoApp.h"
#include "app/current_results.h"
#include "app/diagram_json.h"
#include "model/vlsol/diagrams/diagrams.h"

namespace Orlix {

using VlSol::Diagram;
using VlSol::DiagramProblem;

bool VelmoApp::GetDiagram(int iSec, int iTask, const VlSol::DiagramRequest& request,
                          Diagram& diagram, std::string& message) {
  if (!TaskExists(iSec, iTask, message)) return false;
  if (std::string problem = ProblemOf(request); !problem.empty()) {
    message = std::move(problem);
    return false;
  }
  Data::Velmo9::VelmoSection& section = document_.getSection(iSec);
  DropOutdated(iSec);
  if (request.kind != VlSol::DiagramKind::momentCurvature) {
    std::vector<int> cases(static_cast<std::size_t>(section.Task(iTask).NumCases()));
    std::iota(cases.begin(), cases.end(), 0);
    if (FirstUnsolved(section.Task(iTask), cases)) SolveTask(section, iTask);
  }
  Diagram found = VlSol::DiagramOf(document_, section, iTask, request);
  if (found.problem != DiagramProblem::none) {
    message = AppMessages::NoDiagram(iTask, found.problem, request.state);
    return false;
  }
  diagram = std::move(found);
  return true;
}

bool VelmoApp::GetDiagram(const Util::JsonValue& request, Util::JsonDocument& json,
                          std::string& message) {
  const auto asked = DiagramRequestFrom(request, message);
  Diagram diagram;
  json.SetObject();
  if (!asked || !GetDiagram(asked->iSec, asked->iTask, asked->diagram, diagram, message)) {
    return false;
  }
  Util::JsonAllocator& allocator = json.GetAllocator();
  json.AddMember("iSec", asked->iSec, allocator).AddMember("iTask", asked->iTask, allocator);
  Util::JsonValue members = ToJson(diagram, allocator);
  for (auto& member : members.GetObject()) json.AddMember(member.name, member.value, allocator);
  return true;
}

}  // namespace Orlix
