#pragma once

#include <optional>

#include "model/oxdata/codes/CConcCode.h"
#include "model/oxutil/json_fwd.h"
#include "model/vldata/json/ProblemList.h"

namespace Orlix::Data {

inline constexpr const char* kAnnexFormat = "velmo national annex";
inline constexpr int kAnnexVersion = 1;

/// The annex in force as it stands in a file of its own and, whole, in a document:
/// docs/national-annex.md.
/// @pre the code has national annexes.
Util::JsonValue AnnexToJson(const Design::CConcCodeData& code, Util::JsonAllocator& allocator);

/// Reads an annex. A parameter that is absent, or wrong and in the problems, has the code's
/// recommended value, with its clause as the source.
/// @param code  the code that the annex belongs to
/// @return nothing for a value that is no object and for a code without annexes
std::optional<Design::NationalAnnex> AnnexFromJson(const Util::JsonValue& json,
                                                   const JsonPath& path,
                                                   const Design::CConcCodeData& code,
                                                   ProblemList& problems);

}  // namespace Orlix::Data
