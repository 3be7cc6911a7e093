#include "reports/case_json/CaseResultsJsonBuilder.h"

#include <rapidjson/document.h>

#include <cmath>
#include <limits>

#include "results/NeutralAxisCalculator.h"

namespace Orlix {

using Data::Velmo9::CaseSLSDetails;
using Data::Velmo9::CaseULSDetails;
using Data::Velmo9::Deformation;
using Data::Velmo9::SlsResultKind;
using rapidjson::StringRef;
using Util::JsonValue;

namespace {

constexpr double kZeroMagnitude = 1e-10;  // of a load in N and Nm, or a plane in 1 and 1/m

// What stands for a case without input; readers rely on an integer here.
constexpr unsigned kNothingApplied = 0;

bool IsZero(const Vec3<double>& vector) { return Length(vector) < kZeroMagnitude; }

double Capped(double value) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  return value == kInfinity ? std::numeric_limits<double>::max() : value;
}

JsonValue DashOrNumber(double value) {
  return std::isfinite(value) ? JsonValue(value) : JsonValue(StringRef("-"));
}

}  // namespace

void CaseResultsJsonBuilder::AddUlsCaseResultsToJson(JsonValue& json, const CaseULSDetails& details,
                                                     const LoadAction& action) const {
  if (action == LoadAction::load) {
    AddUlsResultsForce(json, details);
  } else {
    AddUlsResultsDeformation(json, details);
  }
}

void CaseResultsJsonBuilder::AddUlsResultsForce(JsonValue& json,
                                                const CaseULSDetails& details) const {
  json.AddMember(StringRef("load"), details.load.toJson(allocator_), allocator_);
  if (IsZero(details.load.Vector())) {
    json.AddMember(StringRef("utilisation"), kNothingApplied, allocator_);
    return;
  }
  json.AddMember(StringRef("loadAtFailure"), details.loadAtFailure.toJson(allocator_), allocator_);
  json.AddMember(StringRef("status"), details.status, allocator_);
  json.AddMember(StringRef("utilisation"), Capped(details.loadUtilisation), allocator_);
  json.AddMember(StringRef("momentRatio"), Capped(details.momentRatio), allocator_);
  AddReductionFactor(json, details);
  if (details.status) {
    AddDeformation(json, "deformation", details.deformation);
    AddDeformation(json, "deformationAtFailure", details.deformationAtFailure);
    if (std::isfinite(details.deformationUtilisation)) {
      json.AddMember(StringRef("deformationUtilisation"), details.deformationUtilisation,
                     allocator_);
    }
  }
  AddSummary(json, details);
}

void CaseResultsJsonBuilder::AddUlsResultsDeformation(JsonValue& json,
                                                      const CaseULSDetails& details) const {
  if (IsZero(details.deformation.Vector())) {
    json.AddMember(StringRef("deformationUtilisation"), kNothingApplied, allocator_);
    json.AddMember(StringRef("deformation"), details.deformation.toJson(allocator_, false),
                   allocator_);
    return;
  }
  AddNeutralAxis(json, details.deformation);
  json.AddMember(StringRef("status"), details.status, allocator_);
  json.AddMember(StringRef("deformationUtilisation"), details.deformationUtilisation, allocator_);
  json.AddMember(StringRef("momentRatio"), Capped(details.momentRatio), allocator_);
  AddReductionFactor(json, details);
  if (details.deformationUtilisation < 1.0) {
    json.AddMember(StringRef("load"), details.load.toJson(allocator_), allocator_);
    if (std::isfinite(details.loadUtilisation)) {
      json.AddMember(StringRef("utilisation"), details.loadUtilisation, allocator_);
    }
  }
  AddSummary(json, details);
}

