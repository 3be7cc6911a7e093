#include "model/oxdata/reinforcement/CPositionRebar.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <memory>
#include <numbers>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "model/oxdata/reinforcement/FaceDistance.h"
#include "model/oxutil/text.h"

namespace Orlix::Velmo {
namespace {

using Data::BarDescription;
using Data::CBar;
using Data::CSecComp;
using Data::CSecGeom;
using Data::CSection;
using Data::FaceDistance;
using Data::Reinforcement;
using Data::ShapeKind;

constexpr double kPi = std::numbers::pi;

// One component of concrete with its descriptions, lengths in mm.
class Described {
 public:
  explicit Described(CSecGeom geometry, std::vector<std::string> texts = {}, double link = 0.0) {
    CSecComp component(MatType::concrete, 0, std::move(geometry));
    Reinforcement reinforcement;
    for (const std::string& text : texts)
      reinforcement.descriptions.push_back({cstr(text), 0, {}, {}});
    reinforcement.links.size = link;
    component.Concrete().SetReinforcement(reinforcement);
    section_.Components().push_back(component);
    Generate();
  }

  void Generate() {
    CPositionRebar positioner(grades_, sizes_, Data::Design::CConcCode(), Data::CUnit());
    positioner.GenerateRebar(section_);
    problems.clear();
    for (const RebarProblem& p : positioner.Problems()) {
      problems += std::to_string(p.description + 1) + ": " + p.text + "\n";
    }
  }
  Reinforcement Bars() const { return section_.Components()[0].Concrete().GetReinforcement(); }
  void SetBars(const Reinforcement& bars) {
    section_.Components()[0].Concrete().SetReinforcement(bars);
  }

  std::string problems;

 private:
  static std::shared_ptr<Data::Materials> Grades() {
    auto materials = std::make_shared<Data::Materials>();
    Data::Design::CMatRebar grade;
    grade.SetName(L"B500A");
    materials->Add(grade);
    return materials;
  }

