#include "model/oxdata/codes/CConcCode.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string>

#include "model/oxdata/codes/aci318/aci318.h"
#include "model/oxdata/codes/as3600/as3600.h"
#include "model/oxdata/codes/bs8110/bs8110.h"
#include "model/oxdata/codes/csaA23/csaA23.h"
#include "model/oxdata/codes/en1992/en1992.h"
#include "model/oxdata/codes/hongkong/hongkong.h"
#include "model/oxdata/codes/is456/is456.h"

namespace Orlix::Data::Design {
namespace {

/// A choice and the code's own folder's function that makes its data.
struct Entry {
  CodeChoice choice;
  CConcCodeData (*make)(CCountry::Code);
};

/// A code with annexes and the function that makes its data with one.
struct AnnexedCode {
  ConcCode code;
  CConcCodeData (*make)(const NationalAnnex&);
};

constexpr AnnexedCode kAnnexedCodes[] = {{ConcCode::en1992_2004, En1992::MakeData}};

constexpr Entry kEntries[] = {
    {{ConcCode::en1992_2004, CCountry::Code::none, "EN 1992-1-1:2004", "recommended"},
     En1992::MakeData},
    {{ConcCode::en1992_2004, CCountry::Code::unitedKingdom, "EN 1992-1-1:2004", "UK"},
     En1992::MakeData},
    {{ConcCode::aci318_2019, CCountry::Code::none, "ACI 318-19", ""}, Aci318::MakeData2019},
    {{ConcCode::aci318_2014, CCountry::Code::none, "ACI 318-14", ""}, Aci318::MakeData2014},
    {{ConcCode::bs8110_1997, CCountry::Code::none, "BS 8110-1:1997", ""}, Bs8110::MakeData1997},
    {{ConcCode::bs8110_2005, CCountry::Code::none, "BS 8110-1:1997 Amd 3", ""},
     Bs8110::MakeData2005},
    {{ConcCode::hongKong_2013, CCountry::Code::none, "HK CoP 2013", ""}, HongKong::MakeData},
    {{ConcCode::is456_2000, CCountry::Code::none, "IS 456:2000", ""}, Is456::MakeData},
    {{ConcCode::csaA23_2014, CCountry::Code::none, "CSA A23.3-14", ""}, CsaA23::MakeData},
    {{ConcCode::as3600_2018, CCountry::Code::none, "AS 3600:2018", ""}, As3600::MakeData},
};

}  // namespace

int CountConstants(const CConcCodeData& data, ConstantSource source) {
  return static_cast<int>(
      std::count_if(data.constants.begin(), data.constants.end(),
                    [source](const CodeConstant& c) { return c.source == source; }));
}

CConcCode::CConcCode(ConcCode code, CCountry::Code country) {
  const auto* entry = std::find_if(std::begin(kEntries), std::end(kEntries), [&](const Entry& e) {
    return e.choice.code == code && e.choice.country == country;
  });
  if (entry == std::end(kEntries)) {
    throw std::invalid_argument("the design code has no annex of this country");
  }
  data_ = std::make_shared<const CConcCodeData>(entry->make(country));
}

CConcCode::CConcCode(ConcCode code, const NationalAnnex& annex) {
  const auto* annexed =
      std::find_if(std::begin(kAnnexedCodes), std::end(kAnnexedCodes),
                   [code](const AnnexedCode& entry) { return entry.code == code; });
  if (annexed == std::end(kAnnexedCodes)) {
    throw std::invalid_argument("the design code has no national annexes");
  }
  const CConcCode recommended(code, CCountry::Code::none);
  for (const AnnexParameter& p : recommended.Data().annexParameters) {
    if (!IsAllowed(p, ChoiceFor(annex, p.name))) {
      throw std::invalid_argument(std::string(p.name) + " is " + AllowedText(p));
    }
  }
  data_ = std::make_shared<const CConcCodeData>(annexed->make(annex));
}

const std::vector<CodeChoice>& KnownCodes() {
  static const std::vector<CodeChoice> kChoices = [] {
    std::vector<CodeChoice> choices;
    for (const Entry& e : kEntries) choices.push_back(e.choice);
    return choices;
  }();
  return kChoices;
}

}  // namespace Orlix::Data::Design
