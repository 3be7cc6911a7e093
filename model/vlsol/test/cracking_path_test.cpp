// What happens between the uncracked and the cracked state as a load grows, with prestress too.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "model/vlsol/test/service_beam.h"

namespace Orlix::VlSol::Test {
namespace {

using Data::Design::CurveKind;
using Data::Velmo9::LoadTerm;
using Data::Velmo9::SLSResult;

ServiceBeam Beam(CurveKind model, double prestrain, bool isLong) {
  ServiceBeam beam(model);
  beam.Rectangle(0.3, 0.6).Bar({0.0, -0.22}, 10e-4, prestrain).Bar({0.1, -0.25}, 6e-4);
  beam.Bar({0.0, 0.25}, 4e-4);
  beam.Creep({isLong ? LoadTerm::longTerm : LoadTerm::shortTerm});
  return beam;
}

// Biaxial, with a thrust; the bar at (0.1, -0.25) is the most strained one.
constexpr Vec3<double> kLoad{-50e3, -100e3, -20e3};

double UtilisationUnder(ServiceBeam& beam, double factor) {
  return beam.Under(factor * kLoad).CrackingUtilisation();
}

// Factor of the load at which the concrete's tension reaches the strength: it is linear in the load
// as long as the same vertex, or the same bars, are in tension.
double CrackingFactor(ServiceBeam& beam) {
  double factor = 2.0;
  for (int i = 0; i < 12; ++i) {
    const double at = UtilisationUnder(beam, factor);
    const double slope = (UtilisationUnder(beam, 1.01 * factor) - at) / (0.01 * factor);
    factor += (1.0 - at) / slope;
  }
  return factor;
}

double StrainAtLowestBar(const SLSResult& result) {
  return result.Response().cracked.Deformation().StrainAt({0.1, -0.25});
}

TEST(CrackingPath, FactorBeginsAtOneLessBetaAndFollowsTheSteel) {
  for (const double prestrain : {0.0, 1e-3, 2e-3}) {
    for (const bool isLong : {false, true}) {
      SCOPED_TRACE(testing::Message() << prestrain << (isLong ? " long" : " short"));
      const double beta = isLong ? 0.5 : 1.0;
      ServiceBeam beam = Beam(CurveKind::interpolated, prestrain, isLong);
      const double factor = CrackingFactor(beam);
      EXPECT_EQ(beam.Under((1.0 - 1e-9) * factor * kLoad).Response().zeta, 0.0);
      const SLSResult first = beam.Under((1.0 + 1e-9) * factor * kLoad);
      EXPECT_NEAR(first.Response().zeta, 1.0 - beta, 1e-6);
      double last = 0.0;
      for (const double times : {1.1, 1.5, 2.0}) {
        const SLSResult result = beam.Under(times * factor * kLoad);
        ASSERT_FALSE(result.IsFail());
        // Stress of the steel at first cracking over that under the load, in the cracked section.
        const double ratio = StrainAtLowestBar(first) / StrainAtLowestBar(result);
        EXPECT_NEAR(result.Response().zeta, 1.0 - beta * ratio * ratio, 1e-6);
        EXPECT_GT(result.Response().zeta, last);
        last = result.Response().zeta;
      }
    }
  }
}

// Both ways to the factor, by the loads and by the steel, agree where cracking is proportional.
TEST(CrackingPath, PrestrainOfNoSizeChangesNothing) {
  ServiceBeam without = Beam(CurveKind::interpolated, 0.0, true);
  ServiceBeam with = Beam(CurveKind::interpolated, 1e-14, true);
  const double factor = 1.8 * CrackingFactor(without);
  EXPECT_NEAR(with.Under(factor * kLoad).Response().zeta,
              without.Under(factor * kLoad).Response().zeta, 1e-8);
}

TEST(CrackingPath, AFactorThatIsNotKnownIsFound) {
  for (const double prestrain : {0.0, 1e-3}) {
    ServiceBeam beam = Beam(CurveKind::interpolated, prestrain, true);
    const double first = CrackingFactor(beam);
    for (const double times : {0.9, 1.4}) {
      SCOPED_TRACE(testing::Message() << prestrain << ", " << times);
      const Vec3<double> load = times * first * kLoad;
      Data::Velmo9::SlsResponse response = beam.Under(load).Response();
      const double known = response.zeta;
      response.zeta = std::numeric_limits<double>::quiet_NaN();
      const Data::CVelmoData& document = beam.Document().Document();
      const auto between = [&](bool tensionStiffening) {
        return Data::CInterpolateStrain(Data::Velmo9::VelmoLoad(load), response, document,
                                        document.Section(0), 0, tensionStiffening);
      };
      EXPECT_NEAR(between(true).Zeta(), known, 1e-9);
      EXPECT_EQ(between(false).Zeta(), times > 1.0 ? 1.0 : 0.0);
      EXPECT_EQ(between(false).InterpolatedStrain().Vector(),
                times > 1.0 ? response.cracked.Deformation().Vector()
                            : response.uncracked.Deformation().Vector());
    }
  }
}

// Nothing jumps at the load that cracks the section: beta is 1, and the slope of the tension begins
// at the full modulus.
TEST(CrackingPath, PlanesAreContinuousAtFirstCracking) {
  for (const CurveKind model : {CurveKind::interpolated, CurveKind::bs8110Tension}) {
    for (const double prestrain : {0.0, 1e-3}) {
      SCOPED_TRACE(testing::Message() << static_cast<int>(model) << ", " << prestrain);
      ServiceBeam beam = Beam(model, prestrain, false);
      const double factor = CrackingFactor(beam);
      const auto at = [&](double times) {
        const Vec3<double> load = times * factor * kLoad;
        const SLSResult result = beam.Under(load);
        const auto between = beam.Document().Interpolation(load, result);
        EXPECT_EQ(between.IsCracked(), times > 1.0);
        return between.InterpolatedStrain().Vector();
      };
      const Vec3<double> step = at(1.0 + 1e-8) - at(1.0 - 1e-8);
      EXPECT_LE(std::abs(step.x) + 0.35 * std::hypot(step.y, step.z), 1e-10);
    }
  }
}

}  // namespace
}  // namespace Orlix::VlSol::Test