  Util::CRebarHelper grades_{Grades()};
  Util::CBarHelper sizes_;
  CSection section_;
};

CSecGeom Rectangle() { return {ShapeKind::rectangle, {.width = 0.3, .depth = 0.5}}; }

Vec2<double> Polar(double radius, double degrees) {
  return {radius * std::cos(degrees * kPi / 180), radius * std::sin(degrees * kPi / 180)};
}

// Places in mm, by hand.
TEST(CPositionRebar, PutsBarsWhereTheyBelong) {
  const double root3 = std::sqrt(3.0);
  const CSecGeom ell(ShapeKind::ell,
                     {.width = 0.4, .depth = 0.6, .flangeThickness = 0.2, .webThickness = 0.2});
  const CSecGeom box(ShapeKind::box,
                     {.width = 0.8, .depth = 0.6, .flangeThickness = 0.2, .webThickness = 0.2});
  const CSecGeom disc(ShapeKind::circle, {.diameter = 0.6}, {0.1, 0.0});
  const CSecGeom ring(ShapeKind::ring, {.diameter = 1.0, .thickness = 0.2});
  const CSecGeom turned(ShapeKind::rectangle, {.width = 0.3, .depth = 0.5}, {0.0, 0.1}, kPi / 2);
  const auto at = [](Vec2<double> centre, Vec2<double> p) { return centre + p; };
  const struct {
    const char* text;
    CSecGeom geometry;
    double link;  // [m]
    std::vector<Vec2<double>> want;
  } kCases[] = {
      {"3B20 bottom cover 40", Rectangle(), 0, {{-100, -200}, {0, -200}, {100, -200}}},
      {"3B20 bottom cover 30", Rectangle(), 0.01, {{-100, -200}, {0, -200}, {100, -200}}},
      {"1B20 top cover 40", Rectangle(), 0, {{0, 200}}},
      {"2B20+1B10 left cover 40", Rectangle(), 0, {{-100, 200}, {-105, 0}, {-100, -200}}},
      {"2B20/2B20 bottom cover 40",
       Rectangle(),
       0,
       {{-100, -200}, {100, -200}, {-100, -155}, {100, -155}}},
      {"2B32/2B20 bottom cover 40 gap 10",
       Rectangle(),
       0,
       {{-94, -194}, {94, -194}, {-100, -158}, {100, -158}}},
      {"B20@101 bottom cover 40", Rectangle(), 0, {{-100, -200}, {0, -200}, {100, -200}}},
      {"B20@100 bottom cover 40", Rectangle(), 0, {{-100, -200}, {0, -200}, {100, -200}}},
      {"B20@99 bottom cover 45", Rectangle(), 0, {{-95, -195}, {0, -195}, {95, -195}}},
      {"2(2B20) bottom cover 40",
       Rectangle(),
       0,
       {{-100, -200}, {-80, -200}, {80, -200}, {100, -200}}},
      {"1(3B20) bottom cover 40",
       Rectangle(),
       0,
       {{-10, -200}, {10, -200}, {0, -200 + 10 * root3}}},
      {"1(4B20) bottom cover 40",
       Rectangle(),
       0,
       {{-10, -200}, {10, -200}, {-10, -180}, {10, -180}}},
      {"6B20 cover 40",
       Rectangle(),
       0,
       {{-100, -200}, {100, -200}, {100, 0}, {100, 200}, {-100, 200}, {-100, 0}}},
      {"4B20+2B10 cover 40",
       Rectangle(),
       0,
       {{-100, -200}, {100, -200}, {105, 0}, {100, 200}, {-100, 200}, {-105, 0}}},
      {"4(2B20) cover 40",
       Rectangle(),
       0,
       {{-100, -200},
        {-80, -200},
        {100, -200},
        {100, -180},
        {100, 200},
        {80, 200},
        {-100, 200},
        {-100, 180}}},
      {"2B20 top cover 40", turned, 0, {{-200, 200}, {-200, 0}}},
      {"6B20 cover 40",
       ell,
       0,
       {{-150, -250}, {150, -250}, {150, -150}, {-50, -150}, {-50, 250}, {-150, 250}}},
      {"2B20 edge 4 cover 40", ell, 0, {{-50, -150}, {-50, 250}}},
      {"2B20 top cover 40", ell, 0, {{-50, 250}, {-150, 250}}},
      {"4B20 hole 1 cover 40", box, 0, {{-250, 150}, {250, 150}, {250, -150}, {-250, -150}}},
      {"4B20 cover 40",
       disc,
       0.01,
       {at({100, 0}, {240, 0}), at({100, 0}, {0, 240}), at({100, 0}, {-240, 0}),
        at({100, 0}, {0, -240})}},
      {"2B20+2B10 cover 40 from 45",
       disc,
       0,
       {at({100, 0}, Polar(250, 45)), at({100, 0}, Polar(255, 135)), at({100, 0}, Polar(250, 225)),
        at({100, 0}, Polar(255, 315))}},
      {"2B20 hole 1 cover 40", ring, 0, {{350, 0}, {-350, 0}}},
      {"2B20/2B20 cover 40", ring, 0, {{450, 0}, {-450, 0}, {405, 0}, {-405, 0}}},
      {"3B20 circle 100 at (0, 50) from 90",
       Rectangle(),
       0,
       {{0, 150}, at({0, 50}, Polar(100, 210)), at({0, 50}, Polar(100, 330))}},
      {"3B20 arc 100 from 0 to 180", turned, 0, {{100, 100}, {0, 200}, {-100, 100}}},
      {"3B20 arc cover 40 from 0 to 180", disc, 0, {{350, 0}, {100, 250}, {-150, 0}}},
      {"4B20 line (-60,0) (60,0)", Rectangle(), 0, {{-60, 0}, {-20, 0}, {20, 0}, {60, 0}}},
      {"2B20+1B12 at (1,2) (3,4) (5,6)", Rectangle(), 0, {{1, 2}, {3, 4}, {5, 6}}},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.text);
    const Described described(c.geometry, {c.text}, c.link);
    EXPECT_EQ(described.problems, "");
    const std::vector<CBar> bars = described.Bars().bars;
    ASSERT_EQ(bars.size(), c.want.size());
    // Sides face their own way round: a left side runs down, a right one up.
    for (std::size_t i = 0; i < bars.size(); ++i) {
      EXPECT_NEAR(1000 * bars[i].Position().x, c.want[i].x, 1e-9) << i;
      EXPECT_NEAR(1000 * bars[i].Position().y, c.want[i].y, 1e-9) << i;
      EXPECT_EQ(bars[i].Description(), 0);
    }
  }
}

TEST(CPositionRebar, SaysWhatCannotBePlacedOrDoesNotFit) {
  const CSecGeom disc(ShapeKind::circle, {.diameter = 0.6});
  const CSecGeom two(std::vector<Data::SectionPolygon>{{{{0, 0}, {1, 0}, {1, 1}}, {}},
                                                       {{{2, 0}, {3, 0}, {3, 1}}, {}}});
  const struct {
    const char* text;
    CSecGeom geometry;
    const char* problem;
    std::size_t bars;
  } kCases[] = {
      {"4B20 botom", Rectangle(), "column 6: expected a place", 0},
      {"4B20", Rectangle(), "it has no cover: add one, for instance \"cover 40mm\"", 0},
      {"3B20 cover 40", Rectangle(), "it has 3 bars for 4 corners: every corner needs one", 0},
      {"4B20 hole 1 cover 40", Rectangle(), "the component has no hole 1", 0},
      {"4B20 edge 5 cover 40", Rectangle(), "the outline has no edge 5 between corners", 0},
      {"4B20 top cover 40", disc, "the shape has no straight sides", 0},
      {"4B20 circle cover 40", Rectangle(), "it has no radius, and the shape is not round", 0},
      {"4B20 circle", disc, "it has neither radius nor cover", 0},
      {"4B20 cover 300", disc, "the circle of the bars has no radius left", 0},
      {"4B20 cover 40 from 10", Rectangle(), "\"from\" is for round shapes and circles alone", 0},
      {"4B20 cover 40", two, "the component has 2 polygons: name one", 0},
      {"4B20 cover 40 polygon 3", two, "the component has no polygon 3", 0},
      {"B6@0.01 cover 40", Rectangle(), "it makes more than 10000 bars", 0},
      {"4B20 cover 40", CSecGeom(), "the component has no valid outline", 0},
      {"2B20 bottom cover 145", Rectangle(), "the cover does not fit: a bar is 10 mm too near", 2},
      {"1B20 at (120, 0) cover 40", Rectangle(), "the cover does not fit: a bar is 20 mm too near",
       1},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.text);
    const Described described(c.geometry, {c.text});
    EXPECT_EQ(described.problems.substr(3, std::string(c.problem).size()), c.problem);
    EXPECT_EQ(described.Bars().bars.size(), c.bars);
  }
}

