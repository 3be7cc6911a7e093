#pragma once

namespace Orlix {

/// What a component is made of.
enum class MatType { none = 0, steel = 1, concrete = 2, FRP = 5, reinforcement = 6 };

/// Limit state: ultimate or serviceability.
enum class LoadState { ULS = 1, SLS = 2 };

/// Side of a stress-strain curve.
enum class LoadSign { compression = 1, tension = 2 };

/// What a case prescribes: a strain plane or a load.
enum class LoadAction { deformation = 0, load = 1 };

/// What a component or a bar is preloaded with.
enum class PreloadKind { stress = 0, force = 1, strain = 2 };

/// A quantity that has a display unit.
enum class Dimension {
  force = 1,
  length = 2,
  mass = 3,
  temperature = 5,
  sectionDimensions = 6,  ///< lengths within the plane of a section
  stress = 7,
  strain = 13,
  moment = 112,            ///< force times length
  bendingStiffness = 119,  ///< force times length squared
  curvature = 130          ///< strain over length
};

}  // namespace Orlix
