#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <stdexcept>

#include "results/StressStrainCalculator.h"

namespace Orlix {
namespace {

using namespace Data;          // NOLINT(google-build-using-namespace)
using namespace Data::Velmo9;  // NOLINT(google-build-using-namespace)
using Design::CMat;
using Design::CMatCurveParam;
using Design::CMatRebar;
using Design::CurveKind;

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kBarModulus = 100e9;  // at the serviceability limit state; twice that at ULS
constexpr double kBarArea = 3e-4;

CMatCurveParam LinearCurve(double modulus) {
  CMatCurveParam curve(MatType::concrete);
  const Design::CurveShape line{.kind = CurveKind::linear, .epsLimit = 0.02};
  curve.SetShapes(line, line, {.strength = 1e9, .modulus = modulus});
  return curve;
}

// A column with one bar and a steel plate beside it. Each state has a plane and a modulus of its
// own, so that no value can come from the wrong state.
class SlsStressStrainTest : public testing::Test {
 protected:
  using ComponentDetails = DetailedIntegrationResult::ComponentDetails;
  using ComponentMap = DetailedIntegrationResult::ComponentMap;

  SlsStressStrainTest() {
    Materials& materials = *document.getMaterials();
    CMat plain(MatType::concrete);
    plain.SetName(L"test concrete");
    concrete = materials.Add(plain);
    CMat plate(MatType::steel);
    plate.SetName(L"test steel");
    const int steel = materials.Add(plate);
    CMatRebar bar;
    bar.SetName(L"test bar");
    bar.SetProperties({.f_k = 1e9, .E = 2 * kBarModulus});
    CTableT<double> line(2);
    line.AddRow({0.01, 0.01 * kBarModulus});
    bar.SetExplicitPoints(LoadState::SLS, LoadSign::compression, line);
    bar.SetExplicitPoints(LoadState::SLS, LoadSign::tension, line);
    const int rebar = materials.Add(bar);
    CSection geometry;
    geometry.Components() = {Plate(MatType::concrete, concrete, 0.4, 0.0),
                             Plate(MatType::steel, steel, 0.02, 0.21)};
    geometry.Components()[0].Concrete().SetReinforcement(
        {{CBar({0.1, -0.25}, 0.02, kBarArea, rebar, {PreloadKind::strain, 0.0004})}});
    document.AddSection(geometry).AddTask();
    for (int i = 0; i < 2; ++i) {
      const double lockedIn = i == 0 ? 0.0001 : 0.0;
      uncracked[i] = {LinearCurve(30e9), Deformation({lockedIn, 0.0, 0.0}), true, nullptr};
      cracked[i] = {LinearCurve(10e9), Deformation({3.0 * lockedIn, 0.0, 0.0}), true, nullptr};
    }
  }

  static CSecComp Plate(MatType type, int grade, double width, double y) {
    return CSecComp(type, grade,
                    CSecGeom(ShapeKind::rectangle, {.width = width, .depth = 0.6}, {y, 0.0}));
  }

  AnalysisTask& Task() { return document.getSection(0).Task(0); }

  void SetModel(CurveKind kind) {
    document.getMaterials()
        ->Grade(MatType::concrete, concrete)
        .SetShape(LoadState::SLS, LoadSign::compression, {.kind = kind});
  }

  SlsResponse Response() const {
    const auto share = [](const ComponentMap& map) {
      return std::make_shared<const ComponentMap>(map);
    };
    return {DetailedIntegrationResult(Deformation({0.0002, 0.001, 0.0}), {}, share(uncracked)),
            DetailedIntegrationResult(Deformation({-0.0001, 0.0, 0.002}), {}, share(cracked))};
  }

  void Fill(CaseSLSDetails& record) const {
    const StressStrainCalculator calculator(document);
    calculator.AddSlsPointResults(0, 0, Response(), record);
    calculator.ComputeSlsSummary(0, 0, Response(), record);
  }
  CaseSLSDetails Filled() const {
    CaseSLSDetails record;
    Fill(record);
    return record;
  }