TEST(CPositionRebar, ReplacesOnlyWhatDescriptionsMade) {
  Described described(Rectangle(), {"2B20 top cover 40", "3B16 bottom cover 40"});
  Reinforcement bars = described.Bars();
  ASSERT_EQ(bars.bars.size(), 5U);
  const CBar point({0.0, 0.1}, 0.012, 1e-4, 0);
  bars.bars.insert(bars.bars.begin() + 3, point);
  bars.descriptions[0].text = L"4B20 top";
  bars.descriptions[0].cover = 0.05;
  bars.descriptions[0].preload = Data::Preload{PreloadKind::stress, 1e8};
  described.SetBars(bars);
  described.Generate();
  bars = described.Bars();
  ASSERT_EQ(bars.bars.size(), 8U);
  EXPECT_EQ(bars.bars[0], point);
  EXPECT_NEAR(bars.bars[1].Position().y, 0.19, 1e-15);
  EXPECT_EQ(bars.bars[4].GetPreload().value, 1e8);
  EXPECT_EQ(bars.bars[7].Description(), 1);
  EXPECT_EQ(bars.bars[7].GetPreload(), Data::Preload());

  bars.descriptions[1].text = L"3B16 botom";
  described.SetBars(bars);
  described.Generate();
  EXPECT_EQ(described.Bars(), bars);  // as they were
}

