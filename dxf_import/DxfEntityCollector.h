#pragma once

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "dxf_import/DxfDiagnostic.h"
#include "dxf_import/DxfEntity.h"
#include "dxf_import/DxfTokenizer.h"
#include "dxf_import/DxfUnit.h"

namespace Orlix::dxf_import {

/// What the import takes from the header of a drawing.
struct DxfHeaderData {
  DxfUnit units = DxfUnit::Unknown;
};

/// What a drawing holds; texts live as long as the tokenizer they were read with.
struct DxfCollectionResult {
  DxfUnit units = DxfUnit::Unknown;  ///< Unknown also when the drawing names none
  std::vector<DxfEntity> entities;   ///< in the order of the file
  std::vector<DxfDiagnostic> diagnostics;
};

/// Walks the tags of a drawing once, to "EOF" or to their end, and picks its unit and the objects
/// of its ENTITIES sections. "SECTION", "ENDSEC" and "EOF" count in upper case alone, the names of
/// sections in any.
class DxfEntityCollector {
 public:
  using EntityVisitor = std::function<void(const DxfEntity&)>;

  /// Collects everything.
  static DxfCollectionResult Collect(DxfTokenizer& tokenizer);

  /// Hands each entity to `visit` as soon as it is complete, so that no more than one is held at a
  /// time; its texts are gone when `visit` returns.
  static DxfHeaderData Collect(DxfTokenizer& tokenizer, const EntityVisitor& visit,
                               std::vector<DxfDiagnostic>& diagnostics);
};

}  // namespace Orlix::dxf_import
