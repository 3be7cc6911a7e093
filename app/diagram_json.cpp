#include "app/diagram_json.h"

#include <rapidjson/document.h>

#include <cmath>
#include <limits>

#include "app/AppMessages.h"
#include "model/oxutil/json.h"
#include "model/vldata/records/Deformation.h"

namespace Orlix {

using Util::JsonAllocator;
using Util::JsonValue;
using VlSol::Diagram;
using VlSol::DiagramKind;
using VlSol::DiagramLoad;
using VlSol::DiagramPoint;
using VlSol::DiagramRequest;

namespace {

// Takes an integer member; false when it is there and something else.
bool TakeInt(const JsonValue& json, const char* key, int& number) {
  const JsonValue* member = Util::FindMember(json, key);
  if (member == nullptr) return true;
  if (!member->IsInt()) return false;
  number = member->GetInt();
  return true;
}

bool TakeNumber(const JsonValue& json, const char* key, double& number) {
  const JsonValue* member = Util::FindMember(json, key);
  if (member == nullptr) return true;
  if (!member->IsNumber()) return false;
  number = member->GetDouble();
  return true;
}

bool TakeKind(const JsonValue& json, DiagramKind& kind) {
  const JsonValue* member = Util::FindMember(json, "kind");
  if (member == nullptr || !member->IsString()) return false;
  const auto found = DiagramKindFrom(member->GetString());
  if (found) kind = *found;
  return found.has_value();
}

bool TakeLimitState(const JsonValue& json, LoadState& state) {
  const JsonValue* member = Util::FindMember(json, "limitState");
  if (member == nullptr) return true;
  const std::string name = member->IsString() ? member->GetString() : "";
  if (name != "ULS" && name != "SLS") return false;
  state = name == "ULS" ? LoadState::ULS : LoadState::SLS;
  return true;
}

void AddLoad(JsonValue& json, const Vec3<double>& load, JsonAllocator& allocator) {
  json.AddMember("N", load.x, allocator);
  json.AddMember("Myy", load.y, allocator);
  json.AddMember("Mzz", load.z, allocator);
}

JsonValue PointJson(const Diagram& diagram, const DiagramPoint& point, JsonAllocator& allocator) {
  JsonValue json(rapidjson::kObjectType);
  if (point.mark != VlSol::DiagramMark::none) {
    json.AddMember("mark", JsonValue(VlSol::NameOf(point.mark), allocator), allocator);
  }
  if (diagram.kind == DiagramKind::axialMoment) json.AddMember("M", point.at.x, allocator);
  if (diagram.kind == DiagramKind::momentCurvature) {
    json.AddMember("curvature", point.at.x, allocator);
    json.AddMember("M", point.at.y, allocator);
  }
  AddLoad(json, point.load, allocator);
  if (!diagram.design.empty()) {
    json.AddMember("reductionFactor", point.reductionFactor, allocator);
  }
  json.AddMember("deformation", Data::Velmo9::Deformation(point.plane).toJson(allocator, false),
                 allocator);
  if (std::isfinite(point.strainUtilisation)) {
    json.AddMember("deformationUtilisation", point.strainUtilisation, allocator);
  }
  if (point.limitIsCap) json.AddMember("limitIsCap", true, allocator);
  return json;
}

JsonValue PointsJson(const Diagram& diagram, const std::vector<DiagramPoint>& points,
                     JsonAllocator& allocator) {
  JsonValue json(rapidjson::kArrayType);
  json.Reserve(static_cast<rapidjson::SizeType>(points.size()), allocator);
  for (const DiagramPoint& p : points) json.PushBack(PointJson(diagram, p, allocator), allocator);
  return json;
}

JsonValue UtilisationJson(double utilisation) {
  if (std::isnan(utilisation)) return JsonValue("-");
  return JsonValue(std::isfinite(utilisation) ? utilisation : std::numeric_limits<double>::max());
}

JsonValue LoadJson(const Diagram& diagram, const DiagramLoad& load, JsonAllocator& allocator) {
  JsonValue json(rapidjson::kObjectType);
  json.AddMember("iCase", load.iCase, allocator);
  if (diagram.kind == DiagramKind::axialMoment) json.AddMember("M", load.at.x, allocator);
  AddLoad(json, load.load, allocator);
  json.AddMember("outOfPlane", load.outOfPlane, allocator);
  json.AddMember("inPlane", load.isInPlane, allocator);
  json.AddMember("utilisation", UtilisationJson(load.utilisation), allocator);
  json.AddMember("status", load.isCarried, allocator);
  if (load.isGoverning) json.AddMember("governing", true, allocator);
  return json;
}

}  // namespace

const char* NameOf(DiagramKind kind) {
  if (kind == DiagramKind::axialMoment) return "nm";
  return kind == DiagramKind::biaxialMoment ? "mm" : "mk";
}

std::optional<DiagramKind> DiagramKindFrom(const std::string& name) {
  for (const DiagramKind kind :
       {DiagramKind::axialMoment, DiagramKind::biaxialMoment, DiagramKind::momentCurvature}) {
    if (name == NameOf(kind)) return kind;
  }
  return std::nullopt;
}

std::optional<TaskDiagramRequest> DiagramRequestFrom(const JsonValue& json, std::string& message) {
  TaskDiagramRequest taken;
  DiagramRequest& request = taken.diagram;
  const auto wrong = [&](const char* key, const char* expected) {
    message = AppMessages::WrongDiagramMember(key, expected);
    return std::nullopt;
  };
  if (!json.IsObject()) return wrong("request", "an object");
  if (!TakeInt(json, "iSec", taken.iSec)) return wrong("iSec", "an integer");
  if (!TakeInt(json, "iTask", taken.iTask)) return wrong("iTask", "an integer");
  if (!TakeKind(json, request.kind)) return wrong("kind", "\"nm\", \"mm\" or \"mk\"");
  if (!TakeNumber(json, "angle", request.angle)) return wrong("angle", "a number");
  if (!TakeNumber(json, "axial", request.axial)) return wrong("axial", "a number");
  if (!TakeInt(json, "points", request.points)) return wrong("points", "an integer");
  if (!TakeLimitState(json, request.state)) return wrong("limitState", "\"ULS\" or \"SLS\"");
  return taken;
}

std::string ProblemOf(const DiagramRequest& request) {
  if (!std::isfinite(request.angle)) return AppMessages::WrongDiagramMember("angle", "a number");
  if (!std::isfinite(request.axial)) return AppMessages::WrongDiagramMember("axial", "a number");
  if (request.points < DiagramRequest::kFewestPoints ||
      request.points > DiagramRequest::kMostPoints) {
    const std::string range = std::to_string(DiagramRequest::kFewestPoints) + " to " +
                              std::to_string(DiagramRequest::kMostPoints);
    return AppMessages::WrongDiagramMember("points", range);
  }
  if (request.state == LoadState::SLS && request.kind != DiagramKind::momentCurvature) {
    return AppMessages::WrongDiagramMember("limitState", "ULS for a diagram of failure loads");
  }
  return {};
}

JsonValue ToJson(const Diagram& diagram, JsonAllocator& allocator) {
  JsonValue json(rapidjson::kObjectType);
  json.AddMember("kind", JsonValue(NameOf(diagram.kind), allocator), allocator);
  json.AddMember("limitState", JsonValue(diagram.state == LoadState::ULS ? "ULS" : "SLS"),
                 allocator);
  if (diagram.kind != DiagramKind::biaxialMoment) {
    json.AddMember("angle", diagram.angle, allocator);
  }
  if (diagram.kind != DiagramKind::axialMoment) json.AddMember("axial", diagram.axial, allocator);
  json.AddMember("nominal", PointsJson(diagram, diagram.nominal, allocator), allocator);
  if (!diagram.design.empty()) {
    json.AddMember("design", PointsJson(diagram, diagram.design, allocator), allocator);
  }
  if (diagram.IsClosed()) {
    JsonValue loads(rapidjson::kArrayType);
    for (const DiagramLoad& load : diagram.loads) {
      loads.PushBack(LoadJson(diagram, load, allocator), allocator);
    }
    json.AddMember("loads", loads, allocator);
  }
  return json;
}

}  // namespace Orlix
