#include "model/oxutil/CUnit.h"

#include <algorithm>
#include <initializer_list>
#include <span>
#include <stdexcept>
#include <string_view>

namespace Orlix::Data {
namespace {

struct Unit {
  std::wstring_view text;
  double si;  // one of this unit in SI units
};

// NIST SP 811 (2008), appendix B.8: the exact factors of foot, pound and standard gravity.
constexpr double kInch = 0.0254;
constexpr double kPound = 0.45359237;
constexpr double kGravity = 9.80665;
constexpr double kPoundForce = kPound * kGravity;
constexpr double kPsi = kPoundForce / (kInch * kInch);

// The first unit of each table is the default.
constexpr Unit kForces[] = {{L"kN", 1e3},
                            {L"N", 1},
                            {L"MN", 1e6},
                            {L"kgf", kGravity},
                            {L"tf", 1e3 * kGravity},
                            {L"lbf", kPoundForce},
                            {L"kip", 1e3 * kPoundForce}};
constexpr Unit kLengths[] = {
    {L"m", 1}, {L"mm", 1e-3}, {L"cm", 1e-2}, {L"ft", 12 * kInch}, {L"in", kInch}};
constexpr Unit kMasses[] = {{L"kg", 1}, {L"t", 1e3}, {L"lb", kPound}};
constexpr Unit kTemperatures[] = {{L"\u00B0C", 1}, {L"\u00B0F", 1 / 1.8}, {L"K", 1}};
constexpr Unit kStresses[] = {{L"MPa", 1e6},        {L"Pa", 1},           {L"kPa", 1e3},
                              {L"N/mm\u00B2", 1e6}, {L"kN/m\u00B2", 1e3}, {L"psi", kPsi},
                              {L"ksi", 1e3 * kPsi}};
constexpr Unit kStrains[] = {{L"\u2030", 1e-3},  // per mille
                             {L"\u03B5", 1},     // epsilon
                             {L"m\u03B5", 1e-3},
                             {L"\u03BC\u03B5", 1e-6},  // mu epsilon
                             {L"%", 1e-2}};

struct Base {
  Dimension dimension;
  std::span<const Unit> units;
};

constexpr Base kBases[] = {{Dimension::force, kForces},
                           {Dimension::length, kLengths},
                           {Dimension::mass, kMasses},
                           {Dimension::temperature, kTemperatures},
                           {Dimension::sectionDimensions, kLengths},
                           {Dimension::stress, kStresses},
                           {Dimension::strain, kStrains}};

// Index into kBases; its size for a dimension that is not among them.
std::size_t BaseIndex(Dimension dimension) {
  const auto found = std::ranges::find(kBases, dimension, &Base::dimension);
  return static_cast<std::size_t>(found - std::begin(kBases));
}

// What a compound dimension multiplies.
struct Compound {
  Dimension factor;
  int lengths;  // power of the length unit
};

Compound CompoundOf(Dimension dimension) {
  switch (dimension) {
    case Dimension::moment:
      return {Dimension::force, 1};
    case Dimension::bendingStiffness:
      return {Dimension::force, 2};
    case Dimension::curvature:
      return {Dimension::strain, -1};
    default:
      throw std::invalid_argument("not a dimension with a unit");
  }
}

}  // namespace

CUnit::CUnit() {
  static_assert(kBaseCount == std::size(kBases));
  SetUnitString(Dimension::sectionDimensions, L"mm");
}

bool CUnit::SetUnitString(Dimension dimension, const OrlixString<wchar_t>& text) {
  const std::size_t base = BaseIndex(dimension);
  if (base == kBaseCount) return false;
  const std::span<const Unit> units = kBases[base].units;
  const auto found = std::ranges::find(units, text.View(), &Unit::text);
  if (found == units.end()) return false;
  chosen_[base] = static_cast<std::size_t>(found - units.begin());
  return true;
}

std::wstring CUnit::UnitString(Dimension dimension) const {
  const std::size_t base = BaseIndex(dimension);
  if (base < kBaseCount) return std::wstring(kBases[base].units[chosen_[base]].text);
  const auto [factor, lengths] = CompoundOf(dimension);
  return UnitString(factor) + (lengths < 0 ? L"/" : L"") + UnitString(Dimension::length) +
         (lengths == 2 ? L"\u00B2" : L"");
}

double CUnit::Conversion(Dimension dimension) const {
  const std::size_t base = BaseIndex(dimension);
  if (base < kBaseCount) return 1 / kBases[base].units[chosen_[base]].si;
  const auto [factor, lengths] = CompoundOf(dimension);
  const double length = Conversion(Dimension::length);
  const double lengthPower = lengths == 2 ? length * length : lengths == 1 ? length : 1 / length;
  return Conversion(factor) * lengthPower;
}

}  // namespace Orlix::Data
