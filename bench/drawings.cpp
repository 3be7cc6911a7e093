#include "bench/drawings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>
#include <string_view>
#include <utility>

namespace Orlix::Bench {
namespace {

/// Text of a drawing that grows by tags and knows its lines.
class Drawing {
 public:
  explicit Drawing(int lines) : wanted_(lines) {
    text_.reserve(static_cast<std::size_t>(lines) * 10);
  }

  int LinesLeft() const { return wanted_ - lines_; }
  std::string Take() { return std::move(text_); }

  void Tag(int code, std::string_view value) {
    const std::string digits = std::to_string(code);
    text_.append(digits.size() < 3 ? 3 - digits.size() : 0, ' ').append(digits).append("\n");
    text_.append(value).append("\n");
    lines_ += 2;
  }

  void Tag(int code, double value) {
    std::array<char, 32> digits;
    const auto end =
        std::to_chars(digits.begin(), digits.end(), value, std::chars_format::fixed, 6);
    Tag(code, std::string_view(digits.data(), end.ptr));
  }

  void Entity(std::string_view type, std::string_view layer) {
    Tag(0, type);
    Tag(5, std::to_string(0x100 + lines_));
    Tag(100, "AcDbEntity");
    Tag(8, layer);
  }

  void Bar(double x, double y) {
    Entity("CIRCLE", "REBAR");
    Tag(100, "AcDbCircle");
    Tag(10, x);
    Tag(20, y);
    Tag(30, 0.0);
    Tag(40, 8.0);
  }

  void Line(double x, double y) {
    Entity("LINE", "0");
    Tag(100, "AcDbLine");
    Tag(10, x);
    Tag(20, y);
    Tag(30, 0.0);
    Tag(11, y);
    Tag(21, x);
    Tag(31, 0.0);
  }

  /// A regular polygon about the origin.
  void Outline(std::string_view layer, int vertices, double radius) {
    Entity("LWPOLYLINE", layer);
    Tag(100, "AcDbPolyline");
    Tag(90, std::to_string(vertices));
    Tag(70, "1");
    for (int i = 0; i < vertices; ++i) {
      const double angle = 2.0 * std::acos(-1.0) * i / vertices;
      Tag(10, radius * std::cos(angle));
      Tag(20, radius * std::sin(angle));
    }
  }

 private:
  std::string text_;
  int lines_ = 0;
  int wanted_;
};

constexpr double kRadius = 5000.0;

// Points that lie well inside the outline, no two alike for long.
double Spread(int i, double step) { return kRadius * (std::fmod(i * step, 1.0) - 0.5); }

void AddBars(Drawing& drawing, int linesKept) {
  for (int i = 0; drawing.LinesLeft() > linesKept; ++i) {
    drawing.Bar(Spread(i, 0.618033988749895), Spread(i, 0.754877666246693));
  }
}

void AddLines(Drawing& drawing, int linesKept) {
  for (int i = 0; drawing.LinesLeft() > linesKept; ++i) {
    drawing.Line(Spread(i, 0.618033988749895), Spread(i, 0.754877666246693));
  }
}

void AddTables(Drawing& drawing, int linesKept) {
  drawing.Tag(0, "SECTION");
  drawing.Tag(2, "OBJECTS");
  for (int i = 0; drawing.LinesLeft() > linesKept; ++i) {
    drawing.Tag(0, "XRECORD");
    drawing.Tag(5, std::to_string(i));
    drawing.Tag(330, "1F");
    drawing.Tag(100, "AcDbXrecord");
    drawing.Tag(280, "1");
    drawing.Tag(40, Spread(i, 0.618033988749895));
    drawing.Tag(1, "some words of an object");
  }
  drawing.Tag(0, "ENDSEC");
}

void AddEntities(DrawingKind kind, Drawing& drawing) {
  const int lines = drawing.LinesLeft();
  const bool hasLargeOutline = kind == DrawingKind::outline || kind == DrawingKind::outlineAndBars;
  const int share = kind == DrawingKind::outline ? lines : lines / 2;
  drawing.Outline("OUTER", hasLargeOutline ? share / 4 : 24, kRadius);
  switch (kind) {
    case DrawingKind::bars:
    case DrawingKind::outlineAndBars:
      return AddBars(drawing, 0);
    case DrawingKind::unsupported:
      return AddLines(drawing, 0);
    case DrawingKind::mixed:
      while (drawing.LinesLeft() > 2 * lines / 3) drawing.Outline("HOLES", 12, kRadius / 4);
      AddLines(drawing, lines / 3);
      return AddBars(drawing, 0);
    case DrawingKind::outline:
    case DrawingKind::otherSections:
      return;
  }
}

}  // namespace

std::string DrawingOf(DrawingKind kind, int lines) {
  Drawing drawing(lines);
  drawing.Tag(0, "SECTION");
  drawing.Tag(2, "HEADER");
  drawing.Tag(9, "$INSUNITS");
  drawing.Tag(70, "4");
  drawing.Tag(0, "ENDSEC");
  if (kind == DrawingKind::otherSections) AddTables(drawing, 100);
  if (kind == DrawingKind::mixed) AddTables(drawing, lines * 3 / 4);
  drawing.Tag(0, "SECTION");
  drawing.Tag(2, "ENTITIES");
  AddEntities(kind, drawing);
  drawing.Tag(0, "ENDSEC");
  drawing.Tag(0, "EOF");
  return drawing.Take();
}

}  // namespace Orlix::Bench
