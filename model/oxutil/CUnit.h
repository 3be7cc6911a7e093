#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "model/oxutil/Enumerations.h"
#include "model/oxutil/OrlixString.h"

namespace Orlix::Data {

/// The display units of a document. A new set has kN, m, mm for section dimensions, MPa, kg, ‰ and
/// °C.
///
/// Known texts: force N kN MN kgf tf lbf kip; length and section dimensions m cm mm ft in; stress
/// Pa kPa MPa N/mm² kN/m² psi ksi; strain ε ‰ mε με %; mass kg t lb; temperature °C °F K. Moment,
/// bending stiffness and curvature follow from force, length and strain.
class CUnit {
 public:
  CUnit();

  /// Chooses the unit of a base dimension by its text.
  /// @return false, and nothing changes, when `text` is no unit of `dimension` or the dimension is
  /// compound.
  bool SetUnitString(Dimension dimension, const OrlixString<wchar_t>& text);

  /// @return the text of the unit, e.g. "kN", "kNm", "kNm²", "‰/m".
  /// @throws std::invalid_argument when `dimension` is no member of the enumeration.
  std::wstring UnitString(Dimension dimension) const;

  /// @return the factor that an SI value is multiplied by to give the display value, e.g. 0.001 for
  /// kN; of
  ///         temperature the size of a degree only (1.8 for °F): the zero points differ.
  /// @throws std::invalid_argument when `dimension` is no member of the enumeration.
  double Conversion(Dimension dimension) const;

  bool operator==(const CUnit&) const = default;

 private:
  static constexpr std::size_t kBaseCount =
      7;  ///< base dimensions, in the order of the table in CUnit.cpp

  std::array<std::size_t, kBaseCount>
      chosen_{};  ///< index into each base dimension's units; 0 the default
};

}  // namespace Orlix::Data
