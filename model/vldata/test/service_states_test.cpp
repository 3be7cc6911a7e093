// Curves and cracking data of the serviceability states.

#include <gtest/gtest.h>

#include "model/vldata/response/SectionCompiler.h"
#include "model/vldata/test/test_documents.h"

namespace Orlix::Data::Velmo9 {
namespace {

using Design::CurveKind;

// The block with its concrete's serviceability curve set to a model on the tension side.
CVelmoData BlockWithModel(CurveKind model, const CreepSettings& creep) {
  CVelmoData document = BlockDocument({{0.1, -0.25}, {-0.1, -0.25}});
  const int grade = document.Section(0).Components()[0].MaterialGrade();
  Design::CMat& concrete = document.getMaterials()->Grade(MatType::concrete, grade);
  Design::CurveShape shape;
  shape.kind = CurveKind::linear;
  concrete.SetShape(LoadState::SLS, LoadSign::compression, shape);
  shape.kind = model;
  concrete.SetShape(LoadState::SLS, LoadSign::tension, shape);
  document.getSection(0).Task(0).SetLimitStates(true, true);
  document.getSection(0).Task(0).SetCreep(creep);
  return document;
}

double KernelStress(const CompiledTask& compiled, int curve, double strain) {
  const auto& exact = compiled.section.curves[static_cast<std::size_t>(curve)].exact;
  return exact[exact.Locate(strain)].Stress(strain);
}

TEST(ServiceStates, ConcreteTakesCreepAndTheTensionOfItsModel) {
  const struct {
    CurveKind model;
    double uncrackedTension;  // slope over the effective modulus
    double crackedTension;
  } kModels[] = {
      {CurveKind::none, 0.0, 0.0},
      {CurveKind::interpolated, 1.0, 0.0},
      {CurveKind::bs8110Tension, 1.0, 1.0},  // the solver finds the cases' own slopes
  };
  const struct {
    CreepSettings creep;
    double factor;  // of the strains
    double steelLevel;
  } kTerms[] = {
      {{LoadTerm::shortTerm, 2.0, 1.0}, 1.0, 1.0e6},
      {{LoadTerm::longTerm, 2.0, 0.3}, 3.0, 0.55e6},
      {{LoadTerm::intermediate, 2.0, 0.25}, 1.5, 0.8875e6},
  };
  constexpr double kStrain = 1e-5;
  const auto expectState = [&](SectionState state, const auto& m, const auto& t) {
    const CVelmoData document = BlockWithModel(m.model, t.creep);
    const auto& block = document.Section(0).Components()[0];
    const auto& concrete = document.getMaterials()->Grade(MatType::concrete, block.MaterialGrade());
    const double modulus = concrete.Properties().E / t.factor;
    const bool isBs8110 = m.model == CurveKind::bs8110Tension;
    const auto compiled = SectionCompiler::Compile(document, document.Section(0), 0, state);
    ASSERT_TRUE(compiled);
    const int curve = compiled->section.regions[0].curve;
    const double share = state == SectionState::uncracked ? m.uncrackedTension : m.crackedTension;
    const auto& details = compiled->components->at(0);
    EXPECT_DOUBLE_EQ(KernelStress(*compiled, curve, -kStrain), -modulus * kStrain);
    EXPECT_DOUBLE_EQ(KernelStress(*compiled, curve, kStrain), share * modulus * kStrain);
    EXPECT_DOUBLE_EQ(-details.curve.Stress(-kStrain), share * modulus * kStrain);
    EXPECT_DOUBLE_EQ(KernelStress(*compiled, compiled->section.points[0].curve, kStrain),
                     200e9 * kStrain);
    EXPECT_EQ(compiled->bs8110Curves, isBs8110 ? std::vector{curve} : std::vector<int>{});

    ASSERT_TRUE(details.cracking);
    EXPECT_EQ(details.cracking->vertices.size(), 4U);
    EXPECT_EQ(details.cracking->f_ct, concrete.Properties().f_ct);
    EXPECT_DOUBLE_EQ(details.cracking->modulus, modulus);
    EXPECT_EQ(details.cracking->bs8110, isBs8110);
    EXPECT_DOUBLE_EQ(details.cracking->steelLevelStress, isBs8110 ? t.steelLevel : 0.0);
    EXPECT_EQ(details.cracking->bars.size(), isBs8110 ? 2U : 0U);
  };
  for (const auto& m : kModels) {
    for (const auto& t : kTerms) {
      SCOPED_TRACE(testing::Message() << static_cast<int>(m.model) << ", " << t.factor);
      expectState(SectionState::uncracked, m, t);
      expectState(SectionState::cracked, m, t);
    }
  }
}

TEST(ServiceStates, SteelDoesNotCreepAndDoesNotCrack) {
  CVelmoData document = BlockWithModel(CurveKind::interpolated, {LoadTerm::longTerm, 2.0, 1.0});
  document.SetGrade(ParseText(R"({"type": "steel", "name": "S", "f_k": 3e8, "E": 2.1e11})"), false);
  document.getSection(0).Components().emplace_back(
      MatType::steel, document.getMaterials()->Find(MatType::steel, L"S"), Rectangle(0.2, 0.1));
  for (const SectionState state : {SectionState::uncracked, SectionState::cracked}) {
    const auto compiled = SectionCompiler::Compile(document, document.Section(0), 0, state);
    ASSERT_TRUE(compiled);
    EXPECT_DOUBLE_EQ(KernelStress(*compiled, compiled->section.regions[1].curve, -1e-4), -2.1e7);
    EXPECT_FALSE(compiled->components->at(1).cracking);
  }
}

TEST(ServiceStates, CreepOutOfRangeIsNotCompiled) {
  for (const CreepSettings& creep :
       {CreepSettings{LoadTerm::longTerm, -0.1, 1.0}, CreepSettings{LoadTerm::longTerm, 1e9, 1.0},
        CreepSettings{LoadTerm::intermediate, 1.0, 1.1},
        CreepSettings{LoadTerm::intermediate, 1.0, -0.1}}) {
    const CVelmoData document = BlockWithModel(CurveKind::none, creep);
    const auto& section = document.Section(0);
    EXPECT_EQ(
        SectionCompiler::Problems(document, section, 0, LoadState::SLS),
        std::vector<std::string>{"Task 1 has no valid creep: the coefficient must lie between "
                                 "0 and 100, the long-term share between 0 and 1."});
    EXPECT_FALSE(SectionCompiler::Compile(document, section, 0, SectionState::cracked));
    EXPECT_TRUE(SectionCompiler::Compile(document, section, 0, SectionState::ultimate));
  }
}

}  // namespace
}  // namespace Orlix::Data::Velmo9
