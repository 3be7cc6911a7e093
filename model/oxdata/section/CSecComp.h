#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "model/oxdata/geometry/CSecGeom.h"
#include "model/oxdata/materials/CMat.h"
#include "model/oxdata/section/CBar.h"
#include "model/oxdata/section/Reinforcement.h"
#include "model/oxutil/Enumerations.h"
#include "model/oxutil/OrlixString.h"

namespace Orlix::Data {

/// The concrete part of a component: what only concrete has.
class CSecCompConc {
 public:
  const std::vector<CBar>& Bars() const { return reinforcement_.bars; }
  const Reinforcement& GetReinforcement() const { return reinforcement_; }
  void SetReinforcement(Reinforcement reinforcement) { reinforcement_ = std::move(reinforcement); }
  friend bool operator==(const CSecCompConc&, const CSecCompConc&) = default;

 private:
  Reinforcement reinforcement_;
};

/// A component of a section: a geometry made of one material, with bars when that is concrete.
class CSecComp {
 public:
  CSecComp() = default;
  /// @param grade  index into the document's table of that material; -1: none
  CSecComp(MatType type, int grade, CSecGeom geometry);

  const OrlixString<wchar_t>& Name() const { return name_; }
  void SetName(const OrlixString<wchar_t>& name) { name_ = name; }
  MatType MaterialType() const { return type_; }
  int MaterialGrade() const { return grade_; }
  void SetMaterial(MatType type, int grade);
  const CSecGeom& Geometry() const { return geometry_; }
  void SetGeometry(CSecGeom geometry) { geometry_ = std::move(geometry); }

  bool ConcreteExist() const { return type_ == MatType::concrete; }
  /// The concrete part. @throws std::logic_error when the component is not of concrete.
  const CSecCompConc& Concrete() const;
  CSecCompConc& Concrete();

  /// A material of the component's own, as files of the older format carry it; it takes part in
  /// nothing until it is moved into the document's table.
  const std::optional<Design::CMat>& UserDefinedGrade() const { return userGrade_; }
  void SetUserDefinedGrade(std::optional<Design::CMat> material) {
    userGrade_ = std::move(material);
  }

  friend bool operator==(const CSecComp&, const CSecComp&) = default;

 private:
  OrlixString<wchar_t> name_;
  MatType type_{MatType::none};
  int grade_{-1};
  CSecGeom geometry_;
  CSecCompConc concrete_;
  std::optional<Design::CMat> userGrade_;
};

}  // namespace Orlix::Data
