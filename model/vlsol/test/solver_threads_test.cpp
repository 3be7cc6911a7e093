#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "model/vlsol/test/case_document.h"
#include "model/vlsol/test/test_section.h"

#ifdef _OPENMP
#include <omp.h>
#endif

namespace Orlix::VlSol::Test {
namespace {

using Data::Design::CurveKind;
using Data::Velmo9::UlSResult;

std::vector<UlSResult> SolveWithThreads(CaseDocument& document, int threads,
                                        const std::vector<Vec3<double>>& loads) {
#ifdef _OPENMP
  omp_set_num_threads(threads);
#else
  static_cast<void>(threads);
#endif
  return document.Solve(LoadAction::load, loads);
}

TEST(SolverThreads, TheirNumberChangesNoBit) {
  CaseDocument document(true);
  const int concrete = document.AddMaterial(MatType::concrete, {17e6, 33e9},
                                            {.kind = CurveKind::parabolaRectangle,
                                             .epsPeak = 0.002,
                                             .epsLimit = 0.0035,
                                             .uniformLimit = 0.002},
                                            {});
  const Data::Design::CurveShape steelSide{.kind = CurveKind::bilinear, .epsLimit = 0.045};
  const int steel =
      document.AddMaterial(MatType::reinforcement, {435e6, 200e9}, steelSide, steelSide);
  document.AddComponent(MatType::concrete, concrete, {Shapes(0.4, 0.7)[1].outline, {}});
  for (const Vec2<double> p : {Vec2<double>{0.05, 0.05}, {0.35, 0.05}, {0.05, 0.65}}) {
    document.AddBar(0, p, 6e-4, steel, 0.0);
  }
  std::mt19937 random(11);
  std::vector<Vec3<double>> loads;
  for (int i = 0; i < 203; ++i) {
    loads.push_back(
        {Uniform(random, -2e6, 5e5), Uniform(random, -3e5, 3e5), Uniform(random, -3e5, 3e5)});
  }
  const std::vector<UlSResult> one = SolveWithThreads(document, 1, loads);
  const std::vector<UlSResult> four = SolveWithThreads(document, 4, loads);
  ASSERT_EQ(one.size(), loads.size());
  ASSERT_EQ(four.size(), loads.size());
  for (std::size_t i = 0; i < loads.size(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(one[i].LoadUtilisation(), four[i].LoadUtilisation());
    EXPECT_EQ(one[i].DeformationUtilisation(), four[i].DeformationUtilisation());
    EXPECT_EQ(one[i].MomentRatio(), four[i].MomentRatio());
    EXPECT_EQ(one[i].Deformation(), four[i].Deformation());
    EXPECT_EQ(one[i].DeformationAtFailure(), four[i].DeformationAtFailure());
    EXPECT_EQ(one[i].LoadAtFailure(), four[i].LoadAtFailure());
  }
}

}  // namespace
}  // namespace Orlix::VlSol::Test
