#include "model/vlsol/transformed_properties.h"

#include <gtest/gtest.h>

#include <cmath>

namespace Orlix::VlSol {
namespace {

using Data::CSecComp;
using Data::Velmo9::VelmoSection;

// A block 0.3 x 0.6 m about the origin with 2000 mm² at z = -0.25 m and 1000 mm² at z = +0.2 m.
struct Block {
  explicit Block(bool deducts) {
    document.SetOptions({.deductDisplacedConcrete = deducts});
    const Data::Materials& materials = *document.getMaterials();
    const int grade = materials.Find(MatType::concrete, L"C30/37");
    const int bars = materials.Find(MatType::reinforcement, L"B500B");
    concreteModulus = materials.Grade(MatType::concrete, grade).Properties().E;
    ratio = materials.Grade(MatType::reinforcement, bars).Properties().E / concreteModulus;
    CSecComp block(MatType::concrete, grade,
                   Data::CSecGeom(Data::ShapeKind::rectangle, {.width = 0.3, .depth = 0.6}));
    block.Concrete().SetReinforcement(
        {{Data::CBar({0.0, -0.25}, 0.0, 0.002, bars), Data::CBar({0.0, 0.2}, 0.0, 0.001, bars)}});
    Data::CSection geometry;
    geometry.Components() = {block};
    document.AddSection(geometry).AddTask();
  }

  TransformedProperties Of(TransformedTerm term) const {
    return TransformedPropertiesOf(document, document.Section(0), 0, term);
  }

  Data::CVelmoData document;
  double concreteModulus{};
  double ratio{};  // of the moduli
};

// A dozen additions of numbers of the size of the results.
constexpr double kTolerance = 1e-14;

TEST(TransformedProperties, RectangleWithBarsByHand) {
  for (const bool deducts : {false, true}) {
    for (const double creep : {0.0, 2.0}) {
      SCOPED_TRACE(testing::Message() << "deducts " << deducts << ", creep " << creep);
      Block block(deducts);
      block.document.getSection(0).Task(0).SetCreep({.creepCoefficient = creep});
      const TransformedProperties p = block.Of(TransformedTerm::longTerm);
      // Each bar counts n times, n - 1 times when it displaces concrete.
      const double n = block.ratio * (1.0 + creep) - (deducts ? 1.0 : 0.0);
      const double area = 0.18 + n * 0.003;
      const double z = n * (0.002 * -0.25 + 0.001 * 0.2) / area;
      const double iyy = 0.3 * 0.6 * 0.6 * 0.6 / 12.0 + n * (0.002 * 0.0625 + 0.001 * 0.04);
      EXPECT_DOUBLE_EQ(p.modulus, block.concreteModulus / (1.0 + creep));
      EXPECT_NEAR(p.section.area, area, kTolerance);
      EXPECT_NEAR(p.section.centroid.y, z, kTolerance);
      EXPECT_NEAR(p.section.iyy, iyy - area * z * z, kTolerance);
      EXPECT_NEAR(p.section.izz, 0.6 * 0.3 * 0.3 * 0.3 / 12.0, kTolerance);
      EXPECT_EQ(p.section.angle, 0.0);
      EXPECT_DOUBLE_EQ(p.EIyy(), p.modulus * p.section.iyy);
      const double shortArea = 0.18 + (block.ratio - (deducts ? 1.0 : 0.0)) * 0.003;
      EXPECT_NEAR(block.Of(TransformedTerm::shortTerm).section.area, shortArea, kTolerance);
    }
  }
}

TEST(TransformedProperties, CountWhatTheTaskIncludesOnce) {
  Block block(false);
  const Data::Materials& materials = *block.document.getMaterials();
  const int steel = materials.Find(MatType::steel, L"S355");
  VelmoSection& section = block.document.getSection(0);
  section.Components().emplace_back(
      MatType::steel, steel,
      Data::CSecGeom(Data::ShapeKind::rectangle, {.width = 0.1, .depth = 0.1}));
  const double n =
      materials.Grade(MatType::steel, steel).Properties().E / block.concreteModulus - 1.0;
  const double bars = block.ratio * 0.003;
  EXPECT_NEAR(block.Of(TransformedTerm::shortTerm).section.area, 0.18 + bars + n * 0.01,
              kTolerance);

  section.Task(0).SetIncludedComponents({1});  // steel alone: in terms of its own modulus
  const TransformedProperties alone = block.Of(TransformedTerm::longTerm);
  EXPECT_NEAR(alone.section.area, 0.01, kTolerance);
  EXPECT_DOUBLE_EQ(alone.modulus, (n + 1.0) * block.concreteModulus);

  section.Task(0).SetIncludedComponents({});
  EXPECT_EQ(block.Of(TransformedTerm::shortTerm).modulus, 0.0);
  EXPECT_TRUE(std::isnan(block.Of(TransformedTerm::shortTerm).EIyy()));
}

}  // namespace
}  // namespace Orlix::VlSol
