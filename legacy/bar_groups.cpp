#include "legacy/bar_groups.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <utility>

#include "legacy/limits.h"
#include "model/oxdata/reinforcement/CBarInput.h"
#include "model/oxutil/ParseDouble.h"
#include "model/oxutil/text.h"

namespace Orlix::Legacy {
namespace {

using Data::CBarInput;

constexpr std::array<std::string_view, 8> kGroups = {{"GRP_POINT", "GRP_LINE", "GRP_CIRCLE",
                                                      "GRP_ARC", "GRP_SIDE", "GRP_EDGE", "GRP_HOLE",
                                                      "GRP_OUTLINE"}};

constexpr std::array<std::pair<std::string_view, const wchar_t*>, 4> kSides = {{
    {"TOP", L" top"},
    {"BOTTOM", L" bottom"},
    {"LEFT", L" left"},
    {"RIGHT", L" right"},
}};

constexpr std::array<std::pair<std::string_view, PreloadKind>, 3> kPreloads = {{
    {"prestrain", PreloadKind::strain},
    {"prestress", PreloadKind::stress},
    {"preforce", PreloadKind::force},
}};

// The digits that read back as the number, without exponent: descriptions know none.
std::string Digits(double number) {
  std::array<char, 1100> buffer{};  // the smallest numbers have 1075 places
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number + 0.0,
                                 std::chars_format::fixed);
  return {buffer.data(), end.ptr};
}

std::wstring Wide(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

// In millimetres where few digits of them say exactly the same, else in metres.
std::wstring Length(double metres) {
  constexpr int kDecimals = 6;
  std::array<char, 400> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), metres * 1000.0,
                                 std::chars_format::fixed, kDecimals);
  std::string text(buffer.data(), end.ptr);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  const auto millimetres = ParseDouble(text);
  if (millimetres && *millimetres / 1000.0 == metres) {
    return Wide(text == "-0" ? "0" : text) + L"mm";
  }
  return Wide(Digits(metres)) + L"m";
}

std::wstring Angle(double radians) { return Wide(Digits(radians)) + L"rad"; }

}  // namespace

bool IsBarGroup(std::string_view keyword) {
  return std::find(kGroups.begin(), kGroups.end(), keyword) != kGroups.end();
}

void BarGroups::Read(Data::Reinforcement& reinforcement) {
  if (++context_.numGroups > kMaxGroups) {
    record_.Problem("is one group of bars too many: at most " + std::to_string(kMaxGroups));
  } else if (record_.Keyword() == "GRP_POINT") {
    ReadPoint(reinforcement);
  } else {
    ReadDescription(reinforcement);
  }
}

int BarGroups::Grade() {
  const auto name = record_.TextAttribute("grade");
  if (!name) return -1;
  const std::wstring wide = to_wstring(*name);
  const auto own = context_.bars.find(wide);
  const int grade = own != context_.bars.end()
                        ? own->second
                        : context_.document.getMaterials()->Find(MatType::reinforcement, wide);
  if (grade < 0 && !context_.MayLack(MatType::reinforcement)) {
    record_.Problem("grade \"" + *name + "\": neither the file nor the code has it");
  }
  return grade;
}

std::optional<Data::Preload> BarGroups::Preload() {
  std::optional<Data::Preload> preload;
  for (const auto& [key, kind] : kPreloads) {
    const auto number = record_.NumberAttribute(key);
    if (!number) continue;
    if (preload) record_.Problem("gives the pre-stress twice");
    preload = Data::Preload{kind, *number};
  }
  return preload;
}

void BarGroups::ReadPoint(Data::Reinforcement& reinforcement) {
  const Vec2<double> position{record_.Number("y"), record_.Number("z")};
  double diameter = record_.NumberAttribute("diameter", Range::positive).value_or(0.0);
  double area = std::numbers::pi * diameter * diameter / 4.0;
  if (const auto size = record_.TextAttribute("size")) {
    const Util::CRebarHelper grades(context_.document.getMaterials());
    const std::wstring text = L"1-" + to_wstring(*size) + L" at (0, 0)";
    const CBarInput input(OrlixString<wchar_t>(std::wstring_view(text)), grades, {}, 1.0);
    if (size->find_first_of(" @+/") != std::string::npos || !input.IsDescriptionValid()) {
      record_.Problem("size: \"" + *size + "\" is no size of a bar");
    } else {
      diameter = input.Info().layers.front().front().size.diameter;
      area = input.Info().layers.front().front().size.area;
    }
  }
  area = record_.NumberAttribute("area", Range::positive).value_or(area);
  const int grade = Grade();
  const auto preload = Preload();
  if (record_.IsSound() && area == 0.0) record_.Problem("lacks size, diameter or area");
  if (record_.IsSound()) {
    reinforcement.bars.emplace_back(position, diameter, area, grade,
                                    preload.value_or(Data::Preload{}));
  }
}

