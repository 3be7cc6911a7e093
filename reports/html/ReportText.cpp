#include "reports/html/ReportText.h"

#include <algorithm>
#include <cmath>

#include "model/oxutil/text.h"
#include "plot/drawing_text.h"

namespace Orlix::Velmo {

namespace {

using Three = std::array<std::string, 3>;

constexpr int kInputDigits = 6;
constexpr double kRounding = 1e-9;  // of the largest member; the solver answers to 1e-10

Three ThreeTexts(const Vec3<double>& v, double first, double others) {
  const double limit = kRounding * std::max({std::abs(v.x), std::abs(v.y), std::abs(v.z)});
  const auto text = [limit](double value, double factor) {
    return Plot::NumberText(std::abs(value) < limit ? 0.0 : value * factor, kInputDigits);
  };
  return {text(v.x, first), text(v.y, others), text(v.z, others)};
}

bool IsFound(const Vec3<double>& v) { return v != Vec3<double>{}; }

}  // namespace

std::string ReportText::Value(double value, Dimension dimension) const {
  return Plot::NumberText(value * document_.Units().Conversion(dimension));
}

std::string ReportText::Place(double value, double area) const {
  return Value(Plot::Snapped(value, std::sqrt(area)), Dimension::sectionDimensions);
}

std::string ReportText::PowerValue(double value, Dimension dimension, int power) const {
  return Plot::NumberText(value * std::pow(document_.Units().Conversion(dimension), power));
}

std::string ReportText::WithUnit(double value, Dimension dimension) const {
  return Plot::ValueText(value, dimension, document_.Units());
}

std::string ReportText::Unit(Dimension dimension) const {
  return Plot::UnitTextOf(dimension, document_.Units());
}

Three ReportText::Load(const Vec3<double>& load) const {
  return ThreeTexts(load, document_.Units().Conversion(Dimension::force),
                    document_.Units().Conversion(Dimension::moment));
}

Three ReportText::Plane(const Vec3<double>& plane) const {
  return ThreeTexts(plane, document_.Units().Conversion(Dimension::strain),
                    document_.Units().Conversion(Dimension::curvature));
}

Three ReportText::LoadAtFailure(const Vec3<double>& load) const {
  return IsFound(load) ? Load(load) : Three{"-", "-", "-"};
}

std::string ReportText::TypeName(MatType type) {
  switch (type) {
    case MatType::concrete:
      return "concrete";
    case MatType::reinforcement:
      return "reinforcement";
    case MatType::steel:
      return "structural steel";
    case MatType::FRP:
      return "FRP";
    case MatType::none:
      break;
  }
  return "none";
}

std::string ReportText::GradeName(MatType type, int grade) const {
  const Data::Materials& materials = *document_.getMaterials();
  if (!materials.IsValidGrade(type, grade)) return "none";
  return to_string(materials.Grade(type, grade).Name());
}

std::string ReportText::CaseName(const Data::Velmo9::AnalysisTask& task, int iCase) {
  const std::string& name = task.Cases()[static_cast<std::size_t>(iCase)].name;
  const std::string number = std::to_string(iCase + 1);
  return name.empty() ? number : number + " “" + name + "”";
}

}  // namespace Orlix::Velmo
