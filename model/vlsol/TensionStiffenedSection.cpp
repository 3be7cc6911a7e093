#include "model/vlsol/TensionStiffenedSection.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "model/oxnumeric/section/equilibrium.h"
#include "model/vlsol/SteelLevel.h"

namespace Orlix::VlSol {

using Numeric::Plane;
using Numeric::StressCurve;

TensionStiffenedSection::TensionStiffenedSection(const Data::Velmo9::CompiledTask& cracked,
                                                 double steelLevelStress)
    : cracked_(cracked), section_(cracked.section), steelLevelStress_(steelLevelStress) {
  for (const int index : cracked.bs8110Curves) {
    const StressCurve& curve = section_.curves[static_cast<std::size_t>(index)];
    moduli_.push_back(curve.exact[curve.exact.Locate(0.0)].Tangent(0.0));
    largestModulus_ = std::max(largestModulus_, moduli_.back());
  }
  tensionModulus_ = largestModulus_;
}

double TensionStiffenedSection::SteelLevelStrain(const Plane& plane) const {
  SteelLevel level;
  for (const auto& point : section_.points) {
    level.Add(point.area, Dot(Numeric::Phi(point.position), plane) + point.displacedOffset);
  }
  return level.Strain();
}

void TensionStiffenedSection::SetTensionModulus(double modulus) {
  tensionModulus_ = modulus;
  for (std::size_t i = 0; i < moduli_.size(); ++i) {
    const auto curve = static_cast<std::size_t>(cracked_.bs8110Curves[i]);
    section_.curves[curve] = cracked_.section.curves[curve];
    section_.curves[curve].ScaleTension(std::min(modulus, moduli_[i]) / moduli_[i]);
  }
}

void TensionStiffenedSection::AdaptTo(const Plane& plane) {
  const double strain = SteelLevelStrain(plane);
  if (largestModulus_ * strain <= steelLevelStress_ && strain > 0.0) {
    SetTensionModulus(largestModulus_);
  } else {
    SetTensionModulus(strain > 0.0 ? steelLevelStress_ / strain : 0.0);
  }
}

Plane TensionStiffenedSection::SolveEquilibrium(const Numeric::Resultant& load,
                                                const Plane& start) {
  // The excess of the steel level's tension rises with the slope, from -steelLevelStress at none.
  Plane plane = start;
  const auto excess = [&](double modulus) {
    SetTensionModulus(modulus);
    plane = Numeric::SolveEquilibrium(section_, load, &plane).plane;
    return modulus * SteelLevelStrain(plane) - steelLevelStress_;
  };
  double high = largestModulus_;
  // Planes locked into the two states differ, and with them what the uncracked plane adds to.
  double fHigh =
      section_.hasLockedRegions ? excess(high) : high * SteelLevelStrain(start) - steelLevelStress_;
  if (fHigh <= 0.0) {
    // No bar in tension: nothing holds the concrete together once it cracks. With bars in tension
    // the stage before has left their level less of it than the uncracked state has.
    if (SteelLevelStrain(plane) <= 0.0) excess(0.0);
    return plane;
  }
  double low = 0.0;
  double fLow = -steelLevelStress_;
  const double tolerance = 1e-11 * steelLevelStress_;  // that of the equilibria behind it
  for (int i = 0; i < 60; ++i) {                       // Illinois
    const double middle = low + (high - low) * std::clamp(-fLow / (fHigh - fLow), 1e-3, 0.999);
    const double f = excess(middle);
    if (std::abs(f) <= tolerance) break;
    if (f < 0.0) {
      low = middle;
      fLow = f;
      fHigh *= 0.5;
    } else {
      high = middle;
      fHigh = f;
      fLow *= 0.5;
    }
  }
  return plane;
}

}  // namespace Orlix::VlSol
