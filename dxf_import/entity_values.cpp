#include "dxf_import/entity_values.h"

#include <utility>

#include "dxf_import/DxfImportMessages.h"
#include "model/oxutil/ParseDouble.h"

namespace Orlix::dxf_import {
namespace {

std::string_view LabelOf(int code) {
  switch (code) {
    case kXCode:
      return "X";
    case kYCode:
      return "Y";
    case kZCode:
      return "Z";
    case kBulgeCode:
      return "bulge";
    default:
      return "radius";
  }
}

}  // namespace

DxfDiagnostic AboutEntity(const DxfEntity& entity, DxfSeverity severity, std::string message,
                          std::string_view hint) {
  return {severity,           entity.line,      std::string(entity.type), std::string(entity.layer),
          std::move(message), std::string(hint)};
}

std::optional<double> ParseValue(const DxfEntity& entity, const DxfTag& tag, std::string_view hint,
                                 std::vector<DxfDiagnostic>& diagnostics) {
  const std::optional<double> value = ParseDouble(tag.value);
  if (value) return value;
  std::string message(Messages::kCouldNotParse);
  message.append(LabelOf(tag.code)).append(Messages::kValueQuote);
  message.append(tag.value).append(Messages::kNotANumberEnd);
  diagnostics.push_back(AboutEntity(entity, DxfSeverity::Error, std::move(message), hint));
  return std::nullopt;
}

}  // namespace Orlix::dxf_import
