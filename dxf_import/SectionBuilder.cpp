#include "dxf_import/SectionBuilder.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "dxf_import/DxfImportMessages.h"
#include "model/oxutil/Format.h"

namespace Orlix::dxf_import {

std::optional<SectionGeometry> SectionBuilder::Build(ClassifiedGeometry&& classified,
                                                     std::vector<DxfDiagnostic>& diagnostics) {
  const auto fail = [&](std::string message, std::string_view hint) {
    diagnostics.push_back(
        {DxfSeverity::Error, 0, "", "OUTER", std::move(message), std::string(hint)});
    return std::nullopt;
  };
  const std::size_t count = classified.outerCandidates.size();
  if (count == 0) return fail(std::string(Messages::kNoOuter), Messages::kNoOuterHint);
  if (count > 1) {
    return fail(Format(Messages::kMultipleOuters, count), Messages::kMultipleOutersHint);
  }
  return SectionGeometry{std::move(classified.outerCandidates.front()), std::move(classified.holes),
                         std::move(classified.circularHoles), std::move(classified.rebars)};
}

}  // namespace Orlix::dxf_import
