#include "model/vldata/response/SectionCompiler.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "model/vldata/response/ResultMesh.h"
#include "model/vldata/test/test_documents.h"

namespace Orlix::Data::Velmo9 {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

std::shared_ptr<const CompiledTask> CompileUls(const CVelmoData& document) {
  return SectionCompiler::Compile(document, document.Section(0), 0, SectionState::ultimate);
}

TEST(SectionCompiler, CurvesAreTensionPositiveAndSharedByGrade) {
  const CVelmoData document = BlockDocument({{0.0, 0.1}, {0.0, -0.1}});
  const CSecComp& block = document.Section(0).Components()[0];
  const auto compiled = CompileUls(document);
  ASSERT_TRUE(compiled);
  const Numeric::CompiledSection& section = compiled->section;
  ASSERT_EQ(section.curves.size(), 2U);
  EXPECT_EQ(section.points[0].curve, section.points[1].curve);
  EXPECT_EQ(section.points[0].displacedCurve, section.regions[0].curve);
  const auto expectMirrored = [&](MatType type, int grade, int index) {
    const auto& material = document.getMaterials()->Grade(type, grade).Curve(LoadState::ULS);
    const auto& curve = section.curves[static_cast<std::size_t>(index)];
    EXPECT_EQ(curve.lower, -material.CompressionLimit());
    EXPECT_EQ(curve.upper, material.TensionLimit());
    EXPECT_EQ(curve.uniformLimit, material.UniformCompressionLimit());
    EXPECT_EQ(curve.lowerIsCap, material.IsLimitCap(LoadSign::compression));
    EXPECT_EQ(curve.upperIsCap, material.IsLimitCap(LoadSign::tension));
    for (const double strain : {-0.0034, -0.002, -0.0011, -1e-5, 1e-5, 0.0011, 0.003, 0.05}) {
      const double stress = curve.exact[curve.exact.Locate(strain)].Stress(strain);
      EXPECT_EQ(stress, -material.Stress(-strain)) << strain;
    }
  };
  expectMirrored(MatType::concrete, block.MaterialGrade(), section.regions[0].curve);
  expectMirrored(MatType::reinforcement, block.Concrete().Bars()[0].Grade(),
                 section.points[0].curve);
}

TEST(SectionCompiler, ATensilePreloadStrainsTheBarByTheCurveOfTheState) {
  const struct {
    Preload preload;
    double ultimate, service;  // strain
  } kCases[] = {
      {{PreloadKind::strain, 0.001}, 0.001, 0.001},
      {{PreloadKind::stress, -100e6}, -0.0005, -0.0005},
      {{PreloadKind::force, 31400.0}, 0.0005, 0.0005},
      // Beyond the design curve of B500B: the strain of its peak, f_yk / 1.15.
      {{PreloadKind::stress, 470e6}, 0.0025 / 1.15, 0.00235},
      {{static_cast<PreloadKind>(7), 3.0}, 0.0, 0.0},
  };
  for (const auto& c : kCases) {
    CVelmoData document = BlockDocument({{0.0, 0.1}});
    Reinforcement bars = document.Section(0).Components()[0].Concrete().GetReinforcement();
    bars.bars[0].SetPreload(c.preload);
    document.getSection(0).Components()[0].Concrete().SetReinforcement(bars);
    EXPECT_DOUBLE_EQ(BarPreStrain(document, bars.bars[0], LoadState::ULS), -c.ultimate);
    for (const auto state : {SectionState::ultimate, SectionState::uncracked}) {
      const auto compiled = SectionCompiler::Compile(document, document.Section(0), 0, state);
      ASSERT_TRUE(compiled);
      EXPECT_DOUBLE_EQ(compiled->section.points[0].strainOffset,
                       state == SectionState::ultimate ? c.ultimate : c.service);
      EXPECT_EQ(compiled->section.points[0].displacedOffset, 0.0);
    }
  }
}

TEST(SectionCompiler, SaysWhatCannotBeCompiled) {
  const auto bar = [](const CBar& edited) {
    return [edited](CVelmoData&, VelmoSection& s) {
      s.Components()[0].Concrete().SetReinforcement({{edited}});
    };
  };
  const auto shape = [](const CSecGeom& geometry) {
    return [geometry](CVelmoData&, VelmoSection& s) { s.Components()[0].SetGeometry(geometry); };
  };
  const struct {
    std::function<void(CVelmoData&, VelmoSection&)> edit;
    const char* problem;
  } kCases[] = {
      {[](CVelmoData&, VelmoSection& s) { s.Task(0).SetIncludedComponents({1}); },
       "Task 1 includes no component."},
      {[](CVelmoData&, VelmoSection& s) { s.Components()[0].SetMaterial(MatType::none, 0); },
       "Component 1 has no material type: choose concrete, steel or FRP."},
      {[](CVelmoData&, VelmoSection& s) { s.Components()[0].SetMaterial(MatType::concrete, 99); },
       "Component 1 has no grade of its material: choose one of the document's."},
      {[](CVelmoData& d, VelmoSection&) {
         d.getMaterials()
             ->Grade(MatType::concrete, d.getMaterials()->Find(MatType::concrete, L"C30/37"))
             .SetProperties({kNaN, 1e10, 0.0, 1.0, 1.5});
       },
       "Component 1: the grade C30/37 has no valid stress-strain curve at the ultimate limit "
       "state."},
      {shape(CSecGeom()), "Component 1 has no valid outline: there is no shape."},
      {shape(CSecGeom({{{{0.0, 0.0}, {1e9, 0.0}, {0.0, 1.0}}, {}}})),
       "Component 1 reaches further than 1000 km from the section's origin."},
      {bar(CBar({0.0, 0.0}, 0.02, 3e-4, -1)),
       "Component 1, bar 1 has no grade of the document's reinforcement."},
      {bar(CBar({0.0, 0.0}, 0.02, 0.0, 1)),
       "Component 1, bar 1 has no area: give it a diameter or an area."},
      {bar(CBar({0.0, kNaN}, 0.02, 3e-4, 1)), "Component 1, bar 1 has no valid position."},
      {bar(CBar({0.0, 0.0}, 0.02, 3e-4, 1, {PreloadKind::strain, kNaN})),
       "Component 1, bar 1 has a preload that its curve does not reach."},
      {bar(CBar({0.0, 0.0}, 0.02, 3e-4, 1, {PreloadKind::force, 1e6})),
       "Component 1, bar 1 has a preload that its curve does not reach."},
      {[](CVelmoData& d, VelmoSection& s) {
         d.SetCodes(OrlixString<wchar_t>(L"ACI 318-19"));
         s.Task(0).SetPhiFactors(CustomPhi{0.006, 0.005, 0.65, 0.9});
       },
       "Error from task 1: compression controlled strain limit should not be greater than tension "
       "controlled strain limit"},
      {[](CVelmoData&, VelmoSection& s) { s.Task(0).SetPreloadFrom(PreloadReference{}); },
       "Task 1 is preloaded by a case that has no results: solve the earlier task first."},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.problem);
    CVelmoData document = BlockDocument({});
    c.edit(document, document.getSection(0));
    EXPECT_EQ(SectionCompiler::Problems(document, document.Section(0), 0, LoadState::ULS),
              std::vector<std::string>{c.problem});
    EXPECT_EQ(CompileUls(document), nullptr);
    EXPECT_THROW(ResultMesh(document, document.Section(0), 0, SectionState::ultimate),
                 std::invalid_argument);
  }
}

