#include "dxf_import/CircleExtractor.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "dxf_import/DxfImportMessages.h"
#include "dxf_import/entity_values.h"
#include "model/oxutil/Format.h"

namespace Orlix::dxf_import {
namespace {

struct CircleValues {
  std::optional<double> x;
  std::optional<double> y;
  std::optional<double> z;
  std::optional<double> radius;

  /// The value of this group code, or null for a code that is none of a circle's.
  std::optional<double>* Find(int code) {
    switch (code) {
      case kXCode:
        return &x;
      case kYCode:
        return &y;
      case kZCode:
        return &z;
      case kRadiusCode:
        return &radius;
      default:
        return nullptr;
    }
  }

  /// Says which value is missing; empty when none is.
  std::string_view Missing() const {
    if (!x) return Messages::kMissingCenterX;
    if (!y) return Messages::kMissingCenterY;
    return radius ? std::string_view() : Messages::kMissingRadius;
  }
};

}  // namespace

void CircleExtractor::Extract(const DxfEntity& entity, DxfExtractionResult& result) const {
  const auto fail = [&](std::string_view message, std::string_view hint) {
    result.diagnostics.push_back(
        AboutEntity(entity, DxfSeverity::Error, std::string(message), hint));
  };
  CircleValues values;
  for (const DxfTag& tag : entity.tags) {
    std::optional<double>* const value = values.Find(tag.code);
    if (value == nullptr) continue;
    *value = ParseValue(entity, tag, Messages::kValidAsciiHint, result.diagnostics);
    if (!*value) return;
  }
  if (const std::string_view missing = values.Missing(); !missing.empty()) {
    fail(missing, Messages::kValidAsciiHint);
  } else if (0 >= *values.radius) {
    fail(Format(Messages::kRadiusNotPositive, *values.radius), Messages::kRadiusNotPositiveHint);
  } else {
    result.circles.push_back({{*values.x, *values.y, values.z.value_or(0.0)},
                              *values.radius,
                              std::string(entity.layer)});
  }
}

}  // namespace Orlix::dxf_import
