#pragma once

#include <string_view>
#include <vector>

#include "model/oxdata/materials/CMat.h"

namespace Orlix::Data {

/// The material tables of a document, one a material type; a grade is an index into its table.
/// Links share the table of reinforcement. Names are unique within a table.
class Materials {
 public:
  /// Number of grades of a type; 0 for MatType::none.
  int NumGrades(MatType type) const;
  /// Whether a grade is an index of the type's table.
  bool IsValidGrade(MatType type, int grade) const;
  /// The material of a grade. @throws std::out_of_range for no such grade.
  const Design::CMat& Grade(MatType type, int grade) const;
  Design::CMat& Grade(MatType type, int grade);
  /// The reinforcement of a grade. @throws std::out_of_range for no such grade.
  const Design::CMatRebar& Reinforcement(int grade) const;
  /// Index of the grade with a name; -1: none.
  int Find(MatType type, std::wstring_view name) const;
  /// Appends a material to the table of its type and returns its grade.
  /// @throws std::invalid_argument for MatType::none or a name that is already there.
  int Add(const Design::CMat& material);

  friend bool operator==(const Materials&, const Materials&) = default;

 private:
  std::vector<Design::CMat> concrete_;
  std::vector<Design::CMat> steel_;
  std::vector<Design::CMat> frp_;
  std::vector<Design::CMatRebar> reinforcement_;
};

}  // namespace Orlix::Data
