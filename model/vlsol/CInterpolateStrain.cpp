#include "model/vlsol/CInterpolateStrain.h"

#include <cmath>
#include <limits>

#include "model/vlsol/CrackingUtilisation.h"
#include "model/vlsol/sls.h"

namespace Orlix::Data {
namespace {

using Velmo9::Deformation;
using Velmo9::SlsResponse;

// The factor of a response that came without one.
double FactorOf(const Velmo9::VelmoLoad& load, const CVelmoData& document,
                const Velmo9::VelmoSection& section, int iTask, double utilisation) {
  const auto model = VlSol::SlsModel::Of(document, section, iTask);
  if (!model) return std::numeric_limits<double>::infinity();
  if (section.Task(iTask).Action() != LoadAction::load) {
    return VlSol::DistributionFactor(utilisation, model->beta);
  }
  return VlSol::SolveSlsLoad(*model, load.Vector()).zeta;
}

}  // namespace

CInterpolateStrain::CInterpolateStrain(const Velmo9::VelmoLoad& load, const SlsResponse& response,
                                       const CVelmoData& document,
                                       const Velmo9::VelmoSection& section, int iTask,
                                       bool tensionStiffening) {
  const Deformation& uncracked = response.uncracked.Deformation();
  const Deformation& cracked = response.cracked.Deformation();
  const double utilisation =
      VlSol::CrackingUtilisation(document, uncracked, response.uncracked.Components());
  isCracked_ = utilisation > 1.0;
  zeta_ = std::numeric_limits<double>::infinity();
  if (VlSol::HasServiceModel(document, section, iTask, Design::CurveKind::interpolated)) {
    zeta_ = std::isnan(response.zeta) ? FactorOf(load, document, section, iTask, utilisation)
                                      : response.zeta;
    if (!tensionStiffening) zeta_ = isCracked_ ? 1.0 : 0.0;
    interpolated_ = Deformation(zeta_ * cracked.Vector() + (1.0 - zeta_) * uncracked.Vector());
  } else if (VlSol::HasServiceModel(document, section, iTask, Design::CurveKind::bs8110Tension)) {
    interpolated_ = cracked;
  } else {
    interpolated_ = uncracked;
  }
}

}  // namespace Orlix::Data
