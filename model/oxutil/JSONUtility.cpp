#include "model/oxutil/JSONUtility.h"

#include "model/oxutil/json.h"
#include "model/oxutil/text.h"

namespace Orlix::Util {

std::wstring JSONUtility::GetJsonString(const JsonDocument& document) {
  return to_wstring(PrettyJson(document));
}

}  // namespace Orlix::Util
