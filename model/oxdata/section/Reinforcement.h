#pragma once

#include <optional>
#include <vector>

#include "model/oxdata/section/CBar.h"
#include "model/oxutil/OrlixString.h"

namespace Orlix::Data {

/// Bars of a component in words, such as "4B20 bottom cover 40mm"; docs/bar-descriptions.md has the
/// grammar. What the text says goes before the other members.
struct BarDescription {
  OrlixString<wchar_t> text{};
  int grade{-1};                  ///< index into the document's reinforcement table; -1: none
  std::optional<double> cover{};  ///< concrete over the links, or over the bars without links [m]
  std::optional<Preload> preload{};
  friend bool operator==(const BarDescription&, const BarDescription&) = default;
};

/// The links of a component.
struct Links {
  double size{};         ///< diameter [m]; 0: no links
  double spacing{};      ///< along the member [m]; 0: not given
  int legs{2};           ///< legs of one set of links; the closed link has two
  bool perimeter{true};  ///< a closed link runs around the outlines, between cover and bars
  int grade{-1};         ///< index into the document's reinforcement table; -1: none
  friend bool operator==(const Links&, const Links&) = default;
};

/// The bars of a component: those given as points and those that its descriptions made, which
/// follow them (`CBar::Description`).
struct Reinforcement {
  std::vector<CBar> bars{};
  std::vector<BarDescription> descriptions{};
  Links links{};

  /// What a closed link takes of the depth between cover and bars [m].
  double LinkDepth() const { return links.perimeter ? links.size : 0.0; }
  friend bool operator==(const Reinforcement&, const Reinforcement&) = default;
};

}  // namespace Orlix::Data
