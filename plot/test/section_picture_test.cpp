#include "plot/section_picture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "model/oxutil/text.h"
#include "plot/diagram_picture.h"

namespace Orlix::Plot {
namespace {

VelmoApp Solved(const std::filesystem::path& path) {
  VelmoApp app;
  std::string message;
  app.Open(path, message);
  EXPECT_EQ(message, "");
  for (Data::Velmo9::VelmoSection& section : app.pData()->Sections()) {
    for (int i = 0; i < static_cast<int>(section.Tasks().size()); ++i) app.SolveTask(section, i);
  }
  return app;
}

/// A path of an SVG: how it is drawn, and the points of it on the sheet [mm].
struct SvgPath {
  std::string style;
  std::vector<Vec2<double>> points;
  int curves{};
};

// The paths that are drawn, without those of the letters.
std::vector<SvgPath> PathsOf(const std::string& svg) {
  std::vector<SvgPath> paths;
  std::istringstream lines(svg.substr(svg.find("<g id=\"")));
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind("<path", 0) != 0) continue;
    const auto attribute = [&line](const std::string& name) {
      const std::size_t begin = line.find(name + "=\"");
      if (begin == std::string::npos) return std::string();
      const std::size_t text = begin + name.size() + 2;
      return line.substr(text, line.find('"', text) - text);
    };
    SvgPath path{attribute("style"), {}, 0};
    // Strokes are in millimetres under a transform, areas in points.
    const double scale = attribute("transform").empty() ? 25.4 / 72.0 : 1.0;
    std::istringstream words(attribute("d"));
    for (std::string word; words >> word;) {
      if (word == "C") ++path.curves;
      if (word == "M" || word == "L" || word == "C" || word == "Z") continue;
      Vec2<double> p{std::stod(word), 0.0};
      words >> p.y;
      path.points.push_back(scale * p);
    }
    paths.push_back(std::move(path));
  }
  return paths;
}

bool Has(const SvgPath& path, const char* style) {
  return path.style.find(style) != std::string::npos;
}

// Cairo keeps coordinates to 1/256 of a point, 0.0014 mm; the text has three decimals.
constexpr double kDrawn = 0.005;

TEST(SectionPicture, ShowsEveryBarAndTheNeutralAxisWhereTheRecordSays) {
  const struct {
    const char* file;
    int iCase;
    std::size_t bars;
    double width, height, radius;  // of the section and of its first bar [m]
  } kCases[] = {{"examples/beam.json", 2, 6, 0.3, 0.5, 0.010},
                {"examples/hollow-box-pier.json", 19, 76, 3.0, 2.0, 0.016},
                {"examples/column.json", 18, 8, 0.4, 0.4, 0.0125}};
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.file);
    const VelmoApp app = Solved(c.file);
    const std::vector<SvgPath> paths =
        PathsOf(SectionPicture(app, 0, PictureCase{0, c.iCase}, PictureOptions{}));
    std::size_t bars = 0;
    const SvgPath* axis = nullptr;
    const SvgPath* outline = nullptr;
    for (const SvgPath& path : paths) {
      const bool isInPlan =
          !path.points.empty() && path.points.front().x < 144.0 && path.points.front().y < 147.0;
      if (!isInPlan) continue;
      if (path.curves >= 2 && Has(path, "stroke:none")) ++bars;
      if (Has(path, "stroke-width:0.5;") && Has(path, "stroke-dasharray:6,1.5")) axis = &path;
      if (Has(path, "stroke-width:0.5;") && !Has(path, "dasharray") && !outline) outline = &path;
    }
    EXPECT_EQ(bars, c.bars);
    ASSERT_TRUE(axis && outline);
    // Both templates have the origin at the centre of the outline.
    const Vec2<double> a = outline->points.at(0);
    const Vec2<double> b = outline->points.at(2);
    const Vec2<double> origin = 0.5 * (a + b);
    const double scale = std::abs(b.x - a.x) / c.width;
    EXPECT_NEAR(std::abs(b.y - a.y) / c.height, scale, kDrawn / c.height);
    const auto record =
        app.CaseULSDetails(0, 0, c.iCase, Data::Velmo9::UlsOutputOptions(true), false);
    for (const Vec2<double>& p : axis->points) {
      const Vec2<double> at{(p.x - origin.x) / scale, (origin.y - p.y) / scale};
      const Vec3<double> v = record.deformation.Vector();
      EXPECT_NEAR(record.deformation.StrainAt(at) / std::hypot(v.y, v.z) * scale, 0.0, kDrawn);
    }
    EXPECT_GT(Length(axis->points.at(1) - axis->points.at(0)), 20.0);
  }
}

