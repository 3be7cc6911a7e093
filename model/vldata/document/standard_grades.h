#pragma once

#include <array>
#include <memory>
#include <string_view>

#include "model/oxdata/codes/CConcCode.h"
#include "model/oxdata/materials/Materials.h"

namespace Orlix::Data {

/// Types of which a code has standard grades.
inline constexpr std::array kTypesWithStandards = {MatType::concrete, MatType::reinforcement,
                                                   MatType::steel};

/// The code's own grade of a name; null when it has none.
const Design::CMat* StandardGrade(const Design::CConcCodeData& code, MatType type,
                                  std::wstring_view name);

/// Tables of all standard grades of a code.
std::shared_ptr<Materials> StandardMaterials(const Design::CConcCodeData& code);

/// Adds the standard grades of one type whose names the table does not have yet.
void AddStandardGrades(const Design::CConcCodeData& code, MatType type, Materials& materials);

}  // namespace Orlix::Data
