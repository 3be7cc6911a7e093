#pragma once

#include "legacy/Context.h"

namespace Orlix::Legacy {

/// Reads the module TITLES.
void ReadTitles(Context& context);
/// Reads the module UNITS: the display units, which change no number in the file.
void ReadUnits(Context& context);
/// Reads the module CODES: the design code, whose standard grades become the document's tables, and
/// what bars displace.
void ReadCodes(Context& context);

}  // namespace Orlix::Legacy
