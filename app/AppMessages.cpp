#include "app/AppMessages.h"

#include <cstddef>

namespace Orlix::AppMessages {

namespace {

std::string FromOne(int index) { return std::to_string(1LL + index); }

}  // namespace

std::string InvalidSection(int iSec) { return FromOne(iSec) + " is not a valid section number."; }

std::string InvalidTask(int iSec, int iTask) {
  return FromOne(iTask) + " is not a valid task number for Section " + FromOne(iSec) + ".";
}

std::string NoCaseResults(int iCase) { return "Unable to get results for case " + FromOne(iCase); }

std::string TaskPrefix(int iTask) { return "Error from task " + FromOne(iTask) + ": "; }

std::string NoActiveComponents(int iTask) {
  return TaskPrefix(iTask) + "There are no active components to solve";
}

std::string AboutComponents(const std::vector<int>& numbers, const std::string& one,
                            const std::string& several) {
  const bool single = numbers.size() == 1;
  return (single ? "Component " : "Components ") + List(numbers) + (single ? one : several);
}

std::string List(const std::vector<int>& numbers) {
  std::string text;
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    if (i > 0) text += i + 1 == numbers.size() ? " and " : ", ";
    text += std::to_string(numbers[i]);
  }
  return text;
}

}  // namespace Orlix::AppMessages
