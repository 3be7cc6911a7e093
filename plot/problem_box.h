#pragma once

#include <string>

#include "plot/Canvas.h"

namespace Orlix::Plot {

/// A framed text in the middle of a box of the sheet: why there is nothing drawn there.
void DrawProblemBox(Canvas& canvas, const Box& box, const std::string& text);

}  // namespace Orlix::Plot
