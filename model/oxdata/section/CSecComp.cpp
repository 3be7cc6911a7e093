#include "model/oxdata/section/CSecComp.h"

#include <stdexcept>
#include <utility>

namespace Orlix::Data {

CSecComp::CSecComp(MatType type, int grade, CSecGeom geometry)
    : type_(type), grade_(grade), geometry_(std::move(geometry)) {}

void CSecComp::SetMaterial(MatType type, int grade) {
  type_ = type;
  grade_ = grade;
}

const CSecCompConc& CSecComp::Concrete() const {
  if (!ConcreteExist()) throw std::logic_error("the component is not of concrete");
  return concrete_;
}

CSecCompConc& CSecComp::Concrete() {
  return const_cast<CSecCompConc&>(std::as_const(*this).Concrete());
}

}  // namespace Orlix::Data
