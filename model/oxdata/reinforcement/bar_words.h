#pragma once

#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "model/oxdata/reinforcement/CBarHelper.h"
#include "model/oxdata/reinforcement/bar_info.h"
#include "model/oxutil/Enumerations.h"

namespace Orlix::Data {

// Words of bar descriptions, and what is said about them in messages.

/// Places that no number follows.
inline constexpr std::array<std::pair<std::wstring_view, BarPlace>, 8> kPlaces = {{
    {L"perimeter", BarPlace::perimeter},
    {L"top", BarPlace::top},
    {L"bottom", BarPlace::bottom},
    {L"left", BarPlace::left},
    {L"right", BarPlace::right},
    {L"line", BarPlace::line},
    {L"circle", BarPlace::circle},
    {L"arc", BarPlace::arc},
}};

/// The unit of a pre-stress tells its kind.
inline constexpr std::array<std::pair<Dimension, PreloadKind>, 3> kPreloadUnits = {{
    {Dimension::stress, PreloadKind::stress},
    {Dimension::force, PreloadKind::force},
    {Dimension::strain, PreloadKind::strain},
}};

inline constexpr std::wstring_view kOptions =
    L"cover, gap, from, to, grade, prestress, polygon or the end";
inline constexpr std::wstring_view kPlacesAndOptions =
    L"a place (perimeter, top, bottom, left, right, edge, hole, line, circle, arc, at), cover, "
    L"gap, from, to, grade, prestress, polygon or the end";
inline constexpr std::wstring_view kLengthUnits = L"a unit of length (m, cm, mm, ft or in)";

/// The system that the first sign of a size belongs to; nothing when it begins none.
inline std::optional<Util::BarSystem> SystemOf(wchar_t sign) {
  constexpr std::wstring_view kMetric = L"ABCDHRTY\u00D8\u2300\u03C6\u03A6";
  if (sign == L'\0') return std::nullopt;
  if (kMetric.find(sign) != std::wstring_view::npos) return Util::BarSystem::metric;
  if (sign == L'#') return Util::BarSystem::us;
  if (sign == L'N') return Util::BarSystem::australian;
  if (sign == L'S') return Util::BarSystem::strand;
  return std::nullopt;
}

inline std::wstring_view KindOf(Util::BarSystem system) {
  switch (system) {
    case Util::BarSystem::metric:
      return L"a metric size";
    case Util::BarSystem::us:
      return L"a US size";
    case Util::BarSystem::canadian:
      return L"a Canadian size";
    case Util::BarSystem::australian:
      return L"an Australian size";
    case Util::BarSystem::strand:
      return L"a strand";
  }
  return {};
}

}  // namespace Orlix::Data