TEST(CPositionRebar, TheExamplesOfThePageAreWhatItSays) {
  std::ifstream page("docs/bar-descriptions.md");
  std::string line;
  while (std::getline(page, line) && line != "## Examples") {
  }
  int count = 0;
  while (std::getline(page, line)) {
    if (line.substr(0, 3) != "| `") continue;
    SCOPED_TRACE(line);
    ++count;
    std::istringstream cells(line.substr(3));
    std::string text;
    std::size_t number = 0;
    Vec2<double> first;
    char sign = ' ';
    std::getline(cells, text, '`');
    cells >> sign >> number >> sign >> sign >> first.x >> sign >> first.y;
    const Described described(Rectangle(), {text});
    EXPECT_EQ(described.problems, "");
    const std::vector<CBar> bars = described.Bars().bars;
    ASSERT_EQ(bars.size(), number);
    EXPECT_NEAR(1000 * bars[0].Position().x, first.x, 1e-9);
    EXPECT_NEAR(1000 * bars[0].Position().y, first.y, 1e-9);
  }
  EXPECT_GT(count, 15);
}

// A star-shaped polygon about the origin; corners may point inwards.
Data::SectionPolygon RandomPolygon(std::mt19937& random) {
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  const int n = 3 + static_cast<int>(random() % 8);
  Data::SectionPolygon polygon;
  for (int i = 0; i < n; ++i) {
    polygon.outline.push_back(
        Polar(0.6 + 0.4 * unit(random), 360.0 * (i + 0.5 * unit(random)) / n));
  }
  if (random() % 2 == 0) std::reverse(polygon.outline.begin(), polygon.outline.end());
  return polygon;
}

TEST(CPositionRebar, AroundAnyOutlineEveryBarHasItsCoverAndTheFirstOfThemExactly) {
  std::mt19937 random(7);
  for (int i = 0; i < 500; ++i) {
    const CSecGeom geometry(std::vector{RandomPolygon(random)});
    const int count = 10 + static_cast<int>(random() % 30);
    const bool isCounted = random() % 2 == 0;
    const std::string text =
        (isCounted ? std::to_string(count) + "B16+5B25" : "B16@150") + std::string(" cover 40");
    SCOPED_TRACE(std::to_string(i) + ": " + text);
    const Described described(geometry, {text}, 0.01);
    ASSERT_EQ(described.problems, "");
    const std::vector<CBar> bars = described.Bars().bars;
    if (isCounted) {
      EXPECT_EQ(bars.size(), static_cast<std::size_t>(count) + 5);
    }
    const FaceDistance faces(geometry);
    double nearest = 1.0;
    for (std::size_t k = 0; k < bars.size(); ++k) {
      const double cover = faces.To(bars[k].Position()) - bars[k].Diameter() / 2 - 0.01;
      EXPECT_GE(cover, 0.04 - 1e-12);
      nearest = std::min(nearest, cover);
      const Vec2<double> next = bars[k + 1 == bars.size() ? 0 : k + 1].Position();
      if (!isCounted) {
        EXPECT_LE(Length(next - bars[k].Position()), 0.15 + 1e-12);
      }
    }
    EXPECT_NEAR(nearest, 0.04, 1e-12);
  }
}

}  // namespace
}  // namespace Orlix::Velmo
