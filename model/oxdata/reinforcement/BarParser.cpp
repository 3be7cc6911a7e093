#include "model/oxdata/reinforcement/BarParser.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "model/oxdata/reinforcement/CBarInput.h"
#include "model/oxdata/reinforcement/bar_words.h"

namespace Orlix::Data {
namespace {

using Util::BarSystem;

constexpr int kMost = CBarInput::kMostBars;
constexpr int kMostBundled = 4;
constexpr double kFurthest = 1e6;      // [m]
constexpr double kShortest = 1e-6;     // [m]; less is nothing
constexpr double kMostPreload = 1e15;  // [Pa] or [N]; more is a slip, and no number to print

}  // namespace

BarParser::BarParser(std::wstring_view text, const Util::CBarHelper& sizes, double metresPerUnit)
    : text_(text), scanner_(text), sizes_(sizes), perMetre_(1.0 / metresPerUnit) {}

bool BarParser::FailAt(std::size_t position, std::wstring_view expected) {
  while (position < text_.size() && text_[position] == L' ') ++position;
  error_ = L"column " + std::to_wstring(position + 1) + L": expected " + std::wstring(expected) +
           L", found " + scanner_.Found(position);
  return false;
}

bool BarParser::Read() {
  FindSuffix();
  return ReadLayers() && ReadClauses() && ReadSuffix() && CheckWhole();
}

// The unit is wanted by the lengths before it; whether the brackets are right is looked at when
// they are reached.
void BarParser::FindSuffix() {
  const std::size_t bracket = text_.rfind(L'[');
  if (bracket == std::wstring_view::npos) return;
  BarScanner scanner(text_);
  scanner.Return(bracket + 1);
  const auto unit = scanner.TakeUnit(Dimension::sectionDimensions);
  scanner.SkipSpaces();
  const bool isClosed = scanner.Take(L']');
  scanner.SkipSpaces();
  if (unit && isClosed && scanner.IsAtEnd()) perMetre_ = *unit;
}

bool BarParser::ReadSuffix() {
  scanner_.SkipSpaces();
  if (scanner_.Take(L'[')) {
    if (!scanner_.TakeUnit(Dimension::sectionDimensions)) return Fail(kLengthUnits);
    scanner_.SkipSpaces();
    if (!scanner_.Take(L']')) return Fail(L"\"]\"");
    hasBareLength_ = false;
    scanner_.SkipSpaces();
  }
  return scanner_.IsAtEnd() ? true : Fail(hasPlace_ ? kOptions : kPlacesAndOptions);
}

bool BarParser::ReadLayers() {
  scanner_.SkipSpaces();
  firstGroup_ = scanner_.Position();
  do {
    BarLayer& layer = info_.layers.emplace_back();
    do {
      scanner_.SkipSpaces();
      const std::size_t start = scanner_.Position();
      if (!ReadGroup(layer)) return false;
      const bool isSpaced = layer.back().count == 0;
      if (layer.size() > 1 && (isSpaced || layer.front().count == 0)) {
        return FailAt(start, L"a number of bars: bars by spacing are alone in their layer");
      }
      scanner_.SkipSpaces();
    } while (scanner_.Take(L'+'));
  } while (scanner_.Take(L'/'));
  return true;
}

bool BarParser::ReadGroup(BarLayer& layer) {
  BarGroup group;
  if (!ReadCount(group) || !ReadSized(group)) return false;
  const bool isCounted = group.count > 0;
  scanner_.SkipSpaces();
  if (scanner_.Next() == L'@') {
    if (isCounted) return Fail(L"either a number of bars or a spacing, not both");
    scanner_.Take(L'@');
    scanner_.SkipSpaces();
    std::optional<double> spacing;
    if (!ReadLength(spacing, false)) return false;
    group.spacing = *spacing;
  }
  layer.push_back(group);
  return true;
}

// A number followed by M is the name of a size.
bool BarParser::ReadCount(BarGroup& group) {
  const std::size_t start = scanner_.Position();
  const bool isNumber = scanner_.Next() >= L'0' && scanner_.Next() <= L'9';
  if (!isNumber) return true;
  const std::optional<int> count = scanner_.TakeInteger(kMost);
  if (!count) return Fail(L"a number of bars from 1 to 10000");
  if (scanner_.Next() == L'M') {
    scanner_.Return(start);
    return true;
  }
  group.count = *count;
  scanner_.SkipSpaces();
  for (const wchar_t sign : {L'-', L'x', L'\u00D7'}) {
    if (scanner_.Take(sign)) break;
  }
  scanner_.SkipSpaces();
  return true;
}

bool BarParser::ReadSized(BarGroup& group) {
  if (!scanner_.Take(L'(')) return ReadSize(group);
  scanner_.SkipSpaces();
  const std::optional<int> bundle = scanner_.TakeInteger(kMostBundled);
  if (!bundle) return Fail(L"the number of bars in a bundle, 1 to 4");
  group.bundle = *bundle;
  if (!ReadSize(group)) return false;
  scanner_.SkipSpaces();
  return scanner_.Take(L')') ? true : Fail(L"\")\" after the bars of a bundle");
}

bool BarParser::ReadSize(BarGroup& group) {
  const wchar_t sign = scanner_.Next();
  if (sign >= L'0' && sign <= L'9') {
    const bool isRead = ReadSizeNumber(BarSystem::canadian, L"a Canadian size", group);
    return isRead && (scanner_.Take(L'M') ? true : Fail(L"\"M\" after a Canadian size"));
  }
  const std::optional<BarSystem> system = SystemOf(sign);
  if (!system) return Fail(L"the size of a bar, such as B20, #8, 25M, N24 or S15.7");
  scanner_.Take(sign);
  group.letter = *system == BarSystem::us ? L'\0' : sign;
  return ReadSizeNumber(*system, KindOf(*system), group);
}

bool BarParser::ReadSizeNumber(BarSystem system, std::wstring_view kind, BarGroup& group) {
  const std::size_t start = scanner_.Position();
  const std::optional<double> number = scanner_.TakeNumber();
  const std::optional<Util::BarSize> size =
      number ? sizes_.Find(system, *number) : std::optional<Util::BarSize>();
  if (!size) return FailAt(start, std::wstring(kind) + L" (" + sizes_.Numbers(system) + L")");
  group.size = *size;
  return true;
}

bool BarParser::ReadClauses() {
  for (;;) {
    std::optional<bool> clause = ReadPlace();
    if (!clause) clause = ReadNumberedPlace();
    if (!clause) clause = ReadOption();
    if (!clause) return true;
    if (!*clause) return false;
  }
}

bool BarParser::IsFirst(std::size_t position, bool isGiven) {
  return isGiven ? FailAt(position, L"each of place and options once") : true;
}

bool BarParser::SetPlace(std::size_t position, BarPlace place) {
  if (!IsFirst(position, hasPlace_)) return false;
  hasPlace_ = true;
  info_.place = place;
  return true;
}

std::optional<bool> BarParser::ReadPlace() {
  scanner_.SkipSpaces();
  const std::size_t start = scanner_.Position();
  if (scanner_.TakeWord(L"at")) return ReadAt();
  for (const auto& [word, place] : kPlaces) {
    if (!scanner_.TakeWord(word)) continue;
    if (!SetPlace(start, place)) return false;
    if (place == BarPlace::line) return ReadPoint() && ReadPoint();
    if (place != BarPlace::circle && place != BarPlace::arc) return true;
    scanner_.SkipSpaces();
    const wchar_t next = scanner_.Next();
    const bool isRadius = (next >= L'0' && next <= L'9') || next == L'.';
    return isRadius ? ReadLength(info_.radius, false) : true;
  }
  return std::nullopt;
}

std::optional<bool> BarParser::ReadNumberedPlace() {
  const std::size_t start = scanner_.Position();
  for (const auto& [word, place] :
       {std::pair{L"edge", BarPlace::edge}, {L"hole", BarPlace::hole}}) {
    if (scanner_.TakeWord(word)) return SetPlace(start, place) && ReadNumber(info_.number);
  }
  return std::nullopt;
}

// The centre of a circle or an arc, else the places of single bars.
bool BarParser::ReadAt() {
  const std::size_t start = scanner_.Position();
  if (info_.place == BarPlace::circle || info_.place == BarPlace::arc) {
    return IsFirst(start, !info_.points.empty()) && ReadPoint();
  }
  if (!SetPlace(start, BarPlace::points)) return false;
  do {
    if (!ReadPoint()) return false;
    scanner_.SkipSpaces();
  } while (scanner_.Next() == L'(');
  return true;
}

std::optional<bool> BarParser::ReadOption() {
  const std::size_t start = scanner_.Position();
  const auto first = [&](const auto& given) { return IsFirst(start, given.has_value()); };
  if (scanner_.TakeWord(L"cover")) return first(info_.cover) && ReadLength(info_.cover, true);
  if (scanner_.TakeWord(L"gap")) return first(info_.gap) && ReadLength(info_.gap, true);
  if (scanner_.TakeWord(L"from")) return first(info_.from) && ReadAngle(info_.from);
  if (scanner_.TakeWord(L"to")) return first(info_.to) && ReadAngle(info_.to);
  if (scanner_.TakeWord(L"grade")) return first(info_.grade) && ReadGrade();
  if (scanner_.TakeWord(L"prestress")) return first(info_.preload) && ReadPreload();
  if (scanner_.TakeWord(L"polygon")) {
    return IsFirst(start, info_.polygon != 0) && ReadNumber(info_.polygon);
  }
  return std::nullopt;
}

bool BarParser::ReadLength(std::optional<double>& length, bool zeroAllowed) {
  scanner_.SkipSpaces();
  const std::size_t start = scanner_.Position();
  const std::optional<double> number = scanner_.TakeNumber();
  if (!number) return FailAt(start, L"a length");
  const std::optional<double> unit = scanner_.TakeUnit(Dimension::sectionDimensions);
  if (!unit) hasBareLength_ = true;
  length = *number / unit.value_or(perMetre_);
  const bool isUsable = zeroAllowed ? *length >= 0.0 : *length >= kShortest;
  if (!isUsable || !(*length <= kFurthest)) {
    return FailAt(start, zeroAllowed ? L"a length that is not negative" : L"a positive length");
  }
  return true;
}

bool BarParser::ReadCoordinate(double& coordinate) {
  scanner_.SkipSpaces();
  const std::size_t start = scanner_.Position();
  const std::optional<double> number = scanner_.TakeNumber();
  if (!number) return FailAt(start, L"a coordinate");
  const std::optional<double> unit = scanner_.TakeUnit(Dimension::sectionDimensions);
  if (!unit && *number != 0.0) hasBareLength_ = true;
  coordinate = *number / unit.value_or(perMetre_);
  return std::abs(coordinate) <= kFurthest ? true : FailAt(start, L"a coordinate within 1000 km");
}

bool BarParser::ReadPoint() {
  scanner_.SkipSpaces();
  if (info_.points.size() >= static_cast<std::size_t>(kMost)) return Fail(L"at most 10000 points");
  if (!scanner_.Take(L'(')) return Fail(L"a point such as (0, -200)");
  Vec2<double> point;
  if (!ReadCoordinate(point.x)) return false;
  scanner_.SkipSpaces();
  if (!scanner_.Take(L',')) return Fail(L"\",\" between y and z");
  if (!ReadCoordinate(point.y)) return false;
  scanner_.SkipSpaces();
  if (!scanner_.Take(L')')) return Fail(L"\")\" after a point");
  info_.points.push_back(point);
  return true;
}

bool BarParser::ReadAngle(std::optional<double>& angle) {
  scanner_.SkipSpaces();
  const std::size_t start = scanner_.Position();
  const std::optional<double> number = scanner_.TakeNumber();
  constexpr double kMostDegrees = 3600.0;
  if (!number || !(std::abs(*number) <= kMostDegrees)) {
    return FailAt(start, L"an angle in degrees, at most ten turns");
  }
  const bool isRad = scanner_.TakeWord(L"rad");
  if (!isRad && !scanner_.TakeWord(L"deg")) scanner_.TakeWord(L"\u00B0");
  angle = isRad ? *number : *number * std::numbers::pi / 180.0;
  return true;
}

bool BarParser::ReadNumber(int& number) {
  scanner_.SkipSpaces();
  const std::optional<int> read = scanner_.TakeInteger(kMost);
  if (!read) return Fail(L"a number from 1 on");
  number = *read;
  return true;
}

bool BarParser::ReadGrade() {
  scanner_.SkipSpaces();
  gradePosition_ = scanner_.Position();
  std::optional<std::wstring> name = scanner_.TakeName();
  if (!name) return Fail(L"the name of a grade, in quotation marks when it has spaces");
  info_.grade = std::move(name);
  return true;
}

bool BarParser::ReadPreload() {
  scanner_.SkipSpaces();
  const std::size_t start = scanner_.Position();
  const std::optional<double> number = scanner_.TakeNumber();
  if (!number) return FailAt(start, L"a stress, a force or a strain");
  for (const auto& [dimension, kind] : kPreloadUnits) {
    if (const auto unit = scanner_.TakeUnit(dimension)) {
      info_.preload = Preload{kind, *number / *unit};
      const bool isUsable = std::abs(info_.preload->value) <= kMostPreload;
      return isUsable ? true : FailAt(start, L"a smaller number");
    }
  }
  return Fail(L"a unit of stress, force or strain, such as MPa, kN or \u2030");
}

bool BarParser::CheckWhole() {
  const BarPlace place = info_.place;
  const bool isRound = place == BarPlace::circle || place == BarPlace::arc;
  const std::size_t end = text_.size();
  if (place == BarPlace::arc && (!info_.from || !info_.to)) {
    return FailAt(end, L"\"from\" and \"to\" with the angles of an arc");
  }
  if (info_.to && place != BarPlace::arc) return FailAt(end, L"\"to\" for an arc alone");
  if (info_.from && !isRound && place != BarPlace::perimeter) {
    return FailAt(end, L"\"from\" for a circle, an arc or the perimeter of a round shape alone");
  }
  const bool isOneLine = place == BarPlace::line || place == BarPlace::points;
  if (isOneLine && info_.layers.size() > 1) {
    return FailAt(firstGroup_, L"one layer for bars on a line or at points");
  }
  return CheckCounts();
}

bool BarParser::CheckCounts() {
  const bool isPoints = info_.place == BarPlace::points;
  BarLayer& first = info_.layers.front();
  const int points = static_cast<int>(info_.points.size());
  if (isPoints && first.front().spacing > 0.0) {
    return FailAt(firstGroup_, L"no spacing for bars at points");
  }
  if (isPoints && first.size() == 1 && first.front().count == 0) first.front().count = points;
  int bars = 0;
  int places = 0;
  for (const BarLayer& layer : info_.layers) {
    for (const BarGroup& group : layer) {
      if (group.count == 0 && group.spacing == 0.0) {
        return FailAt(firstGroup_,
                      L"a number of bars before each size, or @ and a spacing after it");
      }
      places += group.count;
      bars += group.count * group.bundle;
      if (bars > kMost) return FailAt(firstGroup_, L"at most 10000 bars");
    }
  }
  if (isPoints && places != points) {
    return FailAt(firstGroup_, L"as many bars as points (" + std::to_wstring(points) + L")");
  }
  return true;
}

}  // namespace Orlix::Data
