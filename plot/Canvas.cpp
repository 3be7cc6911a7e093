#include "plot/Canvas.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <string_view>

#include "plot/drawing_text.h"
#include "plot/svg_text.h"

namespace Orlix::Plot {

namespace {

constexpr double kPointsPerMm = 72.0 / 25.4;
constexpr const char* kFont = "DejaVu Sans";  // fontconfig puts the nearest in its place
constexpr const char* kSubstitute = "sans-serif";

cairo_status_t Append(void* bytes, const unsigned char* data, unsigned int size) {
  try {
    static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), size);
    return CAIRO_STATUS_SUCCESS;
  } catch (const std::bad_alloc&) {
    return CAIRO_STATUS_NO_MEMORY;
  }
}

void Check(cairo_status_t status) {
  if (status == CAIRO_STATUS_SUCCESS) return;
  throw PictureError(std::string("the picture could not be drawn: ") +
                     cairo_status_to_string(status));
}

void CheckOptions(const PictureOptions& options) {
  if (options.format == PictureFormat::png &&
      (options.widthPx < PictureOptions::kFewestPx || options.widthPx > PictureOptions::kMostPx)) {
    throw std::invalid_argument("the width of a picture is " +
                                std::to_string(PictureOptions::kFewestPx) + " to " +
                                std::to_string(PictureOptions::kMostPx) + " pixels");
  }
  const auto isIdCharacter = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-';
  };
  if (!std::all_of(options.idPrefix.begin(), options.idPrefix.end(), isIdCharacter)) {
    throw std::invalid_argument("the prefix of ids has letters, digits and \"-\" alone");
  }
}

cairo_surface_t* NewSurface(const PictureOptions& options, std::string& bytes) {
  const double width = Canvas::kWidth * kPointsPerMm;
  const double height = Canvas::kHeight * kPointsPerMm;
  if (options.format == PictureFormat::svg) {
    return cairo_svg_surface_create_for_stream(Append, &bytes, width, height);
  }
  if (options.format == PictureFormat::pdf) {
    return cairo_pdf_surface_create_for_stream(Append, &bytes, width, height);
  }
  const double heightPx = options.widthPx * Canvas::kHeight / Canvas::kWidth;
  return cairo_image_surface_create(CAIRO_FORMAT_RGB24, options.widthPx,
                                    static_cast<int>(std::lround(heightPx)));
}

}  // namespace

/// The sheet as the drawing library has it; frees it.
struct Canvas::Surface {
  explicit Surface(const PictureOptions& options)
      : surface(NewSurface(options, bytes)), context(cairo_create(surface)) {}
  ~Surface() {
    cairo_destroy(context);
    cairo_surface_destroy(surface);
  }
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;

  std::string bytes;  // before the surface, which writes into it to the last
  cairo_surface_t* surface;
  cairo_t* context;
};

