#pragma once

#include <string>

#include "model/oxutil/BaseEntity.h"
#include "model/oxutil/CUnit.h"
#include "model/oxutil/json_fwd.h"

namespace Orlix::Data {

/// Titles of a document, UTF-8.
struct CTitles {
  CTitles() = default;
  /// From {"project", "part", "description", "jobNumber", "initials"}; what is absent or no text
  /// stays empty.
  explicit CTitles(const Util::JsonValue& json);

  std::string project;
  std::string part;
  std::string description;
  std::string jobNumber;
  std::string initials;

  friend bool operator==(const CTitles&, const CTitles&) = default;
};

/// What every document has: titles and units.
class CModelData : public BaseEntity {
 public:
  const CTitles& Titles() const { return titles_; }
  void SetTitle(const CTitles& titles) { titles_ = titles; }
  const CUnit& Units() const { return units_; }
  void SetUnits(const CUnit& units) { units_ = units; }

 private:
  CTitles titles_;
  CUnit units_;
};

}  // namespace Orlix::Data
