#include "model/vlsol/test/example_material.h"

#include <stdexcept>

#include "model/oxutil/json.h"

namespace Orlix::VlSol::Test {

using Data::Design::CurveKind;
using Data::Design::CurveShape;
using Util::JsonValue;

namespace {

// The compression side; steel has it on both.
CurveShape ReadShape(const JsonValue& material, const std::string& kind, MatType type,
                     const JsonValue* limits) {
  const auto limit = [&](const char* key) { return limits ? Number(*limits, key, 0.0) : 0.0; };
  CurveShape side{.epsPeak = Number(material, "eps_c", 0.0),
                  .epsLimit = Number(material, "eps_cu", 0.0),
                  .uniformLimit = limit("eps_c")};
  if (kind == "block") {
    side.kind = CurveKind::rectangularBlock;
    side.blockStart = material["eps_from"].GetDouble();
  } else if (kind == "parabola_rectangle") {
    side.kind = CurveKind::parabolaRectangle;
    side.exponent = material["n"].GetDouble();
  } else if (kind == "bilinear_c") {
    side.kind = CurveKind::bilinear;
  } else if (kind == "linear" || kind == "linear_no_tension" || kind == "interpolated") {
    side.kind = CurveKind::linear;
  } else if (kind == "bilinear_s") {
    side = {.kind = CurveKind::bilinear, .epsLimit = limit("eps_ud")};
    if (Util::FindMember(material, "fu") != nullptr) {
      side.hardening = material["fu"].GetDouble() / material["fy"].GetDouble();
      side.epsHardening = material["eps_u"].GetDouble();
    }
    // Plates bent far beyond the numerical cap on strain, as the examples bend them.
    if (type == MatType::steel) side.epsLimit = 1e6;
  } else {
    throw std::runtime_error("unknown kind of material " + kind);
  }
  return side;
}

}  // namespace

double Number(const JsonValue& json, const char* name, double otherwise) {
  const JsonValue* value = Util::FindMember(json, name);
  return value == nullptr ? otherwise : value->GetDouble();
}

ExampleMaterial ReadMaterial(const JsonValue& example, const std::string& name, double stress,
                             MatType type) {
  const JsonValue& json = example["materials"][name.c_str()];
  const std::string kind = json["kind"].GetString();
  ExampleMaterial material;
  material.scale = {stress * Number(json, "f", Number(json, "fy", 1.0)),
                    stress * Number(json, "E", 30000.0)};
  material.compression = ReadShape(json, kind, type, Util::FindMember(example["load"], "limits"));
  if (kind == "linear" || kind == "bilinear_s") material.tension = material.compression;
  material.serviceTension = material.tension;
  if (kind == "interpolated") material.serviceTension.kind = CurveKind::interpolated;
  material.f_ct = stress * Number(json, "f_ct", 0.0);
  return material;
}

}  // namespace Orlix::VlSol::Test
