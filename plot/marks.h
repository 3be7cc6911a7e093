#pragma once

#include <span>

#include "plot/Canvas.h"
#include "plot/SheetFrame.h"

namespace Orlix::Plot {

// The signs of a sheet, drawn alike in the drawing and in its key.

inline const Pen kNeutralAxisPen{0.5, kBlack, {6.0, 1.5, 1.0, 1.5}};
inline const Pen kHatchPen{0.13};
inline const Pen kThinPen{0.15};
inline constexpr double kHatchSpacing = 1.6;   ///< [mm]
inline constexpr double kSteelSpacing = 0.55;  ///< of structural steel [mm]

/// A bar: filled black, or an open circle when it is in compression; a second circle around a
/// prestressed one.
void DrawBar(Canvas& canvas, Spot centre, double radius, bool isOpen, bool isPrestressed);

/// Where loads act: a circle with a cross.
void DrawOrigin(Canvas& canvas, Spot at);

/// Inside of structural steel and FRP.
void DrawSteel(Canvas& canvas, std::span<const Ring> rings);
void DrawFrp(Canvas& canvas, std::span<const Ring> rings);

/// A load in a diagram: a cross, one that is projected upright, the governing one in a circle.
void DrawLoad(Canvas& canvas, Spot at, bool isInPlane, bool isGoverning);

/// The one point of a design resistance that has no curve.
void DrawDesignPoint(Canvas& canvas, Spot at);

/// A sign of a key in its box.
void DrawKeySign(Canvas& canvas, const Box& box, KeySign sign);

}  // namespace Orlix::Plot
