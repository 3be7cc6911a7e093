#include "cli/number_list.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <numeric>
#include <string>
#include <system_error>

#include "cli/commands.h"

namespace Orlix::Cli {

namespace {

int NumberFrom(std::string_view text, std::string_view list, int count, std::string_view what) {
  int number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const std::string shown(text);
  const std::string place = text == list ? "" : "\"" + std::string(list) + "\": ";
  if (end != text.data() + text.size() || text.empty() || error == std::errc::invalid_argument) {
    throw CommandError(place + "\"" + shown + "\" is no " + std::string(what) +
                       " number; give numbers and ranges such as 1-20,25");
  }
  if (error != std::errc() || number < 1 || number > count) {
    throw CommandError(
        std::string(what) + " " + shown + " is not there: " +
        (count == 0 ? "there is none" : "the numbers are 1 to " + std::to_string(count)));
  }
  return number;
}

}  // namespace

std::vector<int> IndicesFrom(std::string_view text, int count, std::string_view what) {
  std::vector<int> indices;
  std::vector<bool> listed(static_cast<std::size_t>(count));
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find(',', begin), text.size());
    const std::string_view item = text.substr(begin, end - begin);
    begin = end + 1;
    const std::size_t dash = item.find('-', 1);  // a leading minus belongs to the number
    const int first = NumberFrom(item.substr(0, dash), text, count, what);
    const int last = dash == std::string_view::npos
                         ? first
                         : NumberFrom(item.substr(dash + 1), text, count, what);
    if (last < first) {
      throw CommandError("\"" + std::string(item) + "\": the range runs backwards");
    }
    for (int number = first; number <= last; ++number) {
      const auto index = static_cast<std::size_t>(number) - 1;
      if (!listed[index]) indices.push_back(number - 1);
      listed[index] = true;
    }
  }
  return indices;
}

int OneIndexFrom(std::string_view text, int count, std::string_view what) {
  const std::vector<int> indices = IndicesFrom(text, count, what);
  if (indices.size() != 1) {
    throw CommandError("\"" + std::string(text) + "\": give one " + std::string(what));
  }
  return indices.front();
}

int IndexOfOne(std::string_view text, int count, std::string_view what) {
  const std::string name(what);
  if (count == 0) throw CommandError("there is no " + name);
  if (text.empty() && count == 1) return 0;
  if (text.empty()) {
    throw CommandError("there are " + std::to_string(count) + " " + name +
                       "s, one is needed: give its number with --" + name);
  }
  return OneIndexFrom(text, count, what);
}

std::vector<int> ChosenIndices(std::string_view text, int count, std::string_view what) {
  if (!text.empty()) return IndicesFrom(text, count, what);
  std::vector<int> all(static_cast<std::size_t>(count));
  std::iota(all.begin(), all.end(), 0);
  return all;
}

}  // namespace Orlix::Cli
