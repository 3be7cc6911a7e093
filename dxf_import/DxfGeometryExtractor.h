#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "dxf_import/IEntityExtractor.h"

namespace Orlix::dxf_import {

/// Makes shapes of the entities of a drawing: LWPOLYLINE and CIRCLE, named exactly so; any other
/// type gives a warning. An entity that fails gives one error and hides no other.
class DxfGeometryExtractor {
 public:
  DxfGeometryExtractor();

  DxfExtractionResult Extract(const std::vector<DxfEntity>& entities) const;

  /// Adds what comes of one entity to `result`.
  void Extract(const DxfEntity& entity, DxfExtractionResult& result) const;

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>{}(text);
    }
  };
  using Factory = std::function<std::unique_ptr<IEntityExtractor>()>;

  std::unique_ptr<IEntityExtractor> CreateExtractor(std::string_view type) const;

  std::unordered_map<std::string, Factory, Hash, std::equal_to<>> factories_;
};

}  // namespace Orlix::dxf_import
