#pragma once

#include "model/oxdata/codes/CConcCode.h"
#include "model/oxdata/materials/Materials.h"
#include "model/oxutil/json_fwd.h"
#include "model/vldata/json/ObjectReader.h"

namespace Orlix::Data {

/// The tables as they stand in a document: an object with a list for each material type.
Util::JsonValue MaterialsToJson(const Materials& materials, Util::JsonAllocator& allocator);
Util::JsonValue MaterialToJson(const Design::CMat& material, Util::JsonAllocator& allocator);

/// Reads the tables; one that is absent holds the code's standard grades.
/// @param json  the member "materials"; null when it is absent
Materials MaterialsFromJson(const Util::JsonValue* json, const JsonPath& path,
                            const Design::CConcCodeData& code, ProblemList& problems);

/// Reads a grade. Members that are absent are those of `known`.
/// @param known  a grade of this name; null: there is none, and strength and modulus are required
/// @param code   gives a grade of no known name what it does not say
Design::CMat MaterialFromJson(ObjectReader& reader, MatType type, const Design::CMat* known,
                              const Design::CConcCodeData& code);

/// The material types and their names in documents, in the order of the tables.
std::span<const std::pair<std::string_view, MatType>> MaterialTypeNames();

}  // namespace Orlix::Data
