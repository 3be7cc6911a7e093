#include "legacy/Context.h"

namespace Orlix::Legacy {

bool Context::MayLack(MatType type) const {
  if (notes.HasFailed("CODES")) return true;
  switch (type) {
    case MatType::concrete:
      return notes.HasFailed("CONCRETE");
    case MatType::reinforcement:
      return notes.HasFailed("REINFORCEMENT") || notes.HasFailed("LINKS");
    case MatType::steel:
      return notes.HasFailed("STEEL");
    case MatType::FRP:
      return notes.HasFailed("FRP");
    case MatType::none:
      break;
  }
  return false;
}

}  // namespace Orlix::Legacy
