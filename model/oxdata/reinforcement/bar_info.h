#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/oxdata/reinforcement/CBarHelper.h"
#include "model/oxdata/section/CBar.h"
#include "model/oxnumeric/Vec.h"

namespace Orlix::Data {

/// Bars of one size in a layer.
struct BarGroup {
  int count{};       ///< places; 0: by spacing
  double spacing{};  ///< at most, between centres along the line [m]; 0: by count
  int bundle{1};     ///< bars in contact at each place, 1 to 4
  Util::BarSize size;
  wchar_t letter{};  ///< of the size's name; 0: none
  friend bool operator==(const BarGroup&, const BarGroup&) = default;
};

/// The groups that share a line; layers follow each other from the face inwards.
using BarLayer = std::vector<BarGroup>;

/// Where bars lie.
enum class BarPlace { perimeter, hole, top, bottom, left, right, edge, line, circle, arc, points };

/// What a bar description says.
struct BarInfo {
  std::vector<BarLayer> layers;
  BarPlace place{BarPlace::perimeter};
  int number{};                      ///< of the edge or hole, from one
  int polygon{};                     ///< of the component, from one; 0: its only one
  std::vector<Vec2<double>> points;  ///< of line and points; the centre of circle and arc, if given
  std::optional<double> radius;      ///< of the bar centres on circle and arc [m]
  std::optional<double> from;        ///< first bar on circle and arc, from y towards z [rad]
  std::optional<double> to;          ///< last bar on an arc [rad]
  std::optional<double> cover;       ///< [m]
  std::optional<double> gap;         ///< clear, between layers [m]
  std::optional<std::wstring> grade;
  std::optional<Preload> preload;
  friend bool operator==(const BarInfo&, const BarInfo&) = default;
};

}  // namespace Orlix::Data