TEST(SectionPicture, IsAWholeFileAndTheSameEveryTime) {
  const VelmoApp app = Solved("examples/beam.json");
  const auto draw = [&app](PictureFormat format, const std::string& prefix = "") {
    return SectionPicture(app, 0, PictureCase{0, 2}, {format, 1200, prefix});
  };
  for (const auto format : {PictureFormat::svg, PictureFormat::pdf, PictureFormat::png}) {
    EXPECT_EQ(draw(format), draw(format));
  }
  const std::string svg = draw(PictureFormat::svg);
  EXPECT_EQ(svg.substr(0, 5), "<?xml");
  EXPECT_NE(svg.rfind("</svg>"), std::string::npos);
  const std::string pdf = draw(PictureFormat::pdf);
  EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
  EXPECT_NE(pdf.rfind("%%EOF"), std::string::npos);
  EXPECT_EQ(pdf.find("/CreationDate"), std::string::npos);
  const std::string png = draw(PictureFormat::png);
  const std::string header("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\x04\xb0\0\0\x03\x50", 24);
  EXPECT_EQ(png.substr(0, 24), header);  // 1200 x 848 pixels
  EXPECT_THROW(SectionPicture(app, 0, {}, {PictureFormat::png, 9000, ""}), std::invalid_argument);

  // In a page with others: no id is another one's, and all that is referred to is there.
  const std::string part = draw(PictureFormat::svg, "p7-");
  EXPECT_EQ(part.substr(0, 4), "<svg");
  for (std::size_t at = part.find("id=\""); at != std::string::npos;
       at = part.find("id=\"", at + 1)) {
    EXPECT_EQ(part.substr(at + 4, 3), "p7-");
  }
  for (std::size_t at = part.find("href=\"#"); at != std::string::npos;
       at = part.find("href=\"#", at + 1)) {
    const std::string id = part.substr(at + 7, part.find('"', at + 7) - at - 7);
    ASSERT_NE(part.find("id=\"" + id + '"'), std::string::npos) << id;
  }
}

TEST(SectionPicture, DrawsEveryCaseOfTheExamplesInEveryState) {
  for (const auto& entry : std::filesystem::directory_iterator("examples")) {
    if (entry.path().extension() != ".json") continue;
    SCOPED_TRACE(entry.path());
    const VelmoApp app = Solved(entry.path());
    const auto check = [&](int iSec, const std::optional<PictureCase>& ofCase) {
      try {
        const std::string svg = SectionPicture(app, iSec, ofCase, {});
        EXPECT_EQ(svg.find("nan"), std::string::npos);
        EXPECT_EQ(svg.find("inf"), std::string::npos);
      } catch (const std::invalid_argument& error) {  // of a state that is not there
        EXPECT_TRUE(ofCase && ofCase->state != SectionState::reported) << error.what();
      }
    };
    for (int iSec = 0; iSec < app.pData()->NumSections(); ++iSec) {
      check(iSec, {});
      const auto& tasks = app.pData()->Section(iSec).Tasks();
      for (int iTask = 0; iTask < static_cast<int>(tasks.size()); ++iTask) {
        const int count = tasks[static_cast<std::size_t>(iTask)].NumCases();
        for (int iCase = 0; iCase < count; iCase += 4) {
          for (const auto state : {SectionState::reported, SectionState::atFailure,
                                   SectionState::uncracked, SectionState::interpolated}) {
            check(iSec, PictureCase{iTask, iCase, state});
          }
        }
      }
    }
  }
}

