#pragma once

#include <string_view>

namespace Orlix::dxf_import {

/// What a shape is by the name of its layer.
enum class LayerRole { Outer, Holes, Rebar, Ignore, Unknown };

/// @return whether `text` with its ASCII letters in upper case is `upper`.
bool EqualsInUpperCase(std::string_view text, std::string_view upper);

/// The role of layer `name`, in any case. "0", where everything is in a drawing without layers, is
/// that of the outer boundary.
LayerRole RoleOf(std::string_view name);

}  // namespace Orlix::dxf_import
