// Whole sections against the answers of a dense fibre grid with brute-force search.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "model/oxutil/json.h"
#include "model/vlsol/test/case_document.h"

namespace Orlix::VlSol::Test {
namespace {

using Data::Design::CurveKind;
using Data::Design::CurveShape;
using Data::Velmo9::UlSResult;
using Util::JsonValue;

Vec3<double> ReadVector(const JsonValue& json) {
  return {json[0].GetDouble(), json[1].GetDouble(), json[2].GetDouble()};
}

int AddConcrete(CaseDocument& document, const JsonValue& json) {
  const double peak = json["ec"].GetDouble();
  CurveShape compression{.kind = CurveKind::parabolaRectangle,
                         .epsPeak = peak,
                         .exponent = json["n"].GetDouble(),
                         .epsLimit = json["ecu"].GetDouble()};
  if (json["axial_limit"].GetBool()) compression.uniformLimit = peak;
  return document.AddMaterial(MatType::concrete, {json["f"].GetDouble(), 33e9}, compression, {});
}

int AddSteel(CaseDocument& document, const JsonValue& json) {
  const CurveShape side{.kind = CurveKind::bilinear, .epsLimit = json["limit"].GetDouble()};
  return document.AddMaterial(MatType::reinforcement,
                              {json["fy"].GetDouble(), json["E"].GetDouble()}, side, side);
}

CaseDocument MakeDocument(const JsonValue& json) {
  CaseDocument document(true);
  for (const JsonValue& component : json["components"].GetArray()) {
    Data::SectionPolygon polygon;
    for (const JsonValue& p : component["rings"][0].GetArray()) {
      polygon.outline.push_back({p[0].GetDouble(), p[1].GetDouble()});
    }
    const int grade = AddConcrete(document, json["materials"][component["material"].GetString()]);
    document.AddComponent(MatType::concrete, grade, std::move(polygon));
  }
  for (const JsonValue& bar : json["bars"].GetArray()) {
    const int grade = AddSteel(document, json["materials"][bar["material"].GetString()]);
    document.AddBar(bar["host"].GetInt(), {bar["y"].GetDouble(), bar["z"].GetDouble()},
                    bar["area"].GetDouble(), grade, bar["prestrain"].GetDouble());
  }
  return document;
}

// The reference's own error, three times, but at least 2e-5 of the value: the grids' differences
// tell the size of their error, not its bound.
double Tolerance(double size, const JsonValue& error) {
  return std::max(2e-5 * size, 3.0 * error.GetDouble());
}

void CompareNumber(const JsonValue& json, const char* name, double got) {
  if (!json["answer"].HasMember(name)) return;
  const double want = json["answer"][name].GetDouble();
  EXPECT_NEAR(got, want, Tolerance(std::abs(want), json["error"][name])) << name;
}

void CompareVector(const JsonValue& json, const char* name, const Vec3<double>& got) {
  if (!json["answer"].HasMember(name)) return;
  const Vec3<double> want = ReadVector(json["answer"][name]);
  EXPECT_LE(Length(got - want), Tolerance(Length(want), json["error"][name]))
      << name << ": " << got.x << " " << got.y << " " << got.z;
}

TEST(ReferenceSections, EveryUlsQuantityAgrees) {
  Util::JsonDocument data;
  ReadTestData("reference_sections.json", data);
  for (const JsonValue& json : data["cases"].GetArray()) {
    SCOPED_TRACE(json["name"].GetString());
    CaseDocument document = MakeDocument(json);
    const bool isLoad = std::string(json["load"]["kind"].GetString()) == "load";
    const UlSResult result = document.Solve(isLoad ? LoadAction::load : LoadAction::deformation,
                                            ReadVector(json["load"]["value"]));
    EXPECT_EQ(!result.IsFail(), json["answer"]["status"].GetBool());
    CompareNumber(json, "utilisation", result.LoadUtilisation());
    CompareNumber(json, "deformationUtilisation", result.DeformationUtilisation());
    CompareNumber(json, "momentRatio", result.MomentRatio());
    CompareVector(json, "load", result.Load().Vector());
    CompareVector(json, "loadAtFailure", result.LoadAtFailure().Vector());
    CompareVector(json, "deformation", result.Deformation().Vector());
    CompareVector(json, "deformationAtFailure", result.DeformationAtFailure().Vector());
  }
}

}  // namespace
}  // namespace Orlix::VlSol::Test