void CaseResultsJsonBuilder::AddSlsCaseResultsToJson(JsonValue& json, const CaseSLSDetails& details,
                                                     const LoadAction& action) const {
  if (action == LoadAction::load) {
    AddSlsResultsForce(json, details);
  } else {
    AddSlsResultsDeformation(json, details);
  }
  AddCracking(json, details);
  details.AddCrackedStatusToJson(json, allocator_);
  if (details.resultKind != SlsResultKind::noSolution) {
    json.AddMember(StringRef("stiffness"), details.stiffness.toJson(allocator_), allocator_);
  }
  const Data::Velmo9::SlsStressStrainSummary& summary = details.stressStrainSummary;
  if (summary.HasConcrete() || summary.HasRebar()) {
    json.AddMember(StringRef("slsStressStrainSummary"), summary.ToJson(allocator_), allocator_);
  }
}

void CaseResultsJsonBuilder::AddSlsResultsForce(JsonValue& json,
                                                const CaseSLSDetails& details) const {
  json.AddMember(StringRef("load"), details.load.toJson(allocator_), allocator_);
  if (details.resultKind == SlsResultKind::noSolution) return;
  AddDeformation(json, "deformationsCracked", details.crackedDeformation);
  AddDeformation(json, "deformationsUncracked", details.uncrackedDeformation);
  JsonValue interpolated = details.interpolatedDeformation.toJson(allocator_, false);
  AddNeutralAxisInfo(interpolated, details.interpolatedDeformation);
  AddZeta(interpolated, details.zeta);
  json.AddMember(StringRef("interpolatedDeformations"), interpolated, allocator_);
}

void CaseResultsJsonBuilder::AddSlsResultsDeformation(JsonValue& json,
                                                      const CaseSLSDetails& details) const {
  AddNeutralAxis(json, details.appliedDeformation);
  json.AddMember(StringRef("loadUncracked"), details.uncrackedLoad.toJson(allocator_), allocator_);
  json.AddMember(StringRef("loadCracked"), details.crackedLoad.toJson(allocator_), allocator_);
}

void CaseResultsJsonBuilder::AddCracking(JsonValue& json, const CaseSLSDetails& details) const {
  if (!code_.IsCrackWidthCode() || !reportCrackWidth_) return;
  json.AddMember(StringRef("cracked"), details.cracked, allocator_);
  if (!details.hasCrackWidth) return;
  json.AddMember(StringRef("crackWidth"), Capped(details.crackWidth), allocator_);
}

void CaseResultsJsonBuilder::AddNeutralAxis(JsonValue& json, const Deformation& deformation) const {
  JsonValue neutralAxis(rapidjson::kObjectType);
  AddNeutralAxisInfo(neutralAxis, deformation);
  json.AddMember(StringRef("neutralAxis"), neutralAxis, allocator_);
}

void CaseResultsJsonBuilder::AddNeutralAxisInfo(JsonValue& json,
                                                const Deformation& deformation) const {
  const NeutralAxisData axis = NeutralAxisCalculator::ComputeNeutralAxisData(deformation);
  json.AddMember(StringRef("na_angle"), DashOrNumber(axis.angle), allocator_);
  json.AddMember(StringRef("na_offset"), DashOrNumber(axis.offset), allocator_);
}

void CaseResultsJsonBuilder::AddDeformation(JsonValue& json, const char* key,
                                            const Deformation& deformation) const {
  JsonValue value = deformation.toJson(allocator_, false);
  AddNeutralAxisInfo(value, deformation);
  json.AddMember(StringRef(key), value, allocator_);
}

void CaseResultsJsonBuilder::AddZeta(JsonValue& json, double zeta) const {
  json.AddMember(StringRef("zeta"), DashOrNumber(zeta), allocator_);
}

void CaseResultsJsonBuilder::AddReductionFactor(JsonValue& json,
                                                const CaseULSDetails& details) const {
  if (!details.status || !code_.IsStrengthReduction()) return;
  json.AddMember(StringRef("reductionFactor"), details.reductionFactor, allocator_);
}

void CaseResultsJsonBuilder::AddSummary(JsonValue& json, const CaseULSDetails& details) const {
  const Data::Velmo9::StressStrainSummary& summary = details.stressStrainSummary;
  if (!summary.HasConcrete() && !summary.HasRebar()) return;
  json.AddMember(StringRef("stressStrainSummary"), summary.ToJson(allocator_), allocator_);
}

}  // namespace Orlix
