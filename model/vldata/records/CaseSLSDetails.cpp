#include "model/vldata/records/CaseSLSDetails.h"

#include <array>

#include "model/oxutil/json.h"
#include "model/vldata/json/json_values.h"

namespace Orlix::Data::Velmo9 {

void CaseSLSDetails::AddCrackedStatusToJson(Util::JsonValue& json,
                                            Util::JsonAllocator& allocator) const {
  constexpr std::array kTexts = {"not calculated", "uncracked", "cracked", "no solution"};
  AddText(json, "crackedStatus", std::string_view(kTexts.at(static_cast<std::size_t>(resultKind))),
          allocator);
}

}  // namespace Orlix::Data::Velmo9
