#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "plot/picture.h"
#include "plot/shapes.h"

namespace Orlix::Plot {

/// Grey of a line or an area, 0 black to 1 white: sheets are made for black and white.
using Grey = double;
inline constexpr Grey kBlack = 0.0;
inline constexpr Grey kWhite = 1.0;

/// How a line is drawn.
struct Pen {
  double width{0.25};  ///< [mm]
  Grey grey{kBlack};
  std::vector<double> dashes{};  ///< lengths of dashes and gaps [mm]; empty: solid
};

/// Where a text stands from its spot.
enum class Align { left, centre, right };

/// How a text is drawn. Its spot is on the base line.
struct TextStyle {
  double size{2.5};  ///< [mm]; capitals are about 0.73 of it high
  Align align{Align::left};
  bool bold{};
  bool upwards{};  ///< turned by 90°, to be read from the right
  Grey grey{kBlack};
};

/// A sheet, A4 landscape, that can be drawn on; the origin is its upper left corner.
class Canvas {
 public:
  static constexpr double kWidth = 297.0;   ///< [mm]
  static constexpr double kHeight = 210.0;  ///< [mm]

  /// @throws std::invalid_argument for options out of bounds, PictureError.
  explicit Canvas(const PictureOptions& options);
  ~Canvas();
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  /// What the file says of itself.
  void SetTitle(const std::string& title);

  void Line(Spot from, Spot to, const Pen& pen);
  void Lines(std::span<const Stroke> strokes, const Pen& pen);
  void Polyline(std::span<const Spot> spots, const Pen& pen);
  /// Closed rings; the inside of filled ones is by the even-odd rule.
  void Outline(std::span<const Ring> rings, const Pen& pen);
  void Fill(std::span<const Ring> rings, Grey grey);
  void Rectangle(const Box& box, const Pen& pen);
  void FillRectangle(const Box& box, Grey grey);
  void Circle(Spot centre, double radius, const Pen& pen);
  void FillCircle(Spot centre, double radius, Grey grey);
  /// A line with a filled tip at its end.
  void Arrow(Spot from, Spot to, const Pen& pen, double tip = 2.0);

  /// Control characters and what is no UTF-8 do not get to the sheet.
  void Text(Spot at, const std::string& text, const TextStyle& style = {});
  /// As Text, on a white ground.
  void TextOnWhite(Spot at, const std::string& text, const TextStyle& style = {});
  /// [mm]
  double TextWidth(const std::string& text, const TextStyle& style = {}) const;
  /// The box that a text fills.
  Box TextBox(Spot at, const std::string& text, const TextStyle& style = {}) const;
  /// The text, or as much of its beginning as is no wider, with "…" behind.
  std::string Fitted(const std::string& text, double width, const TextStyle& style = {}) const;

  /// Ends the sheet. @return the bytes of the file. @throws PictureError.
  std::string Finish();

 private:
  struct Surface;

  void Use(const Pen& pen);
  void Use(const TextStyle& style) const;
  void Trace(std::span<const Ring> rings);

  PictureOptions options_;
  std::unique_ptr<Surface> surface_;
};

}  // namespace Orlix::Plot
