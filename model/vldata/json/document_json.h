#pragma once

#include <optional>

#include "model/oxdata/codes/CConcCode.h"
#include "model/oxutil/CUnit.h"
#include "model/oxutil/json_fwd.h"
#include "model/vldata/document/CModelData.h"
#include "model/vldata/json/ProblemList.h"

namespace Orlix::Data {

inline constexpr const char* kDocumentFormat = "velmo document";
inline constexpr int kDocumentVersion = 1;

Util::JsonValue TitlesToJson(const CTitles& titles, Util::JsonAllocator& allocator);
CTitles TitlesFromJson(const Util::JsonValue& json, const JsonPath& path, ProblemList& problems);

Util::JsonValue UnitsToJson(const CUnit& units, Util::JsonAllocator& allocator);
CUnit UnitsFromJson(const Util::JsonValue& json, const JsonPath& path, ProblemList& problems);

Util::JsonValue CodesToJson(const Design::ConcreteCode& code, Util::JsonAllocator& allocator);
/// The code that a value chooses: {"concrete", "annex"}, or the code's name alone. The annex is a
/// name or an annex of the user's, whole (annex_json.h).
/// @param current  what absent members stand for
/// @return nothing for a value that chooses none; the problems say why
std::optional<Design::ConcreteCode> CodeFromJson(const Util::JsonValue& json, const JsonPath& path,
                                                 const Design::ConcreteCode& current,
                                                 ProblemList& problems);

}  // namespace Orlix::Data
