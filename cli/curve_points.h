#pragma once

#include <vector>

#include "model/oxdata/materials/CMat.h"
#include "model/oxnumeric/Vec.h"

namespace Orlix::Cli {

/// A stress-strain curve as a table: x strain, y stress [Pa], compression positive, in ascending
/// strain. Corners are in it; a step has two points at its strain; curved pieces are divided. A
/// side without a limit of its own ends somewhat beyond its last corner, at the strain f_k/E at
/// least.
std::vector<Vec2<double>> CurvePoints(const Data::Design::CMat& material, LoadState state);

}  // namespace Orlix::Cli
