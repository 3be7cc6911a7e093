#include "model/vlsol/test/worked_example.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <numbers>
#include <stdexcept>
#include <utility>

#include "model/oxutil/json.h"
#include "model/vlsol/test/example_geometry.h"

namespace Orlix::VlSol::Test {

using Data::Design::CurveKind;
using Data::Design::CurveScale;
using Data::Design::CurveShape;
using Data::Velmo9::UlSResult;
using Util::JsonValue;

namespace {

constexpr double kInch = 0.0254;
constexpr double kKip = 4448.2216152605;

ExampleUnits UnitsOf(const JsonValue& json) {
  if (std::string(json["length"].GetString()) == "in") {
    return {kInch, kKip, kKip * 12 * kInch, kKip / (kInch * kInch)};
  }
  return {1e-3, 1e3, 1e3, 1e6};
}

double Number(const JsonValue& json, const char* name, double otherwise) {
  const JsonValue* value = Util::FindMember(json, name);
  return value == nullptr ? otherwise : value->GetDouble();
}

}  // namespace

WorkedExample::WorkedExample(const JsonValue& json)
    : json_(json),
      units_(UnitsOf(json)),
      document_(json["deductDisplacedConcrete"].GetBool()),
      // A steel section's plates carry both signs: the example names their material "s".
      type_(std::string(json["geometry"]["concrete"][0]["mat"].GetString()) == "s"
                ? MatType::steel
                : MatType::concrete) {
  AddComponents();
  AddBars();
}

int WorkedExample::AddMaterial(const std::string& name, MatType type) {
  const JsonValue& material = json_["materials"][name.c_str()];
  const JsonValue* limits = Util::FindMember(json_["load"], "limits");
  const auto limit = [&](const char* key) { return limits ? Number(*limits, key, 0.0) : 0.0; };
  const std::string kind = material["kind"].GetString();
  CurveScale scale{units_.stress * Number(material, "f", Number(material, "fy", 1.0)),
                   units_.stress * Number(material, "E", 30000.0)};
  CurveShape side{.epsPeak = Number(material, "eps_c", 0.0),
                  .epsLimit = Number(material, "eps_cu", 0.0),
                  .uniformLimit = limit("eps_c")};
  if (kind == "block") {
    side.kind = CurveKind::rectangularBlock;
    side.blockStart = material["eps_from"].GetDouble();
  } else if (kind == "parabola_rectangle") {
    side.kind = CurveKind::parabolaRectangle;
    side.exponent = material["n"].GetDouble();
  } else if (kind == "bilinear_c") {
    side.kind = CurveKind::bilinear;
  } else if (kind == "linear" || kind == "linear_no_tension") {
    side.kind = CurveKind::linear;
  } else if (kind == "bilinear_s") {
    side = {.kind = CurveKind::bilinear, .epsLimit = limit("eps_ud")};
    if (Util::FindMember(material, "fu") != nullptr) {
      side.hardening = material["fu"].GetDouble() / material["fy"].GetDouble();
      side.epsHardening = material["eps_u"].GetDouble();
    }
    // A plate bent far beyond the numerical cap on strain, as the example bends it.
    if (type == MatType::steel) side.epsLimit = 10.0;
  } else {
    throw std::runtime_error("unknown kind of material " + kind);
  }
  const bool bothSides = kind == "linear" || kind == "bilinear_s";
  return document_.AddMaterial(type, scale, side, bothSides ? side : CurveShape{});
}

void WorkedExample::AddComponents() {
  const JsonValue& geometry = json_["geometry"];
  grade_ = AddMaterial(geometry["concrete"][0]["mat"].GetString(), type_);
  std::vector<Data::SectionPolygon> polygons = ReadPolygons(geometry, units_.length);
  const Vec2<double> reference = ReferencePoint(geometry, polygons, units_.length);
  for (Data::SectionPolygon& polygon : polygons) {
    for (Vec2<double>& p : polygon.outline) p = p - reference;
    for (auto& hole : polygon.holes) {
      for (Vec2<double>& p : hole) p = p - reference;
    }
    vertices_.insert(vertices_.end(), polygon.outline.begin(), polygon.outline.end());
    document_.AddComponent(type_, grade_, std::move(polygon));
  }
  for (const JsonValue& bar : json_["bars"].GetArray()) {
    const Vec2<double> p{bar["x"].GetDouble(), bar["y"].GetDouble()};
    bars_.push_back({units_.length * p - reference, -Number(bar, "prestrain", 0.0), 0});
  }
}

void WorkedExample::AddBars() {
  std::vector<std::pair<std::string, int>> grades;
  for (std::size_t i = 0; i < bars_.size(); ++i) {
    const JsonValue& bar = json_["bars"][static_cast<unsigned>(i)];
    const std::string name = bar["mat"].GetString();
    auto known = std::find_if(grades.begin(), grades.end(),
                              [&](const auto& grade) { return grade.first == name; });
    if (known == grades.end()) {
      grades.emplace_back(name, AddMaterial(name, MatType::reinforcement));
      known = std::prev(grades.end());
    }
    bars_[i].grade = known->second;
    document_.AddBar(0, bars_[i].position, units_.length * units_.length * bar["area"].GetDouble(),
                     bars_[i].grade, bars_[i].prestrain);
  }
}

std::vector<WorkedExample::State> WorkedExample::Solve() {
  const JsonValue& load = json_["load"];
  const std::string kind = load["kind"].GetString();
  const double theta = Number(load, "theta", 0.0) * std::numbers::pi / 180.0;
  if (kind == "uls_c") return {ImposedAtDepth()};
  if (kind == "plane") {
    return {ImposedPlane(load["e0"].GetDouble(), load["kx"].GetDouble(), load["ky"].GetDouble())};
  }
  if (kind == "uls_N") return {FailureAtAxialForce(std::cos(theta), std::sin(theta))};
  if (kind == "uls_dir") {
    return {FailureAtAxialForce(load["Mx"].GetDouble(), load["My"].GetDouble())};
  }
  if (kind == "env_max_My") return {LargestMy()};
  if (kind == "sls") {
    const Vec3<double> applied =
        LoadFrom(load["N"].GetDouble(), Number(load, "Mx", 0.0), Number(load, "My", 0.0));
    return {{document_.Solve(LoadAction::load, applied).Deformation().Vector(), applied}};
  }
  if (kind == "mk") {
    // The one example of this kind is symmetric and without axial force, so e0 = 0.
    std::vector<State> states;
    for (const JsonValue& kappa : load["kappa"].GetArray()) {
      states.push_back(ImposedPlane(0.0, kappa.GetDouble(), 0.0));
    }
    return states;
  }
  throw std::runtime_error("unknown kind of load " + kind);
}

Vec3<double> WorkedExample::LoadFrom(double n, double mx, double my) const {
  return {-units_.force * n, -units_.moment * mx, units_.moment * my};
}

WorkedExample::State WorkedExample::ImposedPlane(double e0, double kx, double ky) {
  const Vec3<double> plane{-e0, -kx / units_.length, ky / units_.length};
  return {plane, document_.Solve(LoadAction::deformation, plane).Load().Vector()};
}

// The plane with the strain eps_cu at the most compressed fibre and zero at the depth c below it.
WorkedExample::State WorkedExample::ImposedAtDepth() {
  const JsonValue& load = json_["load"];
  const double theta = Number(load, "theta", 0.0) * std::numbers::pi / 180.0;
  const Vec2<double> up{std::sin(theta), std::cos(theta)};
  double top = -std::numeric_limits<double>::infinity();
  for (const Vec2<double>& p : vertices_) top = std::max(top, Dot(up, p) / units_.length);
  if (const JsonValue* circle = Util::FindMember(json_["geometry"]["concrete"][0], "circle")) {
    top = (*circle)[2].GetDouble();
  }
  const double depth = load["c"].GetDouble();
  const double kappa = load["eps_cu"].GetDouble() / depth;
  return ImposedPlane(kappa * (depth - top), kappa * up.y, kappa * up.x);
}

// The ultimate state under the example's axial force with moments in a given direction: the moment
// ratio of a small moment tells the moment, and failure under that moment the plane.
WorkedExample::State WorkedExample::FailureAtAxialForce(double mx, double my) {
  const double n = json_["load"]["N"].GetDouble();
  const double unit = 1.0 / std::hypot(mx, my);
  const double ratio =
      document_.Solve(LoadAction::load, LoadFrom(n, unit * mx, unit * my)).MomentRatio();
  const Vec3<double> limit = LoadFrom(n, unit * mx / ratio, unit * my / ratio);
  const UlSResult failure = document_.Solve(LoadAction::load, limit);
  if (std::abs(failure.LoadUtilisation() - 1.0) > 1e-8) {
    throw std::runtime_error("the moment at failure is not at failure");
  }
  return {failure.DeformationAtFailure().Vector(), limit};
}

// The largest My among all directions of the moment, by golden section: My is unimodal over the
// directions between +Mx and -Mx of a convex failure surface.
WorkedExample::State WorkedExample::LargestMy() {
  const auto at = [this](double angle) {
    return FailureAtAxialForce(std::cos(angle), std::sin(angle));
  };
  const double golden = 0.5 * (std::sqrt(5.0) - 1.0);
  double low = 0.0;
  double high = std::numbers::pi;
  while (high - low > 1e-6) {
    const double left = high - golden * (high - low);
    const double right = low + golden * (high - low);
    if (at(left).load.z > at(right).load.z) {
      high = right;
    } else {
      low = left;
    }
  }
  return at(0.5 * (low + high));
}

double WorkedExample::StrainAt(const Vec3<double>& plane, Vec2<double> p) const {
  return plane.x + plane.y * p.y - plane.z * p.x;
}

double WorkedExample::Quantity(const std::string& name, const State& state) const {
  const Vec3<double>& plane = state.plane;
  const double kappa = std::hypot(plane.y, plane.z);
  double lowest = std::numeric_limits<double>::infinity();
  double highest = -lowest;
  for (const Vec2<double>& p : vertices_) {
    lowest = std::min(lowest, StrainAt(plane, p));
    highest = std::max(highest, StrainAt(plane, p));
  }
  const auto stress = [&](MatType type, int grade, double strain) {
    return -document_.Stress(type, grade, strain) / units_.stress;
  };
  if (name == "N") return -state.load.x / units_.force;
  if (name == "Mx") return -state.load.y / units_.moment;
  if (name == "My") return state.load.z / units_.moment;
  if (name == "M") return std::hypot(state.load.y, state.load.z) / units_.moment;
  if (name == "kappa") return kappa * units_.length;
  if (name == "theta") return std::atan2(plane.z, -plane.y) * 180.0 / std::numbers::pi;
  if (name == "c" || name == "x") return -lowest / kappa / units_.length;
  if (name == "sigma_c_max") return stress(type_, grade_, lowest);
  if (name == "sigma_c_min") return stress(type_, grade_, highest);
  if (name == "eps_t") {
    double largest = -std::numeric_limits<double>::infinity();
    for (const Bar& bar : bars_) largest = std::max(largest, StrainAt(plane, bar.position));
    return largest;
  }
  if (name.starts_with("sigma_s[")) {
    std::size_t index = bars_.size();
    std::from_chars(name.data() + std::strlen("sigma_s["), name.data() + name.size(), index);
    const Bar& bar = bars_.at(index);
    return stress(MatType::reinforcement, bar.grade, StrainAt(plane, bar.position) + bar.prestrain);
  }
  throw std::runtime_error("unknown quantity " + name);
}

}  // namespace Orlix::VlSol::Test
