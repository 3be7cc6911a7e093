#include "model/vlsol/CrackingUtilisation.h"

#include <algorithm>
#include <limits>

#include "model/vlsol/SteelLevel.h"

namespace Orlix::VlSol {
namespace {

using Data::Velmo9::Deformation;
using Data::Velmo9::DetailedIntegrationResult;
using ComponentDetails = DetailedIntegrationResult::ComponentDetails;
using Cracking = DetailedIntegrationResult::Cracking;

double StrainAt(const Deformation& deformation, const ComponentDetails& details, Vec2<double> at) {
  return deformation.StrainAt(at) + details.lockedIn.StrainAt(at);
}

// Tension over strength; no strength is used up by any tension.
double Ratio(double stress, double strength) {
  if (stress <= 0.0) return 0.0;
  return strength > 0.0 ? stress / strength : std::numeric_limits<double>::infinity();
}

double LargestStrain(const Deformation& deformation, const ComponentDetails& details) {
  double strain = 0.0;
  for (const Vec2<double>& p : details.cracking->vertices) {
    strain = std::max(strain, StrainAt(deformation, details, p));
  }
  return strain;
}

double SteelLevelStrain(const Deformation& deformation,
                        const DetailedIntegrationResult::ComponentMap& components) {
  SteelLevel level;
  for (const auto& [index, details] : components) {
    if (!details.cracking) continue;
    for (const Cracking::Bar& bar : details.cracking->bars) {
      level.Add(bar.area, StrainAt(deformation, details, bar.position));
    }
  }
  return level.Strain();
}

}  // namespace

double CrackingUtilisation(const Deformation& deformation,
                           const DetailedIntegrationResult::ComponentMap& components) {
  double utilisation = 0.0;
  for (const auto& [index, details] : components) {
    if (!details.cracking) continue;
    const Cracking& cracking = *details.cracking;
    double strain = cracking.bs8110 ? SteelLevelStrain(deformation, components) : 0.0;
    // Without steel in tension the outline decides under either model.
    if (strain <= 0.0) strain = LargestStrain(deformation, details);
    const double strength = cracking.bs8110 ? cracking.steelLevelStress : cracking.f_ct;
    utilisation = std::max(utilisation, Ratio(cracking.modulus * strain, strength));
  }
  return utilisation;
}

double CrackingUtilisation(
    const Data::CVelmoData&, const Deformation& deformation,
    const std::map<int, DetailedIntegrationResult::ComponentDetails>& components) {
  return CrackingUtilisation(deformation, components);
}

}  // namespace Orlix::VlSol
