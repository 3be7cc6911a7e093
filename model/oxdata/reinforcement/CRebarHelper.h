#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "model/oxdata/materials/Materials.h"

namespace Orlix::Util {

/// The reinforcement grades of a document, by name and by index.
class CRebarHelper {
 public:
  /// @param materials  the document's tables, which the grades follow when they change; not null
  explicit CRebarHelper(std::shared_ptr<const Data::Materials> materials)
      : materials_(std::move(materials)) {}

  int NumGrades() const;
  bool IsValidGrade(int grade) const;
  /// The name of a grade; empty when there is no such grade.
  std::wstring Name(int grade) const;
  /// Index of the grade with a name; -1: none.
  int Find(std::wstring_view name) const;
  /// Index of the grade that the letter of a bar size stands for: A, B, C the classes of B500, N of
  /// D500N, S the strand Y1860S7; -1: none, or the document does not have it.
  int FindForLetter(wchar_t letter) const;

 private:
  std::shared_ptr<const Data::Materials> materials_;
};

}  // namespace Orlix::Util
