#include "model/vldata/records/StressStrainSummary.h"

#include <algorithm>

#include "model/oxutil/json.h"
#include "model/vldata/json/json_values.h"

namespace Orlix::Data::Velmo9 {
namespace {

void Widen(std::optional<StressStrain>& extremes, double stress, double strain) {
  if (!extremes) {
    extremes = StressStrain{stress, stress, strain, strain};
    return;
  }
  extremes->maxStress = std::max(extremes->maxStress, stress);
  extremes->minStress = std::min(extremes->minStress, stress);
  extremes->maxStrain = std::max(extremes->maxStrain, strain);
  extremes->minStrain = std::min(extremes->minStrain, strain);
}

void AddExtremes(Util::JsonValue& object, const char* name,
                 const std::optional<StressStrain>& extremes, Util::JsonAllocator& allocator) {
  if (!extremes) return;
  Util::JsonValue json(rapidjson::kObjectType);
  AddNumber(json, "maxStress", extremes->maxStress, allocator);
  AddNumber(json, "minStress", extremes->minStress, allocator);
  AddNumber(json, "maxStrain", extremes->maxStrain, allocator);
  AddNumber(json, "minStrain", extremes->minStrain, allocator);
  AddMember(object, name, json, allocator);
}

}  // namespace

void StressStrainSummary::UpdateConcrete(double stress, double strain) {
  Widen(concrete_, stress, strain);
}

void StressStrainSummary::UpdateRebar(double stress, double strain) {
  Widen(rebar_, stress, strain);
}

Util::JsonValue StressStrainSummary::ToJson(Util::JsonAllocator& allocator) const {
  Util::JsonValue json(rapidjson::kObjectType);
  AddExtremes(json, "concrete", concrete_, allocator);
  AddExtremes(json, "rebar", rebar_, allocator);
  return json;
}

bool SlsStressStrainSummary::HasConcrete() const {
  return uncracked.HasConcrete() || (cracked && cracked->HasConcrete());
}

bool SlsStressStrainSummary::HasRebar() const {
  return uncracked.HasRebar() || (cracked && cracked->HasRebar());
}

Util::JsonValue SlsStressStrainSummary::ToJson(Util::JsonAllocator& allocator) const {
  Util::JsonValue json(rapidjson::kObjectType);
  Util::JsonValue part = uncracked.ToJson(allocator);
  AddMember(json, "uncracked", part, allocator);
  if (cracked) {
    part = cracked->ToJson(allocator);
    AddMember(json, "cracked", part, allocator);
  }
  return json;
}

}  // namespace Orlix::Data::Velmo9
