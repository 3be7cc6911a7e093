#include "plot/picture.h"

#include <algorithm>

namespace Orlix::Plot {

std::optional<PictureFormat> PictureFormatOf(const std::filesystem::path& path) {
  std::string ending = path.extension().string();
  std::transform(ending.begin(), ending.end(), ending.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  if (ending == ".svg") return PictureFormat::svg;
  if (ending == ".pdf") return PictureFormat::pdf;
  if (ending == ".png") return PictureFormat::png;
  return std::nullopt;
}

}  // namespace Orlix::Plot
