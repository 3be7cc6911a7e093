#include "cli/bench_sections.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <utility>
#include <vector>

#include "model/vldata/response/ResultMesh.h"

namespace Orlix::Bench {
namespace {

using Data::CBar;
using Data::CSecComp;
using Data::CSecGeom;
using Data::CVelmoData;
using Data::ShapeDimensions;
using Data::ShapeKind;
using Points = std::vector<Vec2<double>>;

CVelmoData Document(const wchar_t* code, const CSecGeom& geometry, const wchar_t* concrete,
                    const wchar_t* rebar, const Points& bars, double diameter) {
  CVelmoData document;
  document.SetCodes(OrlixString<wchar_t>(code));
  const auto materials = document.getMaterials();
  const int steel = materials->Find(MatType::reinforcement, rebar);
  CSecComp component(MatType::concrete, materials->Find(MatType::concrete, concrete), geometry);
  Data::Reinforcement reinforcement;
  const double area = std::acos(-1.0) * diameter * diameter / 4.0;
  for (const Vec2<double>& p : bars) {
    reinforcement.bars.emplace_back(p, diameter, area, steel);
  }
  component.Concrete().SetReinforcement(std::move(reinforcement));
  Data::CSection section;
  section.Components().push_back(std::move(component));
  document.AddSection(section).AddTask();
  return document;
}

constexpr const wchar_t* kEn1992 = L"EN 1992-1-1:2004";

CSecGeom Rectangle() {
  ShapeDimensions size;
  size.width = 0.3;
  size.depth = 0.5;
  return CSecGeom(ShapeKind::rectangle, size);
}

Points RectangleBars() {
  return {{-0.1, -0.2}, {0.0, -0.2}, {0.1, -0.2}, {-0.1, 0.0},
          {0.1, 0.0},   {-0.1, 0.2}, {0.0, 0.2},  {0.1, 0.2}};
}

}  // namespace

CVelmoData RectangleDocument() {
  return Document(kEn1992, Rectangle(), L"C30/37", L"B500B", RectangleBars(), 0.020);
}

CVelmoData AciRectangleDocument() {
  return Document(L"ACI 318-19", Rectangle(), L"f'c 30 MPa", L"Grade 60", RectangleBars(), 0.020);
}

CVelmoData HollowBoxDocument() {
  ShapeDimensions size;
  size.width = 2.0;
  size.depth = 1.6;
  size.flangeThickness = size.webThickness = size.bottomThickness = 0.3;
  Points bars;
  for (int i = 0; i < 10; ++i) {
    bars.push_back({-0.9 + 0.2 * i, -0.72});
    bars.push_back({-0.9 + 0.2 * i, 0.72});
  }
  for (int i = 0; i < 8; ++i) {
    bars.push_back({-0.92, -0.56 + 0.16 * i});
    bars.push_back({0.92, -0.56 + 0.16 * i});
  }
  return Document(kEn1992, CSecGeom(ShapeKind::box, size), L"C40/50", L"B500B", bars, 0.032);
}

CVelmoData PolygonDocument(int vertices, int bars) {
  const auto circle = [](int count, double radius) {
    Points points;
    for (int i = 0; i < count; ++i) {
      const double angle = 2.0 * std::numbers::pi * i / count;
      points.push_back({radius * std::cos(angle), radius * std::sin(angle)});
    }
    return points;
  };
  constexpr double kRadius = 0.75;
  constexpr double kToCentres = 0.07;  // from the sides to the bars
  const double within = kRadius * std::cos(std::numbers::pi / vertices) - kToCentres;
  // Bars may not touch, however many there are; 25 mm while they fit.
  const double room = 2.0 * std::numbers::pi * within / std::max(bars, 1);
  return Document(kEn1992, CSecGeom({{circle(vertices, kRadius), {}}}), L"C40/50", L"B500B",
                  circle(bars, within), std::min(0.025, 0.8 * room));
}

void AddCases(CVelmoData& document, int count, double share) {
  Data::Velmo9::VelmoSection& section = document.getSection(0);
  const Data::Velmo9::ResultMesh mesh(document, section, 0, Data::Velmo9::SectionState::ultimate);
  double reach = 0.0;
  for (const auto& polygon : section.Components().front().Geometry().Polygons(0.0)) {
    for (const Vec2<double>& p : polygon.outline) reach = std::max(reach, Length(p));
  }
  std::mt19937 random(1);
  std::uniform_real_distribution<double> unit(-1.0, 1.0);
  constexpr double kStrain = 0.003;  // up to twice the limits where all three add up
  for (int i = 0; i < count; ++i) {
    const Vec3<double> plane{kStrain * unit(random), kStrain / reach * unit(random),
                             kStrain / reach * unit(random)};
    const auto response = mesh.GetResponseTo(Data::Velmo9::Deformation(plane));
    section.Task(0).addCase({"", share * response.Load().Vector()});
  }
}

}  // namespace Orlix::Bench
