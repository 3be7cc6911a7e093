#pragma once

#include <vector>

#include "model/oxdata/section/CSecComp.h"
#include "model/oxutil/BaseEntity.h"
#include "model/oxutil/OrlixString.h"

namespace Orlix::Data {

/// Transverse reinforcement of a compression member; decides strength reduction and axial cap.
enum class Confinement { ties, spiral };

/// A cross-section: components in their order, of which a later one displaces an earlier one where
/// they overlap.
class CSection : public BaseEntity {
 public:
  const OrlixString<wchar_t>& Name() const { return name_; }
  void SetName(const OrlixString<wchar_t>& name) { name_ = name; }

  Orlix::Data::Confinement Confinement() const { return confinement_; }
  void SetConfinement(Orlix::Data::Confinement confinement) { confinement_ = confinement; }

  const std::vector<CSecComp>& Components() const { return components_; }
  std::vector<CSecComp>& Components() { return components_; }

  /// Area of the bars over the area of the concrete outlines, holes and what later components cover
  /// taken out, in per cent; 0 without concrete. Outlines that are not valid do not count.
  /// @throws std::runtime_error when the overlay fails.
  double RebarPercentage() const;

  friend bool operator==(const CSection& a, const CSection& b) {
    return a.name_ == b.name_ && a.confinement_ == b.confinement_ && a.components_ == b.components_;
  }

 private:
  OrlixString<wchar_t> name_;
  Orlix::Data::Confinement confinement_{Orlix::Data::Confinement::ties};
  std::vector<CSecComp> components_;
};

}  // namespace Orlix::Data
