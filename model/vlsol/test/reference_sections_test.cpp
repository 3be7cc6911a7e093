// Whole sections against the answers of a dense fibre grid with brute-force search.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "model/oxutil/json.h"
#include "model/vldata/records/Stiffness.h"
#include "model/vlsol/test/case_document.h"

namespace Orlix::VlSol::Test {
namespace {

using Data::Design::CurveKind;
using Data::Design::CurveShape;
using Data::Velmo9::LoadTerm;
using Data::Velmo9::SLSResult;
using Data::Velmo9::UlSResult;
using Util::JsonValue;

Vec3<double> ReadVector(const JsonValue& json) {
  return {json[0].GetDouble(), json[1].GetDouble(), json[2].GetDouble()};
}

bool IsOfKind(const JsonValue& material, const char* kind) {
  return std::string(material["type"].GetString()) == kind;
}

CurveShape ConcreteShape(const JsonValue& json) {
  CurveShape shape{.epsLimit = json["ecu"].GetDouble()};
  if (IsOfKind(json, "block")) {
    shape.kind = CurveKind::rectangularBlock;
    shape.blockStart = json["start"].GetDouble();
    return shape;
  }
  shape.kind = CurveKind::parabolaRectangle;
  shape.epsPeak = json["ec"].GetDouble();
  shape.exponent = json["n"].GetDouble();
  if (json["axial_limit"].GetBool()) shape.uniformLimit = shape.epsPeak;
  return shape;
}

CurveKind ServiceModel(const JsonValue& json) {
  const JsonValue* sls = Util::FindMember(json, "sls");
  const std::string model = sls != nullptr ? (*sls)["model"].GetString() : "none";
  if (model == "interpolated") return CurveKind::interpolated;
  return model == "bs8110" ? CurveKind::bs8110Tension : CurveKind::none;
}

int AddConcrete(CaseDocument& document, const JsonValue& json, CurveKind serviceModel) {
  const int grade = document.AddMaterial(
      MatType::concrete, {json["f"].GetDouble(), json["E"].GetDouble()}, ConcreteShape(json), {});
  document.SetServiceCurve(MatType::concrete, grade, {.kind = CurveKind::linear},
                           {.kind = serviceModel}, json["fct"].GetDouble());
  return grade;
}

int AddSteel(CaseDocument& document, MatType type, const JsonValue& json) {
  const CurveShape side{.kind = CurveKind::bilinear, .epsLimit = json["limit"].GetDouble()};
  return document.AddMaterial(type, {json["fy"].GetDouble(), json["E"].GetDouble()}, side, side);
}

// The reference's own factors of strength reduction, under a code that has such.
void SetPhi(CaseDocument& document, const JsonValue& json) {
  document.Document().SetCodes(OrlixString<wchar_t>(L"ACI 318-19"));
  document.Settings().SetPhiFactors(
      Data::Velmo9::CustomPhi{json["strain_c"].GetDouble(), json["strain_t"].GetDouble(),
                              json["phi_c"].GetDouble(), json["phi_t"].GetDouble()});
}

CaseDocument MakeDocument(const JsonValue& json) {
  CaseDocument document(true);
  if (const JsonValue* phi = Util::FindMember(json, "phi")) SetPhi(document, *phi);
  for (const JsonValue& component : json["components"].GetArray()) {
    Data::SectionPolygon polygon;
    for (const JsonValue& p : component["rings"][0].GetArray()) {
      polygon.outline.push_back({p[0].GetDouble(), p[1].GetDouble()});
    }
    const JsonValue& material = json["materials"][component["material"].GetString()];
    const bool isSteel = IsOfKind(material, "bilinear");
    const MatType type = isSteel ? MatType::steel : MatType::concrete;
    document.AddComponent(type,
                          isSteel ? AddSteel(document, type, material)
                                  : AddConcrete(document, material, ServiceModel(json)),
                          std::move(polygon));
  }
  for (const JsonValue& bar : json["bars"].GetArray()) {
    const int grade =
        AddSteel(document, MatType::reinforcement, json["materials"][bar["material"].GetString()]);
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
    CompareNumber(json, "reductionFactor", result.ReductionFactor());
    CompareNumber(json, "utilisation", result.LoadUtilisation());
    CompareNumber(json, "deformationUtilisation", result.DeformationUtilisation());
    CompareNumber(json, "momentRatio", result.MomentRatio());
    CompareVector(json, "load", result.Load().Vector());
    CompareVector(json, "loadAtFailure", result.LoadAtFailure().Vector());
    CompareVector(json, "deformation", result.Deformation().Vector());
    CompareVector(json, "deformationAtFailure", result.DeformationAtFailure().Vector());
  }
}

// Where the load has no component the stiffness has none either, or no divisor.
void CompareStiffness(const JsonValue& json, const Data::Velmo9::Stiffness& got) {
  const JsonValue& want = json["answer"]["stiffness"];
  const double values[] = {got.axial, got.bendingYY, got.bendingZZ};
  for (unsigned i = 0; i < 3; ++i) {
    if (want[i].GetDouble() == 0.0) {
      EXPECT_TRUE(values[i] == 0.0 || std::isinf(values[i])) << values[i];
      continue;
    }
    EXPECT_NEAR(values[i], want[i].GetDouble(),
                Tolerance(std::abs(want[i].GetDouble()), json["error"]["stiffness"]));
  }
}

void CompareBars(const JsonValue& json, const CaseDocument& document, const SLSResult& result) {
  const JsonValue& want = json["sls"]["answer"]["barStressCracked"];
  const auto& bars = document.Document().Section(0).Components()[0].Concrete().Bars();
  ASSERT_EQ(want.Size(), bars.size());
  double largest = 0.0;
  for (const JsonValue& stress : want.GetArray()) {
    largest = std::max(largest, std::abs(stress.GetDouble()));
  }
  for (unsigned i = 0; i < want.Size(); ++i) {
    const double strain = result.Response().cracked.Deformation().StrainAt(bars[i].Position()) +
                          bars[i].GetPreload().value;
    EXPECT_NEAR(document.Stress(MatType::reinforcement, bars[i].Grade(), strain, LoadState::SLS),
                want[i].GetDouble(), Tolerance(largest, json["sls"]["error"]["barStressCracked"]));
  }
}

TEST(ReferenceSections, EverySlsQuantityAgrees) {
  Util::JsonDocument data;
  ReadTestData("reference_sections.json", data);
  int count = 0;
  for (const JsonValue& json : data["cases"].GetArray()) {
    const JsonValue* sls = Util::FindMember(json, "sls");
    if (sls == nullptr) continue;
    SCOPED_TRACE(json["name"].GetString());
    ++count;
    CaseDocument document = MakeDocument(json);
    const bool isLong = std::string((*sls)["term"].GetString()) == "long";
    document.Settings().SetCreep({isLong ? LoadTerm::longTerm : LoadTerm::shortTerm});
    const Vec3<double> load = ReadVector((*sls)["load"]);
    const SLSResult result = document.SolveSls(LoadAction::load, load);
    EXPECT_FALSE(result.IsFail());
    const auto& response = result.Response();
    CompareVector(*sls, "uncracked", response.uncracked.Deformation().Vector());
    CompareVector(*sls, "crackedPlane", response.cracked.Deformation().Vector());
    CompareNumber(*sls, "crackingUtilisation", result.CrackingUtilisation());
    CompareBars(json, document, result);
    const Data::CInterpolateStrain between = document.Interpolation(load, result);
    EXPECT_EQ(between.IsCracked(), (*sls)["answer"]["cracked"].GetBool());
    CompareNumber(*sls, "zeta", between.Zeta());
    CompareVector(*sls, "interpolated", between.InterpolatedStrain().Vector());
    CompareStiffness(*sls, Data::Velmo9::VelmoLoad(load) / between.InterpolatedStrain());
    // The slope of the tension, from the curve that the response of the cracked state brings along.
    constexpr double kStrain = 1e-6;
    CompareNumber(*sls, "tensionModulus",
                  -response.cracked.Components().at(0).curve.Stress(-kStrain) / kStrain);
  }
  EXPECT_EQ(count, 6);
}

}  // namespace
}  // namespace Orlix::VlSol::Test
