#pragma once

#include <cstddef>

namespace Orlix::Legacy {

// How much a file may hold. A short record can stand for a large thing in memory, so that the size
// of a file alone is no bound.
inline constexpr int kMaxGrades = 1000;               ///< in a module
inline constexpr std::size_t kMaxPoints = 10000;      ///< of a curve
inline constexpr std::size_t kMaxSections = 10000;    ///< in the file
inline constexpr std::size_t kMaxComponents = 20000;  ///< in the file
inline constexpr std::size_t kMaxTasks = 20000;       ///< in the file
inline constexpr std::size_t kMaxRings = 100000;      ///< outlines and holes, in the file
inline constexpr int kMaxGroups = 50000;              ///< of bars, in the file
/// Points of explicit curves, each counted once for every component made of its grade.
inline constexpr std::size_t kMaxCarriedPoints = 1000000;

}  // namespace Orlix::Legacy
