#include "dxf_import/layer_names.h"

#include <algorithm>

namespace Orlix::dxf_import {
namespace {

char UpperCase(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

}  // namespace

bool EqualsInUpperCase(std::string_view text, std::string_view upper) {
  return std::equal(text.begin(), text.end(), upper.begin(), upper.end(),
                    [](char a, char b) { return UpperCase(a) == b; });
}

LayerRole RoleOf(std::string_view name) {
  if (name == "0" || EqualsInUpperCase(name, "OUTER")) return LayerRole::Outer;
  if (EqualsInUpperCase(name, "HOLES")) return LayerRole::Holes;
  if (EqualsInUpperCase(name, "REBAR")) return LayerRole::Rebar;
  return EqualsInUpperCase(name, "IGNORE") ? LayerRole::Ignore : LayerRole::Unknown;
}

}  // namespace Orlix::dxf_import
