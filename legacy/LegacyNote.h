#pragma once

#include <cstddef>
#include <string>

namespace Orlix {

/// Something that stands in a file of the older format and was not taken over as it stands.
struct LegacyNote {
  std::string module;  ///< empty: outside the modules
  std::size_t line{};  ///< counted from one; 0: no line in particular
  std::string text;    ///< what is wrong and what is expected, UTF-8

  friend bool operator==(const LegacyNote&, const LegacyNote&) = default;
};

}  // namespace Orlix
