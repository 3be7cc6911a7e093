#pragma once

#include <memory>
#include <string_view>

#include "model/oxdata/codes/CConcCode.h"
#include "model/oxdata/materials/Materials.h"

namespace Orlix::Data {

/// The code's own grade of a name; null when it has none.
const Design::CMat* StandardGrade(const Design::CConcCodeData& code, MatType type,
                                  std::wstring_view name);

/// Tables of all standard grades of a code.
std::shared_ptr<Materials> StandardMaterials(const Design::CConcCodeData& code);

/// Adds all standard grades of one type to an empty table.
void AddStandardGrades(const Design::CConcCodeData& code, MatType type, Materials& materials);

/// Replaces the grades that are the old code's standard ones, in all their values, by those of the
/// same name of the new code. Edited grades stay, and so does what the new code has no name for.
void MoveToCode(const Design::CConcCodeData& from, const Design::CConcCodeData& to,
                Materials& materials);

}  // namespace Orlix::Data
