#pragma once

#include <optional>

#include "model/oxutil/json_fwd.h"

namespace Orlix::Data::Velmo9 {

/// Extremes of stress [Pa] and strain over some samples, tension positive.
struct StressStrain {
  double maxStress{};
  double minStress{};
  double maxStrain{};
  double minStrain{};
};

/// Extremes of one limit state: concrete (all profile points) and reinforcement apart.
class StressStrainSummary {
 public:
  /// Widen the extremes by one sample.
  void UpdateConcrete(double stress, double strain);
  void UpdateRebar(double stress, double strain);

  bool HasConcrete() const { return concrete_.has_value(); }
  bool HasRebar() const { return rebar_.has_value(); }
  /// The extremes; all zero without samples.
  StressStrain Concrete() const { return concrete_.value_or(StressStrain{}); }
  StressStrain Rebar() const { return rebar_.value_or(StressStrain{}); }

  /// {"concrete": {"maxStress", "minStress", "maxStrain", "minStrain"}, "rebar": {…}}; a part
  /// without samples is left out.
  Util::JsonValue ToJson(Util::JsonAllocator& allocator) const;

 private:
  std::optional<StressStrain> concrete_;
  std::optional<StressStrain> rebar_;
};

/// Extremes of a serviceability case; the cracked part is there only where cracked values are
/// computed.
struct SlsStressStrainSummary {
  StressStrainSummary uncracked;
  std::optional<StressStrainSummary> cracked;

  bool HasConcrete() const;  ///< either part has samples
  bool HasRebar() const;     ///< either part has samples
  /// {"uncracked": {…}, "cracked": {…}}; the cracked part only where it is there.
  Util::JsonValue ToJson(Util::JsonAllocator& allocator) const;
};

}  // namespace Orlix::Data::Velmo9