  CVelmoData document;
  int concrete{};
  ComponentMap uncracked;
  ComponentMap cracked;
};

// Strains and stresses of this size carry a few roundings of 1e-16 relative.
constexpr double kStrainError = 1e-15;
constexpr double kStressError = 1e-3;  // [Pa]

TEST_F(SlsStressStrainTest, BothStatesMatchHandCalculation) {
  SetModel(CurveKind::interpolated);
  Task().SetPreloadFrom(Data::Velmo9::PreloadReference{});  // locks in 0.0001, cracked 0.0003
  const CaseSLSDetails record = Filled();
  ASSERT_EQ(record.pointResults.size(), 2U);
  for (const auto& [component, points] : record.pointResults) {
    ASSERT_EQ(points.size(), 4U);
    for (const PointSLSResult& point : points) {
      const bool locksIn = component == 0;
      const double first = 0.0002 + 0.001 * point.position.y + (locksIn ? 0.0001 : 0.0);
      const double second = -0.0001 - 0.002 * point.position.x + (locksIn ? 0.0003 : 0.0);
      EXPECT_NEAR(point.strainUncracked, first, kStrainError);
      EXPECT_NEAR(point.stressUncracked, 30e9 * first, kStressError);
      EXPECT_NEAR(point.strainCracked, second, kStrainError);
      EXPECT_NEAR(point.stressCracked, 10e9 * second, kStressError);
      EXPECT_EQ(point.materialType, locksIn ? L"concrete" : L"steel");
    }
  }
  EXPECT_EQ(record.pointResults.at(0)[0].grade, L"test concrete");

  ASSERT_EQ(record.barResults.size(), 1U);
  const BarSLSResult& bar = record.barResults.at(0)[0];
  const double first = 0.0002 - 0.001 * 0.25 + 0.0004 + 0.0001;
  const double second = -0.0001 - 0.002 * 0.1 + 0.0004 + 0.0003;
  EXPECT_EQ(bar.grade, L"test bar");
  EXPECT_NEAR(bar.strainUncracked, first, kStrainError);
  EXPECT_NEAR(bar.stressUncracked, kBarModulus * first, kStressError);
  EXPECT_NEAR(bar.forceUncracked, kBarModulus * kBarArea * first, kStressError);
  EXPECT_NEAR(bar.strainCracked, second, kStrainError);
  EXPECT_NEAR(bar.stressCracked, kBarModulus * second, kStressError);
  EXPECT_NEAR(bar.forceCracked, kBarModulus * kBarArea * second, kStressError);

  // The extremes are those at the top and bottom (uncracked) and at the two sides (cracked).
  const SlsStressStrainSummary& summary = record.stressStrainSummary;
  EXPECT_NEAR(summary.uncracked.Concrete().maxStrain, 0.0006, kStrainError);
  EXPECT_NEAR(summary.uncracked.Rebar().maxStress, kBarModulus * first, kStressError);
  ASSERT_TRUE(summary.cracked);
  EXPECT_NEAR(summary.cracked->Concrete().minStress, 10e9 * -0.00054, kStressError);
  EXPECT_NEAR(summary.cracked->Rebar().minStress, kBarModulus * second, kStressError);
}

TEST_F(SlsStressStrainTest, OnlySomeModelsHaveACrackedStateAndEveryRunReplacesTheLast) {
  CaseSLSDetails record;
  for (const CurveKind kind :
       {CurveKind::interpolated, CurveKind::bs8110Tension, CurveKind::linear}) {
    SCOPED_TRACE(static_cast<int>(kind));
    SetModel(kind);
    Fill(record);
    const bool cracks = kind != CurveKind::linear;
    EXPECT_EQ(record.stressStrainSummary.cracked.has_value(), cracks);
    EXPECT_NE(record.pointResults.at(1)[0].stressUncracked, kInf);
    EXPECT_EQ(record.pointResults.at(1)[0].stressCracked != kInf, cracks);
    EXPECT_EQ(record.barResults.at(0)[0].forceCracked != kInf, cracks);
    EXPECT_EQ(record.pointResults.at(0).size(), 4U);
  }
  document.getSection(0).Components()[0].Concrete().SetReinforcement({});
  Fill(record);
  EXPECT_TRUE(record.barResults.at(0).empty());
  EXPECT_FALSE(record.stressStrainSummary.HasRebar());
}

TEST_F(SlsStressStrainTest, WhatHasNoValidResultsIsListedWithoutValues) {
  SetModel(CurveKind::interpolated);
  cracked[0].barResultsValid = false;
  CaseSLSDetails record = Filled();
  EXPECT_NE(record.barResults.at(0)[0].strainUncracked, kInf);
  EXPECT_EQ(record.barResults.at(0)[0].forceCracked, kInf);
  EXPECT_FALSE(record.stressStrainSummary.cracked->HasRebar());
  cracked[0].barResultsValid = true;
  uncracked.erase(0);
  record = Filled();
  ASSERT_EQ(record.pointResults.at(0).size(), 4U);
  const PointSLSResult& point = record.pointResults.at(0)[0];
  EXPECT_EQ(point.strainUncracked, kInf);
  EXPECT_EQ(point.stressUncracked, kInf);
  EXPECT_DOUBLE_EQ(std::abs(point.position.y), 0.3);
  EXPECT_NE(point.stressCracked, kInf);
  EXPECT_EQ(record.barResults.at(0)[0].strainUncracked, kInf);
  EXPECT_NE(record.barResults.at(0)[0].forceCracked, kInf);
  EXPECT_TRUE(record.stressStrainSummary.uncracked.HasConcrete());  // of the plate
  EXPECT_FALSE(record.stressStrainSummary.uncracked.HasRebar());
}

TEST_F(SlsStressStrainTest, MissingCrackedDetailsAreOutOfRangeUnderEveryModel) {
  cracked.erase(1);
  const StressStrainCalculator calculator(document);
  for (const CurveKind kind : {CurveKind::linear, CurveKind::interpolated}) {
    SetModel(kind);
    CaseSLSDetails record;
    EXPECT_THROW(calculator.AddSlsPointResults(0, 0, Response(), record), std::out_of_range);
    EXPECT_THROW(calculator.ComputeSlsSummary(0, 0, Response(), record), std::out_of_range);
    EXPECT_FALSE(record.stressStrainSummary.HasConcrete());
  }
  Task().SetIncludedComponents({0});  // the plate is not asked for any more
  EXPECT_EQ(Filled().pointResults.size(), 1U);
}

}  // namespace
}  // namespace Orlix