Canvas::Canvas(const PictureOptions& options) : options_(options) {
  CheckOptions(options);
  surface_ = std::make_unique<Surface>(options);
  cairo_t* context = surface_->context;
  Check(cairo_surface_status(surface_->surface));
  Check(cairo_status(context));
  const double scale =
      options.format == PictureFormat::png ? options.widthPx / kWidth : kPointsPerMm;
  cairo_scale(context, scale, scale);
  cairo_set_line_cap(context, CAIRO_LINE_CAP_BUTT);
  cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
  cairo_set_fill_rule(context, CAIRO_FILL_RULE_EVEN_ODD);
  // Lengths of texts must not depend on the pixels of the format.
  cairo_font_options_t* fonts = cairo_font_options_create();
  cairo_font_options_set_hint_style(fonts, CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(fonts, CAIRO_HINT_METRICS_OFF);
  cairo_font_options_set_antialias(fonts, CAIRO_ANTIALIAS_GRAY);
  cairo_set_font_options(context, fonts);
  cairo_font_options_destroy(fonts);
  if (options.format == PictureFormat::pdf) {  // a date would make every file another one
    cairo_pdf_surface_set_metadata(surface_->surface, CAIRO_PDF_METADATA_CREATE_DATE, "");
  }
  FillRectangle({0, 0, kWidth, kHeight}, kWhite);
}

Canvas::~Canvas() = default;

void Canvas::SetTitle(const std::string& title) {
  if (options_.format != PictureFormat::pdf) return;
  cairo_pdf_surface_set_metadata(surface_->surface, CAIRO_PDF_METADATA_TITLE,
                                 Drawable(title).c_str());
}

void Canvas::Use(const Pen& pen) {
  cairo_t* context = surface_->context;
  cairo_set_line_width(context, pen.width);
  cairo_set_source_rgb(context, pen.grey, pen.grey, pen.grey);
  cairo_set_dash(context, pen.dashes.data(), static_cast<int>(pen.dashes.size()), 0.0);
}

void Canvas::Use(const TextStyle& style) const {
  cairo_t* context = surface_->context;
  cairo_select_font_face(context, kFont, CAIRO_FONT_SLANT_NORMAL,
                         style.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
  if (cairo_status(context) == CAIRO_STATUS_SUCCESS &&
      cairo_font_face_status(cairo_get_font_face(context)) != CAIRO_STATUS_SUCCESS) {
    cairo_select_font_face(context, kSubstitute, CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  }
  cairo_set_font_size(context, style.size);
}

void Canvas::Trace(std::span<const Ring> rings) {
  cairo_t* context = surface_->context;
  cairo_new_path(context);
  for (const Ring& ring : rings) {
    if (ring.empty()) continue;
    cairo_move_to(context, ring.front().x, ring.front().y);
    for (std::size_t i = 1; i < ring.size(); ++i) cairo_line_to(context, ring[i].x, ring[i].y);
    cairo_close_path(context);
  }
}

void Canvas::Line(Spot from, Spot to, const Pen& pen) {
  const Stroke stroke{from, to};
  Lines({&stroke, 1}, pen);
}

void Canvas::Lines(std::span<const Stroke> strokes, const Pen& pen) {
  Use(pen);
  cairo_new_path(surface_->context);
  for (const Stroke& stroke : strokes) {
    cairo_move_to(surface_->context, stroke.from.x, stroke.from.y);
    cairo_line_to(surface_->context, stroke.to.x, stroke.to.y);
  }
  cairo_stroke(surface_->context);
}

void Canvas::Polyline(std::span<const Spot> spots, const Pen& pen) {
  Use(pen);
  cairo_new_path(surface_->context);
  for (const Spot& spot : spots) cairo_line_to(surface_->context, spot.x, spot.y);
  cairo_stroke(surface_->context);
}

void Canvas::Outline(std::span<const Ring> rings, const Pen& pen) {
  Use(pen);
  Trace(rings);
  cairo_stroke(surface_->context);
}

void Canvas::Fill(std::span<const Ring> rings, Grey grey) {
  cairo_set_source_rgb(surface_->context, grey, grey, grey);
  Trace(rings);
  cairo_fill(surface_->context);
}

void Canvas::Rectangle(const Box& box, const Pen& pen) {
  Use(pen);
  cairo_new_path(surface_->context);
  cairo_rectangle(surface_->context, box.left, box.top, box.Width(), box.Height());
  cairo_stroke(surface_->context);
}

void Canvas::FillRectangle(const Box& box, Grey grey) {
  cairo_set_source_rgb(surface_->context, grey, grey, grey);
  cairo_new_path(surface_->context);
  cairo_rectangle(surface_->context, box.left, box.top, box.Width(), box.Height());
  cairo_fill(surface_->context);
}

void Canvas::Circle(Spot centre, double radius, const Pen& pen) {
  Use(pen);
  cairo_new_path(surface_->context);
  cairo_arc(surface_->context, centre.x, centre.y, radius, 0.0, 2.0 * std::numbers::pi);
  cairo_close_path(surface_->context);
  cairo_stroke(surface_->context);
}

void Canvas::FillCircle(Spot centre, double radius, Grey grey) {
  cairo_set_source_rgb(surface_->context, grey, grey, grey);
  cairo_new_path(surface_->context);
  cairo_arc(surface_->context, centre.x, centre.y, radius, 0.0, 2.0 * std::numbers::pi);
  cairo_close_path(surface_->context);
  cairo_fill(surface_->context);
}

void Canvas::Arrow(Spot from, Spot to, const Pen& pen, double tip) {
  const double length = Length(to - from);
  if (!(length > 0.0)) return;
  const Spot along = 1.0 / length * (to - from);
  const Spot across{-along.y, along.x};
  const Spot base = to - std::min(tip, length) * along;
  Line(from, base, pen);
  const Ring head{to, base + 0.25 * tip * across, base - 0.25 * tip * across};
  Fill({&head, 1}, pen.grey);
}

double Canvas::TextWidth(const std::string& text, const TextStyle& style) const {
  Use(style);
  cairo_text_extents_t extents;
  cairo_text_extents(surface_->context, Drawable(text).c_str(), &extents);
  return extents.x_advance;
}

Box Canvas::TextBox(Spot at, const std::string& text, const TextStyle& style) const {
  constexpr double kAscent = 0.80;  // of the font's size, as is the descent
  constexpr double kDescent = 0.24;
  const double width = TextWidth(text, style);
  const double before = style.align == Align::left     ? 0.0
                        : style.align == Align::centre ? width / 2.0
                                                       : width;
  if (style.upwards) {
    return {at.x - kAscent * style.size, at.y + before - width, at.x + kDescent * style.size,
            at.y + before};
  }
  return {at.x - before, at.y - kAscent * style.size, at.x - before + width,
          at.y + kDescent * style.size};
}

void Canvas::Text(Spot at, const std::string& text, const TextStyle& style) {
  const Box box = TextBox(at, text, style);  // sets the font, too
  cairo_t* context = surface_->context;
  cairo_set_source_rgb(context, style.grey, style.grey, style.grey);
  cairo_save(context);
  cairo_move_to(context, style.upwards ? at.x : box.left, style.upwards ? box.bottom : at.y);
  if (style.upwards) cairo_rotate(context, -std::numbers::pi / 2.0);
  cairo_show_text(context, Drawable(text).c_str());
  cairo_restore(context);
}

void Canvas::TextOnWhite(Spot at, const std::string& text, const TextStyle& style) {
  FillRectangle(TextBox(at, text, style).Grown(0.2), kWhite);
  Text(at, text, style);
}

std::string Canvas::Fitted(const std::string& text, double width, const TextStyle& style) const {
  const std::string whole = Drawable(text);
  if (TextWidth(whole, style) <= width) return whole;
  // The longest beginning that fits, between characters; widths rise with the length.
  const auto begins = [&whole](std::size_t at) {
    return at == whole.size() || (static_cast<unsigned char>(whole[at]) & 0xC0U) != 0x80U;
  };
  const auto shortened = [&whole](std::size_t size) {
    std::string text_ = whole.substr(0, size);
    text_.erase(text_.find_last_not_of(' ') + 1);
    return text_ + "…";
  };
  std::size_t low = 0;
  std::size_t high = std::min<std::size_t>(whole.size(), 4000);  // more is on no sheet
  while (low < high) {
    std::size_t middle = low + (high - low + 1) / 2;
    while (middle > low && !begins(middle)) --middle;
    if (middle == low) break;  // within one character
    if (TextWidth(shortened(middle), style) <= width) {
      low = middle;
    } else {
      high = middle - 1;
    }
  }
  return shortened(low);
}

std::string Canvas::Finish() {
  Check(cairo_status(surface_->context));
  if (options_.format == PictureFormat::png) {
    cairo_surface_flush(surface_->surface);
    Check(cairo_surface_write_to_png_stream(surface_->surface, Append, &surface_->bytes));
  } else {
    cairo_surface_finish(surface_->surface);
  }
  Check(cairo_status(surface_->context));
  Check(cairo_surface_status(surface_->surface));
  if (options_.format != PictureFormat::svg) return std::move(surface_->bytes);
  return TidySvg(surface_->bytes, options_.idPrefix);
}

}  // namespace Orlix::Plot
