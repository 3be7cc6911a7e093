#include "results/StressStrainCalculator.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace Orlix {
namespace {

using namespace Data;          // NOLINT(google-build-using-namespace)
using namespace Data::Velmo9;  // NOLINT(google-build-using-namespace)
using Design::CMat;
using Design::CMatRebar;
using Design::CurveKind;

constexpr double kConcreteModulus = 30e9;
constexpr double kSteelModulus = 200e9;

// A linear material, so that every stress is a product that can be checked by hand.
template <class Material>
Material Linear(Material material, const wchar_t* name, double modulus) {
  material.SetName(name);
  material.SetProperties({.f_k = 1e9, .E = modulus});
  for (const LoadSign sign : {LoadSign::compression, LoadSign::tension}) {
    material.SetShape(LoadState::ULS, sign, {.kind = CurveKind::linear, .epsLimit = 0.02});
  }
  return material;
}

// A 0.4 m by 0.6 m column with one bar, a steel plate and an FRP plate beside it.
class StressStrainCalculatorTest : public testing::Test {
 protected:
  StressStrainCalculatorTest() {
    Materials& materials = *document.getMaterials();
    const int concrete =
        materials.Add(Linear(CMat(MatType::concrete), L"test concrete", kConcreteModulus));
    const int steel = materials.Add(Linear(CMat(MatType::steel), L"test steel", kSteelModulus));
    const int frp = materials.Add(Linear(CMat(MatType::FRP), L"test FRP", 100e9));
    rebar = materials.Add(Linear(CMatRebar(), L"test bar", kSteelModulus));
    section.Components() = {Plate(MatType::concrete, concrete, 0.4, 0.6, 0.0),
                            Plate(MatType::steel, steel, 0.02, 0.6, 0.21),
                            Plate(MatType::FRP, frp, 0.02, 0.6, 0.23)};
    section.Components()[0].Concrete().SetReinforcement({{CBar({0.1, -0.25}, 0.02, 3e-4, rebar)}});
    task = &section.AddTask();
  }

  static CSecComp Plate(MatType type, int grade, double width, double depth, double y) {
    return CSecComp(type, grade,
                    CSecGeom(ShapeKind::rectangle, {.width = width, .depth = depth}, {y, 0.0}));
  }

  DetailedIntegrationResult Result(const Vec3<double>& plane, const Vec3<double>& lockedIn) const {
    auto details = std::make_shared<DetailedIntegrationResult::ComponentMap>();
    for (int i = 0; i < 3; ++i) {
      const CSecComp& component = section.Components()[static_cast<std::size_t>(i)];
      const CMat& material =
          document.getMaterials()->Grade(component.MaterialType(), component.MaterialGrade());
      (*details)[i] = {material.Curve(LoadState::ULS), Deformation(lockedIn), true, nullptr};
    }
    return DetailedIntegrationResult(Deformation(plane), VelmoLoad(), details);
  }

  CaseULSDetails Fill(const DetailedIntegrationResult& result) const {
    CaseULSDetails record;
    const StressStrainCalculator calculator(document);
    calculator.AddUlsPointResults(section, record, result, *task);
    calculator.ComputeUlsSummary(section, record, result, *task);
    return record;
  }

  CVelmoData document;
  VelmoSection section;
  AnalysisTask* task{};
  int rebar{};
};

// Strains and stresses of this size carry a few roundings of 1e-16 relative.
constexpr double kStrainError = 1e-15;
constexpr double kStressError = 1e-3;  // [Pa]

TEST_F(StressStrainCalculatorTest, MatchesHandCalculation) {
  section.Components()[0].Concrete().SetReinforcement(
      {{CBar({0.1, -0.25}, 0.02, 3e-4, rebar, {PreloadKind::force, 3e4})}});
  const CaseULSDetails record = Fill(Result({-0.0005, 0.002, 0.001}, {}));
  const struct {
    const wchar_t* grade;
    const wchar_t* type;
    double modulus;
  } kMaterials[] = {{L"test concrete", L"concrete", kConcreteModulus},
                    {L"test steel", L"steel", kSteelModulus},
                    {L"test FRP", L"FRP", 100e9}};
  ASSERT_EQ(record.pointResults.size(), 3U);
  for (const auto& [component, points] : record.pointResults) {
    ASSERT_EQ(points.size(), 4U);
    for (const PointULSResult& point : points) {
      const double strain = -0.0005 + 0.002 * point.position.y - 0.001 * point.position.x;
      EXPECT_NEAR(point.strain, strain, kStrainError);
      EXPECT_NEAR(point.stress, kMaterials[component].modulus * strain, kStressError);
      EXPECT_EQ(point.grade, kMaterials[component].grade);
      EXPECT_EQ(point.materialType, kMaterials[component].type);
    }
  }
  ASSERT_EQ(record.barResults.size(), 1U);  // plates have no bars
  const BarULSResult& bar = record.barResults.at(0).at(0);
  EXPECT_EQ(bar.number, 0);
  EXPECT_EQ(bar.grade, L"test bar");
  EXPECT_NEAR(bar.strain, -0.0011 + 0.0005, kStrainError);
  EXPECT_NEAR(bar.stress, -120e6, kStressError);
  EXPECT_NEAR(bar.force, -36e3, 1e-6);

  EXPECT_NEAR(record.stressStrainSummary.Concrete().minStrain, -0.00134, kStrainError);
  EXPECT_NEAR(record.stressStrainSummary.Concrete().maxStrain, 0.0003, kStrainError);
  EXPECT_NEAR(record.stressStrainSummary.Rebar().maxStress, -120e6, kStressError);
}

TEST_F(StressStrainCalculatorTest, LockedInStrainNeedsAPreloadAndForBarsAClearFlag) {
  const struct {
    bool isPreloaded;
    bool barsExcluded;
    double point;
    double bar;
  } kCases[] = {{false, false, 0.0, 0.0}, {true, false, 0.0002, 0.0002}, {true, true, 0.0002, 0.0}};
  for (const auto& c : kCases) {
    AnalysisTask withPreload;
    Data::Velmo9::PreloadReference from;
    if (c.barsExcluded) from.barsAddedLater = {0};
    if (c.isPreloaded) withPreload.SetPreloadFrom(from);
    *task = withPreload;
    const CaseULSDetails record = Fill(Result({}, {0.0002, 0.0, 0.0}));
    EXPECT_DOUBLE_EQ(record.pointResults.at(0)[0].strain, c.point);
    EXPECT_DOUBLE_EQ(record.barResults.at(0)[0].strain, c.bar);
  }
}

TEST_F(StressStrainCalculatorTest, ExcludedComponentsGiveNothing) {
  task->SetIncludedComponents({1});
  EXPECT_EQ(Fill(Result({}, {})).pointResults.size(), 1U);
  EXPECT_FALSE(Fill(Result({}, {})).stressStrainSummary.HasRebar());
  task->SetIncludedComponents({});
  const CaseULSDetails none = Fill(Result({}, {}));
  EXPECT_TRUE(none.pointResults.empty() && none.barResults.empty());
  EXPECT_FALSE(none.stressStrainSummary.HasConcrete());
}

TEST_F(StressStrainCalculatorTest, ResultWithoutAnIncludedComponentIsOutOfRange) {
  try {
    Fill(DetailedIntegrationResult());
    FAIL() << "no exception";
  } catch (const std::out_of_range& error) {
    EXPECT_EQ(error.what(), std::string("invalid map<K, T> key"));
  }
}

}  // namespace
}  // namespace Orlix