TEST(ResultMesh, AFarOriginAndBothDirectionsGiveTheSameState) {
  CVelmoData document = BlockDocument({{49.9, -20.25}, {50.1, -20.25}, {50.0, -19.75}});
  document.getSection(0).Components()[0].SetGeometry(Rectangle(0.4, 0.6, {50.0, -20.0}));
  const ResultMesh mesh(document, document.Section(0), 0, SectionState::ultimate);
  const Vec3<double> about{-1.2e6, 1.2e5 + 20.0 * 1.2e6, 3e4 + 50.0 * 1.2e6};
  const DetailedIntegrationResult there = mesh.GetResponseTo(VelmoLoad(about));
  const DetailedIntegrationResult back = mesh.GetResponseTo(there.Deformation());
  // The solver stops at 1e-11 of the load, taken about the section's centre; moments about the
  // origin add the axial force times the distance.
  for (const auto& load : {there.Load().Vector(), back.Load().Vector()}) {
    EXPECT_NEAR(load.x, about.x, 1e-10 * 1.2e6);
    EXPECT_NEAR(load.y, about.y, 1e-10 * 50.0 * 1.2e6);
    EXPECT_NEAR(load.z, about.z, 1e-10 * 50.0 * 1.2e6);
  }
  EXPECT_EQ(back.Components().size(), 1U);
}

}  // namespace
}  // namespace Orlix::Data::Velmo9
