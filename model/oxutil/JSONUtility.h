#pragma once

#include <string>

#include "model/oxutil/json_fwd.h"

namespace Orlix::Util {

/// JSON text for the wide strings of the model libraries.
class JSONUtility {
 public:
  /// @return the document as PrettyJson writes it, widened.
  /// @throws std::length_error when the document is nested deeper than kMaxJsonDepth.
  static std::wstring GetJsonString(const JsonDocument& document);
};

}  // namespace Orlix::Util
