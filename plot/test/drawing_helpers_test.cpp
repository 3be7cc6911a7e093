#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "plot/Canvas.h"
#include "plot/LabelPlacer.h"
#include "plot/bar_table.h"
#include "plot/drawing_text.h"
#include "plot/ticks.h"

namespace Orlix::Plot {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(TicksOf, AreRoundAndWithinTheRange) {
  const struct {
    double low, high;
    int most;
    std::vector<const char*> want;
  } kCases[] = {
      {0, 1, 5, {"0.0", "0.2", "0.4", "0.6", "0.8", "1.0"}},
      {-1.03, 2.16, 4, {"-1", "0", "1", "2"}},
      {250, -250, 5, {"-200", "-100", "0", "100", "200"}},
      {0.0031, 0.0089, 3, {"0.004", "0.006", "0.008"}},
      {-4.2e8, 0, 3, {"-4.0e+08", "-2.0e+08", "0"}},
      {-1e7, 0, 2, {"-1.0e+07", "-5.0e+06", "0"}},
      {3, 3, 5, {}},
      {0, kInfinity, 5, {}},
      {1e20, std::nextafter(1e20, kInfinity), 5, {}},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.high);
    const Ticks ticks = TicksOf(c.low, c.high, c.most);
    std::vector<std::string> got;
    for (const double value : ticks.values) got.push_back(TickText(value, ticks));
    EXPECT_EQ(got, std::vector<std::string>(c.want.begin(), c.want.end()));
  }
}

TEST(ScaleDenominator, IsTheUsualScaleThatFits) {
  const struct {
    double size, room, want;
  } kCases[] = {{0.5, 110, 5},  {0.55, 110, 5},     {0.5501, 110, 6}, {3.0, 110, 30},
                {50, 110, 500}, {0.001, 110, 0.01}, {0, 110, 1},      {kInfinity, 110, 1}};
  for (const auto& c : kCases)
    EXPECT_NEAR(ScaleDenominator(c.size, c.room), c.want, 1e-12 * c.want);
}

TEST(Texts, CarryNothingThatCannotBeDrawn) {
  const struct {
    std::string text, want;
  } kCases[] = {{"Träger ‰ 梁", "Träger ‰ 梁"},
                {"a\nb\tc\x1b[31m", "a b c [31m"},
                {"a\xff\xfe", "a\xEF\xBF\xBD\xEF\xBF\xBD"},
                {"x\xE2\x80\xAEy\xEF\xBB\xBFz", "x y z"}};  // turned direction, byte order mark
  for (const auto& c : kCases) EXPECT_EQ(Drawable(c.text), c.want);
}

TEST(Texts, NumbersKeepTheirDigits) {
  const struct {
    double value;
    const char* want;
  } kNumbers[] = {{0, "0"},           {-0.0, "0"},        {12.3456, "12.35"},
                  {150000, "150000"}, {-2e-4, "-0.0002"}, {3.125e9, "3.125e+09"},
                  {kInfinity, "-"},   {9.99996, "10"}};
  for (const auto& c : kNumbers) EXPECT_EQ(NumberText(c.value), c.want);
}

TEST(Canvas, ShortensTextsBetweenCharactersToTheirRoom) {
  const Canvas canvas(PictureOptions{});
  for (const std::string unit : {"Feldmitte ", "ÄÖ‰", "梁"}) {
    std::string text;
    for (int i = 0; i < 2000; ++i) text += unit;
    for (const double width : {4.0, 17.0, 60.0}) {
      const std::string fitted = canvas.Fitted(text, width);
      EXPECT_LE(canvas.TextWidth(fitted), width);
      EXPECT_EQ(fitted.substr(fitted.size() - 3), "…");
      EXPECT_EQ(text.substr(0, fitted.size() - 3), fitted.substr(0, fitted.size() - 3));
      EXPECT_EQ(Drawable(fitted), fitted) << "a character was cut";
    }
  }
  EXPECT_EQ(canvas.Fitted("short", 60.0), "short");
  const struct {
    const char *text, *want;
    double width;
  } kNumbers[] = {{"-0.000074312 mm", "-7e-05 mm", 13.5}, {"1234.56", "1235", 8.5}};
  for (const auto& c : kNumbers) {
    EXPECT_EQ(FittedNumber(canvas, c.text, c.width, {}), c.want) << canvas.TextWidth(c.want);
  }
}

