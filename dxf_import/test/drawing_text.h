#pragma once

#include <ostream>
#include <sstream>
#include <string>

#include "dxf_import/DxfDiagnostic.h"

namespace Orlix::dxf_import {

/// How a failed test shows a diagnostic.
inline void PrintTo(const DxfDiagnostic& d, std::ostream* out) {
  *out << static_cast<int>(d.severity) << " line " << d.line << ' ' << d.entityType << '/'
       << d.layer << ": " << d.message << " | " << d.hint;
}

/// A drawing with each word of `words` on a line of its own; "_" is an empty line.
inline std::string Lines(const std::string& words) {
  std::istringstream in(words);
  std::string text;
  for (std::string word; in >> word;) text += (word == "_" ? "" : word) + '\n';
  return text;
}

/// The words of an ENTITIES section with these entities.
inline std::string Entities(const std::string& entities) {
  return "0 SECTION 2 ENTITIES " + entities + " 0 ENDSEC ";
}

}  // namespace Orlix::dxf_import
