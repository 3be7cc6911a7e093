#pragma once

namespace Orlix::CurveMessages {

// Why a stress-strain curve was not imported.

/// There is no text, or the file cannot be read or is larger than any curve.
inline constexpr const char* kNoPoints = "No valid points found";
inline constexpr const char* kTooFewPoints =
    "Not enough valid points to define stress-strain curve";
inline constexpr const char* kNoOrigin =
    "Invalid stress-strain curve, curve must go through the origin";
inline constexpr const char* kInvalidType = "Invalid material type";
inline constexpr const char* kInvalidGrade = "Invalid material grade";

}  // namespace Orlix::CurveMessages
