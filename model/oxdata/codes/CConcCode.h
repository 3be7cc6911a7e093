#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/oxdata/codes/AxialCapRule.h"
#include "model/oxdata/codes/CrackWidthRule.h"
#include "model/oxdata/codes/NationalAnnex.h"
#include "model/oxdata/codes/StrengthReductionRule.h"
#include "model/oxdata/materials/CMat.h"
#include "model/oxdata/reinforcement/CBarHelper.h"

namespace Orlix::Data::Design {

/// Design codes known; further codes get further numbers.
enum class ConcCode : int {
  en1992_2004 = 1,
  aci318_2019 = 2,
  aci318_2014 = 3,
  bs8110_1997 = 4,
  bs8110_2005 = 5,
  hongKong_2013 = 6,
  is456_2000 = 7,
  csaA23_2014 = 8,
  as3600_2018 = 9
};

/// Country whose national choices apply.
struct CCountry {
  /// user: the choices are those of an annex that the user wrote.
  enum class Code : int { user = -1, none = 0, unitedKingdom = 44 };
};

/// How the number of a code came to be what it is here.
enum class ConstantSource {
  compared,   ///< compared with the printed clause
  secondary,  ///< from text books and general knowledge of the code, not compared with the print
  doubtful,   ///< as `secondary`, and the number or its clause is in doubt
  user        ///< from a national annex that the user wrote
};

/// One number of a code, with where it stands: printed by the program's list of codes.
struct CodeConstant {
  std::string symbol;  ///< as the code prints it, for instance "alpha_cc"
  double value{};      ///< SI; strains dimensionless
  std::string clause;  ///< for instance "EN 1992-1-1, 3.1.6(1)P"
  std::string unit{};  ///< "Pa", or empty for a ratio, a strain or a factor
  ConstantSource source{ConstantSource::secondary};
};

/// What a design code consists of: plain data, made by the code's own folder.
struct CConcCodeData {
  ConcCode code{ConcCode::en1992_2004};
  CCountry::Code country{CCountry::Code::none};
  std::string name;   ///< for instance "EN 1992-1-1:2004"
  std::string annex;  ///< "recommended values" or the national annex; "": none
  /// What annexes choose; empty: the code has none.
  std::span<const AnnexParameter> annexParameters;
  std::optional<NationalAnnex> nationalAnnex;  ///< the choices in force; nothing: no annexes
  std::vector<CodeConstant> constants;         ///< national and general parameters
  std::vector<CMat> concretes;                 ///< standard grades, design values included
  std::vector<CMatRebar> reinforcements;       ///< standard grades, prestressing steel included
  std::vector<CMat> steels;                    ///< standard grades of structural steel
  std::wstring usualConcrete;                  ///< grade of a new section unless it is said
  std::wstring usualReinforcement;             ///< likewise, of its bars
  /// Strength-reduction (phi) factors instead of partial factors; nothing: partial factors.
  std::optional<StrengthReductionRule> strengthReduction;
  std::optional<AxialCapRule> axialCap;                ///< beside partial factors; nothing: no cap
  std::optional<CrackWidthRule> crackWidth;            ///< nothing: the code has no crack widths
  Util::BarSystem barSystem{Util::BarSystem::metric};  ///< bar sizes usual where the code applies
};

/// How many of a code's constants have the source.
int CountConstants(const CConcCodeData& data, ConstantSource source);

/// A design code with a country's national choices; cheap to copy.
class CConcCode {
 public:
  CConcCode() : CConcCode(ConcCode::en1992_2004, CCountry::Code::none) {}
  /// @throws std::invalid_argument when the country has no annex to the code.
  CConcCode(ConcCode code, CCountry::Code country);
  /// The code with the choices of an annex that the user wrote.
  /// @throws std::invalid_argument when the code has no annexes, or when a parameter of it has no
  ///         choice or one that is not allowed.
  CConcCode(ConcCode code, const NationalAnnex& annex);

  const CConcCodeData& Data() const { return *data_; }
  std::shared_ptr<const CConcCodeData> DataPointer() const { return data_; }
  bool IsStrengthReduction() const { return data_->strengthReduction.has_value(); }
  bool IsCrackWidthCode() const { return data_->crackWidth.has_value(); }

 private:
  std::shared_ptr<const CConcCodeData> data_;
};

/// The code of a document.
using ConcreteCode = CConcCode;

/// A code that can be chosen, by the texts that documents and commands use.
struct CodeChoice {
  ConcCode code;
  CCountry::Code country;
  std::string_view name;   ///< "EN 1992-1-1:2004", "ACI 318-19"
  std::string_view annex;  ///< "recommended", "UK"; empty for a code without annexes
};

/// Every code with every annex that it has, in the order in which they are listed to users.
const std::vector<CodeChoice>& KnownCodes();

}  // namespace Orlix::Data::Design
