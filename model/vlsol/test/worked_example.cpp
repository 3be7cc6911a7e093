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
#include "model/vldata/response/ResultMesh.h"
#include "model/vlsol/test/example_geometry.h"
#include "model/vlsol/test/example_material.h"

namespace Orlix::VlSol::Test {

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

}  // namespace

WorkedExample::WorkedExample(const JsonValue& json)
    : json_(json), units_(UnitsOf(json)), document_(json["deductDisplacedConcrete"].GetBool()) {
  if (std::string(json["group"].GetString()) == "phi") {
    document_.Document().SetCodes(OrlixString<wchar_t>(L"ACI 318-19"));
  }
  AddComponents();
  AddBars();
}

int WorkedExample::AddMaterial(const std::string& name, MatType type) {
  const ExampleMaterial material = ReadMaterial(json_, name, units_.stress, type);
  const int grade =
      document_.AddMaterial(type, material.scale, material.compression, material.tension);
  document_.SetServiceCurve(type, grade, material.compression, material.serviceTension,
                            material.f_ct);
  return grade;
}

void WorkedExample::AddComponents() {
  const JsonValue& geometry = json_["geometry"];
  std::vector<Data::SectionPolygon> polygons = ReadPolygons(geometry, units_.length);
  const Vec2<double> reference = ReferencePoint(geometry, polygons, units_.length);
  for (unsigned i = 0; i < polygons.size(); ++i) {
    Data::SectionPolygon& polygon = polygons[i];
    for (Vec2<double>& p : polygon.outline) p = p - reference;
    for (auto& hole : polygon.holes) {
      for (Vec2<double>& p : hole) p = p - reference;
    }
    vertices_.insert(vertices_.end(), polygon.outline.begin(), polygon.outline.end());
    const std::string material = geometry["concrete"][i]["mat"].GetString();
    // Only steel is bilinear on both sides.
    const std::string kind = json_["materials"][material.c_str()]["kind"].GetString();
    const MatType type = kind == "bilinear_s" ? MatType::steel : MatType::concrete;
    const int grade = AddMaterial(material, type);
    if (i == 0) type_ = type, grade_ = grade;
    document_.AddComponent(type, grade, std::move(polygon));
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
  if (kind == "sls") return {Service()};
  if (kind == "ray") {
    const Vec3<double> applied = AppliedLoad();
    const UlSResult result = document_.Solve(LoadAction::load, applied);
    return {{result.Deformation().Vector(), applied, result.LoadUtilisation()}};
  }
  if (kind == "mk") {
    std::vector<State> states;
    for (const JsonValue& kappa : load["kappa"].GetArray()) {
      states.push_back(ImposedCurvature(load["N"].GetDouble(), kappa.GetDouble()));
    }
    return states;
  }
  throw std::runtime_error("unknown kind of load " + kind);
}

Vec3<double> WorkedExample::LoadFrom(double n, double mx, double my) const {
  return {-units_.force * n, -units_.moment * mx, units_.moment * my};
}

Vec3<double> WorkedExample::PlaneFrom(double e0, double kx, double ky) const {
  return {-e0, -kx / units_.length, ky / units_.length};
}

Vec3<double> WorkedExample::AppliedLoad() const {
  const JsonValue& load = json_["load"];
  return LoadFrom(load["N"].GetDouble(), Number(load, "Mx", 0.0), Number(load, "My", 0.0));
}

WorkedExample::State WorkedExample::ImposedPlane(double e0, double kx, double ky) {
  const Vec3<double> plane = PlaneFrom(e0, kx, ky);
  return {plane, document_.Solve(LoadAction::deformation, plane).Load().Vector(), 0.0};
}

// The plane with a curvature that carries the axial force: N falls as the mid-strain rises.
WorkedExample::State WorkedExample::ImposedCurvature(double n, double kx) {
  double depth = 0.0;
  for (const Vec2<double>& p : vertices_) depth = std::max(depth, std::abs(p.y) / units_.length);
  const Data::CVelmoData& data = document_.Document();
  const Data::Velmo9::ResultMesh mesh(data, data.Section(0), 0,
                                      Data::Velmo9::SectionState::ultimate);
  double low = -kx * depth;
  double high = kx * depth;
  constexpr int kHalvings = 50;
  for (int i = 0; i < kHalvings; ++i) {
    const double middle = 0.5 * (low + high);
    const auto response = mesh.GetResponseTo(Data::Velmo9::Deformation(PlaneFrom(middle, kx, 0.0)));
    (Quantity("N", {{}, response.Load().Vector(), 0.0}) < n ? low : high) = middle;
  }
  return ImposedPlane(low, kx, 0.0);
}

// The uncracked state: the examples' concretes carry the same tension, or none, in both.
WorkedExample::State WorkedExample::Service() {
  const Vec3<double> applied = AppliedLoad();
  const Data::Velmo9::SLSResult result = document_.SolveSls(LoadAction::load, applied);
  if (result.IsFail()) throw std::runtime_error("no equilibrium");
  return {result.Response().uncracked.Deformation().Vector(), applied,
          result.CrackingUtilisation()};
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
  return {failure.DeformationAtFailure().Vector(), limit, 1.0};
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
  if (name == "dcr") return state.utilisation;
  if (name == "Mcr") return -state.load.y / units_.moment / state.utilisation;
  if (name == "Icr") {
    const double modulus = json_["load"]["Ec"].GetDouble() * units_.stress;
    return std::abs(state.load.y) / (kappa * modulus) / std::pow(units_.length, 4);
  }
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