TEST(SectionPicture, TakesSectionsOfAnySizePlaceAndName) {
  VelmoApp app = Solved("examples/beam.json");
  Data::Velmo9::VelmoSection& section = app.pData()->getSection(0);
  section.Components().resize(1);
  section.SetName(cstr(std::string(5000, 'W') + "\n\x1b[2J \xff 梁"));
  const struct {
    const char* what;
    double width, depth;
    Vec2<double> centre;
  } kCases[] = {{"a wire", 0.001, 0.001, {}},
                {"a dam", 50, 12, {}},
                {"a thin wall", 20, 0.05, {0, 3}},
                {"far from the origin", 0.3, 0.5, {9000, -4000}}};
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    Data::ShapeDimensions size;
    size.width = c.width;
    size.depth = c.depth;
    section.Components()[0] = Data::CSecComp(
        MatType::concrete, 0, Data::CSecGeom(Data::ShapeKind::rectangle, size, c.centre, 0.1));
    app.SolveTask(section, 0);
    for (const auto& ofCase : {std::optional<PictureCase>(), {PictureCase{0, 2}}}) {
      const std::string svg = SectionPicture(app, 0, ofCase, {});
      EXPECT_EQ(svg.find("nan"), std::string::npos);
      for (const SvgPath& path : PathsOf(svg)) {
        for (const Vec2<double>& p : path.points) {
          ASSERT_TRUE(p.x >= 0 && p.x <= 297.1 && p.y >= 0 && p.y <= 210.1) << p.x << ' ' << p.y;
        }
      }
    }
  }
  section.Components().clear();
  EXPECT_THROW(SectionPicture(app, 0, {}, {}), std::invalid_argument);
  EXPECT_THROW(SectionPicture(app, 9, {}, {}), std::out_of_range);
}

TEST(DiagramPicture, DrawsTheCurvesToTheirAxesAndEveryLoad) {
  const VelmoApp app = Solved("examples/circular-pier.json");
  const Data::Velmo9::VelmoSection& section = app.pData()->Section(0);
  for (const auto kind : {VlSol::DiagramKind::axialMoment, VlSol::DiagramKind::biaxialMoment,
                          VlSol::DiagramKind::momentCurvature}) {
    const VlSol::Diagram diagram = VlSol::DiagramOf(*app.pData(), section, 0, {kind, 0.3, -4e6});
    const std::string svg = DiagramPicture(app, 0, 0, diagram, {});
    EXPECT_EQ(svg, DiagramPicture(app, 0, 0, diagram, {}));
    EXPECT_EQ(svg.find("nan"), std::string::npos);
    const SvgPath* nominal = nullptr;
    const std::vector<SvgPath> paths = PathsOf(svg);
    for (const SvgPath& path : paths) {
      if (Has(path, "stroke-dasharray:2,1.2") && path.points.size() > 3) nominal = &path;
    }
    ASSERT_TRUE(nominal);
    // The axes stretch the curve and do nothing else to it. (Points on a straight line are left
    // out.)
    const auto bounds = [](const std::vector<Vec2<double>>& points) {
      std::pair<Vec2<double>, Vec2<double>> box{points.front(), points.front()};
      for (const Vec2<double>& p : points) {
        box.first = {std::min(box.first.x, p.x), std::min(box.first.y, p.y)};
        box.second = {std::max(box.second.x, p.x), std::max(box.second.y, p.y)};
      }
      return box;
    };
    std::vector<Vec2<double>> values;
    const double up = kind == VlSol::DiagramKind::axialMoment ? 1.0 : -1.0;  // y runs down
    for (const VlSol::DiagramPoint& point : diagram.nominal) {
      values.push_back({point.at.x, up * point.at.y});
    }
    const auto [from, to] = bounds(values);
    const auto [left, right] = bounds(nominal->points);
    EXPECT_GT(right.x - left.x, 60.0);
    EXPECT_GT(right.y - left.y, 60.0);
    for (Vec2<double>& p : values) {
      p = {left.x + (p.x - from.x) / (to.x - from.x) * (right.x - left.x),
           left.y + (p.y - from.y) / (to.y - from.y) * (right.y - left.y)};
    }
    for (const Vec2<double>& p : nominal->points) {
      EXPECT_TRUE(std::any_of(values.begin(), values.end(), [&](const Vec2<double>& value) {
        return Length(value - p) < 4.0 * kDrawn;  // of the point and of the bounds
      }));
    }
  }
  VlSol::Diagram none;
  none.problem = VlSol::DiagramProblem::axialForce;
  EXPECT_GT(DiagramPicture(app, 0, 0, none, {}).size(), 1000U);
}

}  // namespace
}  // namespace Orlix::Plot