// "4B20", "B16@150mm" or "4-25M", with a bundle in brackets.
std::wstring BarGroups::Bars() {
  const auto size = record_.TextAttribute("size");
  const auto count = record_.NumberAttribute("count", Range::positive);
  const auto spacing = record_.NumberAttribute("spacing", Range::positive);
  const double bundle = record_.NumberAttribute("bundle", Range::positive).value_or(1.0);
  if (!record_.IsSound()) return {};
  // What follows the size in the text must not be read as a part of it, nor the other way round.
  if (!size || size->find_first_of(" @+/()") != std::string::npos) {
    record_.Problem("lacks a size such as B20");
  } else if (count.has_value() == spacing.has_value()) {
    record_.Problem("needs either count or spacing");
  } else if (count.value_or(1.0) != std::floor(count.value_or(1.0)) ||
             count.value_or(1.0) > CBarInput::kMostBars || bundle != std::floor(bundle) ||
             bundle > 4.0) {
    record_.Problem("count and bundle are whole numbers, at most 10000 and 4");
  }
  if (!record_.IsSound()) return {};
  std::wstring bars = to_wstring(*size);
  const bool isNumber = !bars.empty() && bars.front() >= L'0' && bars.front() <= L'9';
  if (bundle > 1.0) bars = L"(" + Wide(Digits(bundle)) + bars + L")";
  if (spacing) return bars + L"@" + Length(*spacing);
  return Wide(Digits(*count)) + (isNumber && bundle == 1.0 ? L"-" : L"") + bars;
}

std::wstring BarGroups::Point() {
  const double y = record_.Number("y");
  const double z = record_.Number("z");
  return L" (" + Length(y) + L", " + Length(z) + L")";
}

std::wstring BarGroups::Centre() {
  const auto y = record_.NumberAttribute("y");
  const auto z = record_.NumberAttribute("z");
  if (!y && !z) return {};
  return L" at (" + Length(y.value_or(0.0)) + L", " + Length(z.value_or(0.0)) + L")";
}

std::wstring BarGroups::Place() {
  constexpr int kMostNumber = 10000;
  const std::string_view keyword = record_.Keyword();
  if (keyword == "GRP_LINE") {
    const std::wstring first = Point();
    return L" line" + first + Point();
  }
  if (keyword == "GRP_SIDE") {
    return record_.Word<const wchar_t*>("side", kSides).value_or(L"");
  }
  if (keyword == "GRP_EDGE" || keyword == "GRP_HOLE") {
    const int number = record_.Index("number", kMostNumber) + 1;
    return (keyword == "GRP_EDGE" ? L" edge " : L" hole ") + std::to_wstring(number);
  }
  if (keyword == "GRP_OUTLINE") {
    const auto from = record_.NumberAttribute("from");
    return from ? L" perimeter from " + Angle(*from) : std::wstring();
  }
  const bool isArc = keyword == "GRP_ARC";
  std::wstring place = (isArc ? L" arc " : L" circle ") + Length(record_.Number("radius"));
  std::wstring angles;
  if (isArc) {
    const double from = record_.Number("angle of the first bar");
    const double to = record_.Number("angle of the last bar");
    angles = L" from " + Angle(from) + L" to " + Angle(to);
  } else if (const auto from = record_.NumberAttribute("from")) {
    angles = L" from " + Angle(*from);
  }
  return place + Centre() + angles;
}

void BarGroups::ReadDescription(Data::Reinforcement& reinforcement) {
  const std::wstring place = Place();
  const std::wstring bars = Bars();
  const std::string_view keyword = record_.Keyword();
  const bool isOnFace = keyword == "GRP_SIDE" || keyword == "GRP_EDGE" || keyword == "GRP_HOLE" ||
                        keyword == "GRP_OUTLINE";
  if (isOnFace && !record_.HasAttribute("cover") && record_.IsSound())
    record_.Problem("lacks cover");
  std::wstring polygon;
  if (const auto number =
          isOnFace ? record_.NumberAttribute("polygon", Range::positive) : std::nullopt) {
    polygon = L" polygon " + Wide(Digits(*number));
  }
  Data::BarDescription description;
  description.cover = record_.NumberAttribute("cover", Range::notNegative);
  description.preload = Preload();
  description.grade = Grade();
  if (!record_.IsSound()) return;
  const std::wstring text = bars + place + polygon;
  description.text = OrlixString<wchar_t>(std::wstring_view(text));
  const Util::CRebarHelper grades(context_.document.getMaterials());
  const CBarInput input(description.text, grades, {}, 1.0);
  if (input.IsDescriptionValid()) {
    reinforcement.descriptions.push_back(std::move(description));
  } else {
    record_.Problem("\"" + to_string(text) + "\": " + to_string(input.Error()));
  }
}

}  // namespace Orlix::Legacy
