#pragma once

#include <optional>
#include <string>

#include "model/oxutil/json_fwd.h"
#include "model/vlsol/diagrams/diagrams.h"

namespace Orlix {

/// What a diagram is asked for with, and of which task.
struct TaskDiagramRequest {
  int iSec{};
  int iTask{};
  VlSol::DiagramRequest diagram;
};

/// "nm", "mm" or "mk".
const char* NameOf(VlSol::DiagramKind kind);
std::optional<VlSol::DiagramKind> DiagramKindFrom(const std::string& name);

/// Reads a request of the form of docs/facade-json.md.
/// @param[out] message  what is wrong; set only when something is
std::optional<TaskDiagramRequest> DiagramRequestFrom(const Util::JsonValue& json,
                                                     std::string& message);

/// What is wrong with the numbers of a request; empty when nothing is.
std::string ProblemOf(const VlSol::DiagramRequest& request);

/// The form of docs/facade-json.md, without the numbers of section and task.
Util::JsonValue ToJson(const VlSol::Diagram& diagram, Util::JsonAllocator& allocator);

}  // namespace Orlix
