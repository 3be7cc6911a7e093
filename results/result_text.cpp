#include "results/result_text.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "model/oxutil/StringFrom.h"

namespace Orlix {

namespace {

bool IsRoundedAcrossOne(double value, const std::string& text) {
  double shown{};
  std::from_chars(text.data(), text.data() + text.size(), shown);
  return (value < 1.0) != (shown < 1.0) || (value > 1.0) != (shown > 1.0);
}

}  // namespace

std::string UtilisationText(double utilisation) {
  if (utilisation == std::numeric_limits<double>::infinity()) return "no capacity";
  if (!std::isfinite(utilisation)) return "-";
  if (utilisation >= 1e6) return StringFrom(utilisation);
  constexpr double kRoundOff = 1e-12;
  if (std::abs(utilisation - 1.0) <= kRoundOff) return Fixed(1.0, 3);
  std::string text;
  for (int decimals = 3; decimals <= std::numeric_limits<double>::max_digits10; ++decimals) {
    text = Fixed(utilisation, decimals);
    if (!IsRoundedAcrossOne(utilisation, text)) break;
  }
  return text;
}

std::string CrackingText(double utilisation) {
  // Concrete without tensile strength cracks at once.
  return std::isfinite(utilisation) ? UtilisationText(utilisation) : "-";
}

bool HasSolution(const Data::Velmo9::CaseSLSDetails& record) {
  return record.resultKind == Data::Velmo9::SlsResultKind::uncracked ||
         record.resultKind == Data::Velmo9::SlsResultKind::cracked;
}

const char* StateText(const Data::Velmo9::CaseSLSDetails& record) {
  switch (record.resultKind) {
    case Data::Velmo9::SlsResultKind::uncracked:
      return "uncracked";
    case Data::Velmo9::SlsResultKind::cracked:
      return "cracked";
    case Data::Velmo9::SlsResultKind::noSolution:
      return "NO SOLUTION";
    case Data::Velmo9::SlsResultKind::notCalculated:
      break;
  }
  return "nothing applied";
}

std::string Fixed(double value, int decimals) {
  char buffer[400];  // the largest double has 309 digits before the point
  const auto end =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, decimals).ptr;
  return std::string(buffer, end);
}

}  // namespace Orlix
