#include "cli/printable.h"

#include <algorithm>

namespace Orlix::Cli {

std::string Printable(std::string text) {
  const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20U || c == 0x7F; };
  std::replace_if(text.begin(), text.end(), isControl, ' ');
  return text;
}

}  // namespace Orlix::Cli
