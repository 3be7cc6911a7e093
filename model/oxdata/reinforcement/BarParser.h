#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "model/oxdata/reinforcement/BarScanner.h"
#include "model/oxdata/reinforcement/CBarHelper.h"
#include "model/oxdata/reinforcement/bar_info.h"

namespace Orlix::Data {

/// Reads a bar description once, from the left to the right, up to the first error.
class BarParser {
 public:
  /// @param text           must outlive the parser, as must `sizes`
  /// @param metresPerUnit  what a length without a unit counts [m]
  BarParser(std::wstring_view text, const Util::CBarHelper& sizes, double metresPerUnit);

  /// @return false at the first error; call it once
  bool Read();

  const BarInfo& Info() const { return info_; }
  const std::wstring& Error() const { return error_; }
  bool HasBareLength() const { return hasBareLength_; }
  /// Where the name of the grade stands, for a message.
  std::size_t GradePosition() const { return gradePosition_; }
  /// Ends with an error about a position.
  bool FailAt(std::size_t position, std::wstring_view expected);

 private:
  bool ReadLayers();
  bool ReadGroup(BarLayer& layer);
  bool ReadCount(BarGroup& group);
  bool ReadSized(BarGroup& group);
  bool ReadSize(BarGroup& group);
  bool ReadSizeNumber(Util::BarSystem system, std::wstring_view kind, BarGroup& group);
  bool ReadClauses();
  /// Reads a clause when one comes next. @return nothing when there is none, else its success
  std::optional<bool> ReadPlace();
  std::optional<bool> ReadNumberedPlace();
  std::optional<bool> ReadOption();
  bool ReadAt();
  bool ReadSuffix();
  /// The unit in brackets at the end, which lengths before it need.
  void FindSuffix();
  bool SetPlace(std::size_t position, BarPlace place);
  bool CheckWhole();
  bool CheckCounts();

  bool ReadLength(std::optional<double>& length, bool zeroAllowed);
  bool ReadCoordinate(double& coordinate);
  bool ReadPoint();
  bool ReadAngle(std::optional<double>& angle);
  bool ReadNumber(int& number);
  bool ReadGrade();
  bool ReadPreload();
  /// Refuses a clause that is there twice.
  bool IsFirst(std::size_t position, bool isGiven);
  bool Fail(std::wstring_view expected) { return FailAt(scanner_.Position(), expected); }

  std::wstring_view text_;
  BarScanner scanner_;
  const Util::CBarHelper& sizes_;
  double perMetre_;
  BarInfo info_;
  std::wstring error_;
  bool hasBareLength_{};
  bool hasPlace_{};
  std::size_t gradePosition_{};
  std::size_t firstGroup_{};  // position
};

}  // namespace Orlix::Data
