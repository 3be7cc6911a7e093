#pragma once

#include <string>

namespace Orlix::Bench {

/// What most of a drawing consists of.
enum class DrawingKind { bars, outline, otherSections, unsupported, mixed, outlineAndBars };

/// A drawing in millimetres of about `lines` lines, as a CAD program writes it, that imports
/// without an error.
std::string DrawingOf(DrawingKind kind, int lines);

}  // namespace Orlix::Bench
