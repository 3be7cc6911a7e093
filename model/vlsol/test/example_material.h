#pragma once

#include <string>

#include "model/oxdata/materials/CMatCurveParam.h"
#include "model/oxutil/json_fwd.h"

namespace Orlix::VlSol::Test {

/// A material of a published example, in SI units. Both limit states have the same curve, but for
/// the serviceability model of a concrete.
struct ExampleMaterial {
  Data::Design::CurveScale scale;
  Data::Design::CurveShape compression;
  Data::Design::CurveShape tension;
  Data::Design::CurveShape serviceTension;
  double f_ct{};  ///< [Pa]
};

/// A number of an object, or what holds where it is not given.
double Number(const Util::JsonValue& json, const char* name, double otherwise);

/// Reads one of an example's materials; strain limits of its load apply.
/// @param stress  the example's unit of stress [Pa]
/// @throws std::runtime_error for a kind of material that no example has.
ExampleMaterial ReadMaterial(const Util::JsonValue& example, const std::string& name, double stress,
                             MatType type);

}  // namespace Orlix::VlSol::Test
