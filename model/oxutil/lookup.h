#pragma once

#include <stdexcept>

namespace Orlix {

/// @return the entry of `map` at `key`.
/// @throws std::out_of_range with the text "invalid map<K, T> key" when there is none.
template <class Map>
const typename Map::mapped_type& At(const Map& map, const typename Map::key_type& key) {
  const auto found = map.find(key);
  if (found == map.end()) throw std::out_of_range("invalid map<K, T> key");
  return found->second;
}

}  // namespace Orlix
