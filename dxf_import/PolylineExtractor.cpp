#include "dxf_import/PolylineExtractor.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "dxf_import/DxfImportMessages.h"
#include "dxf_import/entity_values.h"
#include "dxf_import/tag_numbers.h"
#include "model/oxutil/Format.h"

namespace Orlix::dxf_import {
namespace {

using Vertices = std::vector<Vec3<double>>;

constexpr double kSamePoint = 1e-6;      // drawing units
constexpr double kStraightBulge = 1e-6;  // tangent of a quarter of the arc's angle
constexpr unsigned kClosedFlag = 1;

/// Puts vertices together from the tags of one entity.
class VertexReader {
 public:
  VertexReader(const DxfEntity& entity, std::vector<DxfDiagnostic>& diagnostics)
      : entity_(entity), diagnostics_(diagnostics) {}

  std::optional<Vertices> Read() {
    vertices_.reserve(static_cast<std::size_t>(
        std::count_if(entity_.tags.begin(), entity_.tags.end(),
                      [](const DxfTag& tag) { return tag.code == kXCode; })));
    for (const DxfTag& tag : entity_.tags) {
      if (!Take(tag)) return std::nullopt;
    }
    if (hasX_ && !hasY_ && !Fail(Messages::kTrailingX)) return std::nullopt;
    if (hasX_) vertices_.push_back(pending_);
    return std::move(vertices_);
  }

 private:
  // Each returns false when the entity is no polygon and the error has been said.
  bool Take(const DxfTag& tag) {
    switch (tag.code) {
      case kXCode:
        return TakeX(tag);
      case kYCode:
        if (!hasX_) return Fail(Messages::kYWithoutX);
        hasY_ = true;
        return TakeValue(tag, pending_.y);
      case kZCode:
        return hasX_ ? TakeValue(tag, pending_.z) : Fail(Messages::kZWithoutX);
      case kBulgeCode:
        return TakeBulge(tag);
      default:
        return true;
    }
  }

  bool TakeX(const DxfTag& tag) {
    if (hasX_ && !hasY_) return Fail(Messages::kXTwice);
    if (hasX_) vertices_.push_back(pending_);
    pending_ = {};
    hasX_ = true;
    hasY_ = false;
    return TakeValue(tag, pending_.x);
  }

  bool TakeValue(const DxfTag& tag, double& value) {
    const auto number = ParseValue(entity_, tag, Messages::kValidPairsHint, diagnostics_);
    if (number) value = *number;
    return number.has_value();
  }

  bool TakeBulge(const DxfTag& tag) {
    double bulge = 0;
    if (!TakeValue(tag, bulge)) return false;
    if (!(std::fabs(bulge) > kStraightBulge)) return true;
    return Fail(Format(Messages::kBulge, bulge), Messages::kBulgeHint);
  }

  bool Fail(std::string_view message, std::string_view hint = Messages::kValidPairsHint) {
    diagnostics_.push_back(AboutEntity(entity_, DxfSeverity::Error, std::string(message), hint));
    return false;
  }

  const DxfEntity& entity_;
  std::vector<DxfDiagnostic>& diagnostics_;
  Vertices vertices_;
  Vec3<double> pending_;
  bool hasX_ = false;
  bool hasY_ = false;
};

// The first flags count; without any they are 0.
std::optional<int> FlagsOf(const DxfEntity& entity, std::vector<DxfDiagnostic>& diagnostics) {
  const auto tag = std::find_if(entity.tags.begin(), entity.tags.end(),
                                [](const DxfTag& t) { return t.code == kFlagsCode; });
  if (tag == entity.tags.end()) return 0;
  const std::optional<int> flags = ParseInteger(tag->value);
  if (flags) return flags;
  std::string message(Messages::kFlagsNotInteger);
  message.append(tag->value).append(Messages::kNotAnIntegerEnd);
  diagnostics.push_back(
      AboutEntity(entity, DxfSeverity::Error, std::move(message), Messages::kValidAsciiHint));
  return std::nullopt;
}

bool IsClosedByVertex(const Vertices& vertices) {
  if (vertices.size() < 2) return false;
  const double dx = vertices.back().x - vertices.front().x;
  const double dy = vertices.back().y - vertices.front().y;
  return std::sqrt(dx * dx + dy * dy) < kSamePoint;
}

}  // namespace

void PolylineExtractor::Extract(const DxfEntity& entity, DxfExtractionResult& result) const {
  std::optional<Vertices> vertices = VertexReader(entity, result.diagnostics).Read();
  if (!vertices) return;
  const std::optional<int> flags = FlagsOf(entity, result.diagnostics);
  if (!flags) return;
  const bool closedByVertex = IsClosedByVertex(*vertices);
  if (closedByVertex) vertices->pop_back();
  if (vertices->size() < 2) {
    result.diagnostics.push_back(AboutEntity(entity, DxfSeverity::Error,
                                             std::string(Messages::kFewerThanTwoVertices),
                                             Messages::kFewerThanTwoVerticesHint));
    return;
  }
  const bool closed = (static_cast<unsigned>(*flags) & kClosedFlag) != 0 || closedByVertex;
  result.polygons.push_back({std::move(*vertices), std::string(entity.layer), closed});
}

}  // namespace Orlix::dxf_import
