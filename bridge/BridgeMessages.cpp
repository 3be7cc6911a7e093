#include "bridge/BridgeMessages.h"

#include "model/oxutil/StringFrom.h"
#include "model/oxutil/text.h"

namespace Orlix::Bridge::BridgeMessages {

namespace {

constexpr std::size_t kMostNumbers = 20;  // a line that names more is not read

std::string NumberList(const std::vector<int>& numbers) {
  std::string text;
  for (std::size_t i = 0; i < numbers.size() && i < kMostNumbers; ++i) {
    const bool isLast = i + 1 == numbers.size();
    if (i > 0) text += isLast ? " and " : ", ";
    text += std::to_string(numbers[i]);
  }
  if (numbers.size() > kMostNumbers) {
    text += " and " + std::to_string(numbers.size() - kMostNumbers) + " more";
  }
  return text;
}

}  // namespace

std::string NoOutline(const std::string& problem) {
  return "The outline and the holes make no section: " + problem + ". Mend the drawing there.";
}

std::string NoCircle(std::size_t index) {
  return "Circular hole " + std::to_string(index + 1) +
         " has no radius or centre that is a number. Draw it again.";
}

std::string NoBar(int number) {
  return "Bar " + std::to_string(number) +
         " has no radius or centre that is a number. Draw it again.";
}

std::string OddBars(const std::vector<int>& numbers, double diameter,
                    const Util::BarSize& nearest) {
  const bool isOne = numbers.size() == 1;
  return std::string(isOne ? "Bar " : "Bars ") + NumberList(numbers) + " of " +
         StringFrom(diameter) + (isOne ? " mm is" : " mm are") +
         " of no bar size and kept as drawn; the nearest size is " +
         to_string(Util::CBarHelper::Name(nearest)) + ".";
}

}  // namespace Orlix::Bridge::BridgeMessages
