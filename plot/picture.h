#pragma once

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>

namespace Orlix::Plot {

/// What a picture is written as.
enum class PictureFormat { svg, pdf, png };

/// The endings of file names that stand for a format, for messages.
inline constexpr const char* kPictureEndings = ".svg, .pdf, .png";

/// The format of a file by the ending of its name, in either case; nothing for another ending.
std::optional<PictureFormat> PictureFormatOf(const std::filesystem::path& path);

/// How a picture is written. The sheet is A4, landscape, in every format.
struct PictureOptions {
  PictureFormat format{PictureFormat::svg};
  int widthPx{2000};  ///< of a PNG, kFewestPx to kMostPx
  /// SVG: stands before every id, so that pictures with different prefixes can be put into one HTML
  /// page, for which the XML declaration is left out; letters, digits and "-". Empty: a file.
  std::string idPrefix;

  static constexpr int kFewestPx = 400;
  static constexpr int kMostPx = 8000;
};

/// A picture that the drawing library could not make; the text says why.
class PictureError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace Orlix::Plot
