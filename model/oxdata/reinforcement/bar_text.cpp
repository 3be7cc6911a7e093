#include "model/oxdata/reinforcement/bar_text.h"

#include <array>
#include <charconv>
#include <numbers>
#include <string_view>

#include "model/oxdata/reinforcement/bar_words.h"

namespace Orlix::Data {
namespace {

// Fixed, as descriptions know no exponents, and without zeros at the end.
std::wstring Number(double value) {
  constexpr int kDecimals = 9;  // of mm, degrees, MPa, kN, per mille
  std::array<char, 400> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                 std::chars_format::fixed, kDecimals);
  std::string_view text(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
  while (text.ends_with('0')) text.remove_suffix(1);
  if (text.ends_with('.')) text.remove_suffix(1);
  return text == "-0" ? L"0" : std::wstring(text.begin(), text.end());
}

std::wstring Length(double metres) { return Number(metres * 1000.0) + L"mm"; }

std::wstring Degrees(double radians) {
  return Number(radians * 180.0 / std::numbers::pi) + L"\u00B0";
}

std::wstring Point(Vec2<double> point) {
  return L"(" + Length(point.x) + L", " + Length(point.y) + L")";
}

std::wstring Group(const BarGroup& group) {
  const std::wstring name = Util::CBarHelper::Name(group.size, group.letter);
  const std::wstring sized =
      group.bundle == 1 ? name : L"(" + std::to_wstring(group.bundle) + name + L")";
  if (group.count == 0) return sized + L"@" + Length(group.spacing);
  // Between digits the number would run into the size.
  const bool needsSign = group.bundle == 1 && group.size.system == Util::BarSystem::canadian;
  return std::to_wstring(group.count) + (needsSign ? L"-" : L"") + sized;
}

std::wstring Layers(const BarInfo& info) {
  std::wstring text;
  for (const BarLayer& layer : info.layers) {
    if (!text.empty()) text += L"/";
    for (std::size_t i = 0; i < layer.size(); ++i) text += (i == 0 ? L"" : L"+") + Group(layer[i]);
  }
  return text;
}

std::wstring Points(const BarInfo& info) {
  std::wstring text;
  for (const Vec2<double>& point : info.points) text += L" " + Point(point);
  return text;
}

std::wstring Place(const BarInfo& info) {
  switch (info.place) {
    case BarPlace::perimeter:
      return {};
    case BarPlace::edge:
      return L" edge " + std::to_wstring(info.number);
    case BarPlace::hole:
      return L" hole " + std::to_wstring(info.number);
    case BarPlace::points:
      return L" at" + Points(info);
    default:
      break;
  }
  std::wstring text;
  for (const auto& [word, place] : kPlaces) {
    if (place == info.place) text = L" " + std::wstring(word);
  }
  if (info.radius) text += L" " + Length(*info.radius);
  if (!info.points.empty()) text += (info.place == BarPlace::line ? L"" : L" at") + Points(info);
  return text;
}

std::wstring PreStress(const Preload& preload) {
  switch (preload.kind) {
    case PreloadKind::stress:
      return Number(preload.value / 1e6) + L"MPa";
    case PreloadKind::force:
      return Number(preload.value / 1e3) + L"kN";
    case PreloadKind::strain:
      return Number(preload.value * 1e3) + L"\u2030";
  }
  return {};
}

}  // namespace

std::wstring BarText(const BarInfo& info) {
  std::wstring text = Layers(info) + Place(info);
  if (info.polygon != 0) text += L" polygon " + std::to_wstring(info.polygon);
  if (info.cover) text += L" cover " + Length(*info.cover);
  if (info.gap) text += L" gap " + Length(*info.gap);
  if (info.from) text += L" from " + Degrees(*info.from);
  if (info.to) text += L" to " + Degrees(*info.to);
  if (info.grade) text += L" grade \"" + *info.grade + L"\"";
  if (info.preload) text += L" prestress " + PreStress(*info.preload);
  return text;
}

}  // namespace Orlix::Data
