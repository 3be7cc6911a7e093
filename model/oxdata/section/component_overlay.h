#pragma once

#include <vector>

#include "model/oxdata/section/CSecComp.h"
#include "model/oxnumeric/Vec.h"
#include "model/oxnumeric/area_moments.h"
#include "model/oxnumeric/polygon_overlay.h"

namespace Orlix::Data {

/// Outlines of one component.
using ComponentOutlines = std::vector<Numeric::OwnedPolygon>;

/// Beyond this a coordinate [m] is a slip of the units, and its fourth power no number to reckon
/// with.
inline constexpr double kFurthestCoordinate = 1e6;

/// The outlines of a component as they are given; none unless they are valid and all of them within
/// `kFurthestCoordinate`.
ComponentOutlines GivenOutlines(const CSecComp& component);

/// Lays components over each other in their order: a later one displaces an earlier one where they
/// overlap, so that no area is counted twice.
/// @param given  by component; valid
/// @return by component what the later ones leave: vertex by vertex the given outlines where none
/// covers any of them, none where they cover it all.
/// @throws std::runtime_error when the overlay fails.
std::vector<ComponentOutlines> Overlaid(const std::vector<ComponentOutlines>& given);

/// Moments of outlines about the origin, holes taken out, whichever way the rings run.
Numeric::AreaMoments OutlineMoments(const ComponentOutlines& outlines);

/// Whether a point lies in one of the outlines, their edges included, and in no hole of it.
bool IsIn(const ComponentOutlines& outlines, Vec2<double> point);

}  // namespace Orlix::Data
