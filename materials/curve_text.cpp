#include "materials/curve_text.h"

#include <algorithm>
#include <cstddef>
#include <istream>
#include <optional>

#include "model/oxutil/ParseDouble.h"

namespace Orlix {

namespace {

constexpr std::size_t kLargestText = std::size_t{16} << 20;
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kSeparators = "\t|,;: ";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// Takes the first field off a line; empty when there is none.
std::string_view TakeField(std::string_view& line) {
  line.remove_prefix(std::min(line.find_first_not_of(kSeparators), line.size()));
  const std::string_view field = line.substr(0, line.find_first_of(kSeparators));
  line.remove_prefix(field.size());
  return field;
}

std::optional<double> TakeNumber(std::string_view& line) { return ParseDouble(TakeField(line)); }

// The bytes of a stream up to one more than the largest text; nothing when reading fails.
std::string BytesOf(std::istream& stream) {
  std::string bytes;
  constexpr std::size_t kBlock = 65536;
  while (stream && bytes.size() <= kLargestText) {
    const std::size_t had = bytes.size();
    bytes.resize(had + kBlock);
    stream.read(bytes.data() + had, static_cast<std::streamsize>(kBlock));
    bytes.resize(had + static_cast<std::size_t>(stream.gcount()));
  }
  return stream.bad() || bytes.size() > kLargestText ? std::string() : bytes;
}

}  // namespace

std::string CurveTextFrom(std::istream& stream) {
  const std::string bytes = BytesOf(stream);
  std::string_view rest = bytes;
  if (rest.starts_with(kByteOrderMark)) rest.remove_prefix(kByteOrderMark.size());
  std::string text;
  text.reserve(rest.size() + kLineEnd.size());
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    text.append(line).append(kLineEnd);
  }
  return text;
}

std::vector<Vec2<double>> NumberPairs(std::string_view text) {
  std::vector<Vec2<double>> pairs;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(kLineEnd), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + kLineEnd.size(), text.size()));
    const std::optional<double> first = TakeNumber(line);
    if (!first) continue;
    const std::optional<double> second = TakeNumber(line);
    if (second) pairs.push_back({*first, *second});
  }
  return pairs;
}

}  // namespace Orlix
