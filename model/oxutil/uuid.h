#pragma once

#include <string>

namespace Orlix {

/// @return a random (version 4) UUID in the form of RFC 4122, e.g.
/// "8c1f4a52-2f0e-4d0b-9a3e-5b7c6d1e2f30".
/// @throws std::runtime_error when the system offers no randomness.
std::string NewUuid();

}  // namespace Orlix
