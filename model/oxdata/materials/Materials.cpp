#include "model/oxdata/materials/Materials.h"

#include <cstddef>
#include <stdexcept>
#include <utility>

namespace Orlix::Data {

int Materials::NumGrades(MatType type) const {
  switch (type) {
    case MatType::concrete:
      return static_cast<int>(concrete_.size());
    case MatType::steel:
      return static_cast<int>(steel_.size());
    case MatType::FRP:
      return static_cast<int>(frp_.size());
    case MatType::reinforcement:
      return static_cast<int>(reinforcement_.size());
    case MatType::none:
      break;
  }
  return 0;
}

bool Materials::IsValidGrade(MatType type, int grade) const {
  return grade >= 0 && grade < NumGrades(type);
}

const Design::CMat& Materials::Grade(MatType type, int grade) const {
  if (!IsValidGrade(type, grade)) throw std::out_of_range("there is no such grade");
  const auto index = static_cast<std::size_t>(grade);
  switch (type) {
    case MatType::concrete:
      return concrete_[index];
    case MatType::steel:
      return steel_[index];
    case MatType::FRP:
      return frp_[index];
    case MatType::reinforcement:
    case MatType::none:  // has no valid grade
      break;
  }
  return reinforcement_[index];
}

Design::CMat& Materials::Grade(MatType type, int grade) {
  return const_cast<Design::CMat&>(std::as_const(*this).Grade(type, grade));
}

const Design::CMatRebar& Materials::Reinforcement(int grade) const {
  if (!IsValidGrade(MatType::reinforcement, grade)) {
    throw std::out_of_range("there is no such grade of reinforcement");
  }
  return reinforcement_[static_cast<std::size_t>(grade)];
}

int Materials::Find(MatType type, std::wstring_view name) const {
  for (int grade = 0; grade < NumGrades(type); ++grade) {
    if (Grade(type, grade).Name().View() == name) return grade;
  }
  return -1;
}

int Materials::Add(const Design::CMat& material) {
  const MatType type = material.Type();
  if (Find(type, material.Name().View()) >= 0) {
    throw std::invalid_argument("a material of this name is already there");
  }
  switch (type) {
    case MatType::concrete:
      concrete_.push_back(material);
      break;
    case MatType::steel:
      steel_.push_back(material);
      break;
    case MatType::FRP:
      frp_.push_back(material);
      break;
    case MatType::reinforcement: {
      Design::CMatRebar rebar;
      static_cast<Design::CMat&>(rebar) = material;
      reinforcement_.push_back(std::move(rebar));
      break;
    }
    case MatType::none:
      throw std::invalid_argument("a material needs a type");
  }
  return NumGrades(type) - 1;
}

}  // namespace Orlix::Data
