#pragma once

#include <vector>

#include "model/oxdata/section/CSecComp.h"
#include "model/oxutil/BaseEntity.h"
#include "model/oxutil/OrlixString.h"

namespace Orlix::Data {

/// A cross-section: components in their order, of which a later one displaces an earlier one where
/// they overlap.
class CSection : public BaseEntity {
 public:
  const OrlixString<wchar_t>& Name() const { return name_; }
  void SetName(const OrlixString<wchar_t>& name) { name_ = name; }

  const std::vector<CSecComp>& Components() const { return components_; }
  std::vector<CSecComp>& Components() { return components_; }

  /// Area of the bars over the area of the concrete outlines, holes taken out, in per cent;
  /// 0 without concrete.
  double RebarPercentage() const;

  friend bool operator==(const CSection& a, const CSection& b) {
    return a.name_ == b.name_ && a.components_ == b.components_;
  }

 private:
  OrlixString<wchar_t> name_;
  std::vector<CSecComp> components_;
};

}  // namespace Orlix::Data