TEST(HatchLines, FillOnlyWhatIsInsideAndInTheHalfPlane) {
  // A square of 20 with a hole of 8 in its middle; of spacing 1 the lines' length is the area.
  const std::vector<Ring> rings = {{{0, 0}, {20, 0}, {20, 20}, {0, 20}},
                                   {{6, 6}, {14, 6}, {14, 14}, {6, 14}}};
  const auto lengthOf = [&rings](double angle, const HalfPlane& part) {
    double sum = 0.0;
    for (const Stroke& line : HatchLines(rings, angle, 0.01, part))
      sum += Length(line.to - line.from);
    return 0.01 * sum;
  };
  // The trapezoidal sum over lines 0.01 apart is off by no more than a line at each edge.
  for (const double angle : {0.0, 45.0, 90.0, 135.0}) {
    EXPECT_NEAR(lengthOf(angle, {}), 400 - 64, 1.0);
    EXPECT_NEAR(lengthOf(angle, {{0, 1}, 10}), 200 - 32, 1.0);
    EXPECT_NEAR(lengthOf(angle, {{1, 0}, -1}), 0, 1e-9);
  }
}

TEST(LabelPlacer, PlacesLabelsApartAndOffWhatIsBlocked) {
  const Box room{0, 0, 40, 20};
  LabelPlacer placer(room);
  placer.Block(std::vector<Ring>{{{0, 10}, {40, 10}, {40, 10.1}}});
  std::vector<Box> placed;
  for (int i = 0; i < 60; ++i) {
    const auto box = placer.Place({0.7 * i, 10.0}, 0.5, {3.0, 2.0}, {0, -1});
    if (!box) continue;
    EXPECT_TRUE(box->left >= room.left && box->right <= room.right);
    EXPECT_TRUE(box->bottom <= 10.0 || box->top >= 10.0) << "on the line";
    for (const Box& other : placed) EXPECT_FALSE(box->Overlaps(other));
    placed.push_back(*box);
  }
  EXPECT_GT(placed.size(), 20U);  // there is room for them on either side of the line
}

TEST(SpreadLabels, KeepsOrderSpacingAndBounds) {
  const std::vector<double> wanted = {1, 1.1, 1.2, 8, 9.9, 9.9};
  const std::vector<double> at = SpreadLabels(wanted, 1.0, 0.0, 10.0);
  for (std::size_t i = 1; i < at.size(); ++i) EXPECT_GE(at[i] - at[i - 1], 1.0 - 1e-12);
  EXPECT_EQ(at.front(), 1.0);
  EXPECT_EQ(at.back(), 10.0);
  const std::vector<double> tight = SpreadLabels(wanted, 5.0, 0.0, 10.0);
  EXPECT_EQ(tight, (std::vector<double>{0, 2, 4, 6, 8, 10}));
}

TEST(BarTable, JoinsNumbersAndKeepsTheExtremesWhenThinned) {
  EXPECT_EQ(JoinedNumbers({"1", "2", "3", "4", "7", "9", "10"}), "1–4,7,9,10");
  EXPECT_EQ(JoinedNumbers({"1.2", "1.3", "1.4", "2.5"}), "1.2–1.4,2.5");
  std::vector<BarGroup> groups;
  for (int i = 0; i < 100; ++i) groups.push_back({-i * 0.01, i == 37 ? 400.0 : -i * 1.0});
  const std::vector<BarGroup> kept = ThinnedOut(groups, 12);
  EXPECT_LE(kept.size(), 12U);
  EXPECT_GE(kept.size(), 10U);
  const auto has = [&kept](double stress) {
    return std::any_of(kept.begin(), kept.end(), [&](const auto& g) { return g.stress == stress; });
  };
  EXPECT_TRUE(has(400.0) && has(-99.0) && has(0.0));
}

}  // namespace
}  // namespace Orlix::Plot
