#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dxf_import/DxfDiagnostic.h"
#include "dxf_import/DxfEntity.h"

namespace Orlix::dxf_import {

// Group codes of what an entity is made of.
inline constexpr int kXCode = 10;
inline constexpr int kYCode = 20;
inline constexpr int kZCode = 30;
inline constexpr int kRadiusCode = 40;
inline constexpr int kBulgeCode = 42;
inline constexpr int kFlagsCode = 70;

/// A diagnostic about `entity`.
DxfDiagnostic AboutEntity(const DxfEntity& entity, DxfSeverity severity, std::string message,
                          std::string_view hint);

/// Reads the value of a coordinate, bulge or radius of `entity`.
/// @return nothing for text that is no number, with an error that has `hint`.
std::optional<double> ParseValue(const DxfEntity& entity, const DxfTag& tag, std::string_view hint,
                                 std::vector<DxfDiagnostic>& diagnostics);

}  // namespace Orlix::dxf_import
