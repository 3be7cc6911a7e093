#include "model/vldata/response/TaskGeometry.h"

#include <gtest/gtest.h>

#include <cmath>

#include "model/oxnumeric/polygon.h"
#include "model/vldata/response/SectionCompiler.h"
#include "model/vldata/test/test_documents.h"

namespace Orlix::Data::Velmo9 {
namespace {

struct Plate {
  double width, depth;
  Vec2<double> centre;
};

// The block of 0.4 x 0.6 m with plates of steel laid over it.
CVelmoData WithPlates(std::initializer_list<Vec2<double>> bars, const std::vector<Plate>& plates) {
  CVelmoData document = BlockDocument(bars);
  document.SetGrade(ParseText(R"({"type": "steel", "name": "S", "f_k": 3e8, "E": 2.1e11})"), false);
  const int grade = document.getMaterials()->Find(MatType::steel, L"S");
  for (const Plate& plate : plates) {
    document.getSection(0).Components().emplace_back(
        MatType::steel, grade, Rectangle(plate.width, plate.depth, plate.centre));
  }
  return document;
}

double AreaOf(const TaskGeometry::Component& component) {
  double area = 0.0;
  for (const Numeric::OwnedPolygon& polygon : component.polygons) {
    area += std::abs(Numeric::SignedArea(polygon.outline));
    for (const auto& hole : polygon.holes) area -= std::abs(Numeric::SignedArea(hole));
  }
  return area;
}

TEST(TaskGeometry, LaterComponentsDisplaceEarlierOnes) {
  const struct {
    const char* what;
    std::vector<Plate> plates;
    std::set<int> included;
    std::vector<double> areas;  // [m²] of the included components
  } kCases[] = {
      {"cut in two", {{1.0, 0.1, {0, 0}}}, {0, 1}, {0.2, 0.1}},
      {"covered", {{1.0, 1.0, {0, 0}}}, {0, 1}, {0.0, 1.0}},
      {"two that overlap each other",
       {{0.2, 0.2, {0, 0}}, {0.2, 0.2, {0.1, 0}}},
       {0, 1, 2},
       {0.18, 0.02, 0.04}},
      {"not included", {{0.1, 0.2, {0, 0}}}, {0}, {0.24}},
      {"the earlier not included", {{0.1, 0.2, {0, 0}}}, {1}, {0.02}},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    CVelmoData document = WithPlates({}, c.plates);
    document.getSection(0).Task(0).SetIncludedComponents(c.included);
    const TaskGeometry geometry = TaskGeometry::Of(document, document.Section(0), 0);
    ASSERT_EQ(geometry.Components().size(), c.areas.size());
    for (std::size_t i = 0; i < c.areas.size(); ++i) {
      EXPECT_NEAR(AreaOf(geometry.Components()[i]), c.areas[i], 1e-15);  // a few roundings of 1 m²
    }
    EXPECT_TRUE(SectionCompiler::Compile(document, document.Section(0), 0, SectionState::ultimate));
  }
}

TEST(TaskGeometry, OutlinesThatOnlyTouchStayVertexByVertex) {
  const CVelmoData document = WithPlates({}, {{0.2, 0.4, {0.3, 0.1}}, {0.1, 0.1, {9.0, 9.0}}});
  const TaskGeometry geometry = TaskGeometry::Of(document, document.Section(0), 0);
  for (const TaskGeometry::Component& c : geometry.Components()) {
    const auto given =
        document.Section(0).Components()[static_cast<std::size_t>(c.index)].Geometry().Polygons(
            0.0);
    ASSERT_EQ(c.polygons.size(), 1U);
    EXPECT_EQ(c.polygons[0].outline, given[0].outline);
  }
}

TEST(TaskGeometry, BarsDisplaceTheConcreteThatIsReallyThere) {
  const struct {
    const char* what;
    Vec2<double> bar;
    int host;
  } kCases[] = {
      {"in the concrete that is left", {0.15, 0.0}, 0},
      {"in the steel laid over it", {0.0, 0.0}, -1},
      {"on the edge of the steel", {0.05, 0.0}, 0},
      {"in concrete laid over the steel", {-0.04, 0.0}, 2},
      {"on the outline", {0.2, 0.1}, 0},
      {"outside", {0.5, 0.0}, -1},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    CVelmoData document = WithPlates({c.bar}, {{0.1, 0.2, {0, 0}}});
    auto& components = document.getSection(0).Components();
    components.emplace_back(MatType::concrete, components[0].MaterialGrade(),
                            Rectangle(0.03, 0.03, {-0.04, 0.0}));
    const auto hosts = [&] {
      return TaskGeometry::Of(document, document.Section(0), 0).Components()[0].barHosts;
    };
    EXPECT_EQ(hosts(), std::vector<int>{c.host});
    document.SetOptions({false});
    EXPECT_EQ(hosts(), std::vector<int>{-1});
  }
}

TEST(TaskGeometry, InvalidOutlinesAreLeftOut) {
  for (const CSecGeom& geometry :
       {CSecGeom(), CSecGeom({{{{-1, -1}, {1, 1}, {1, -1}, {-1, 1}}, {}}}), Rectangle(1e9, 1e9),
        Rectangle(1.0, 1.0, {NAN, 0.0})}) {
    CVelmoData document = WithPlates({}, {{0.1, 0.1, {0, 0}}});
    document.getSection(0).Components()[1].SetGeometry(geometry);
    const TaskGeometry left = TaskGeometry::Of(document, document.Section(0), 0);
    EXPECT_DOUBLE_EQ(AreaOf(left.Components()[0]), 0.24);
    EXPECT_TRUE(left.Components()[1].polygons.empty());
    EXPECT_FALSE(
        SectionCompiler::Compile(document, document.Section(0), 0, SectionState::ultimate, left));
  }
}

}  // namespace
}  // namespace Orlix::Data::Velmo9
