#pragma once

#include <iosfwd>

#include "dxf_import/DxfSectionImporter.h"

namespace Orlix::Cli {

/// Writes the whole record of an import as JSON, a line for each vertex, circle and diagnostic.
/// Units and severities are the numbers of their enumerations; bytes that are no UTF-8 become
/// U+FFFD, numbers that are not finite null.
void WriteDxfJson(const dxf_import::DxfImportResult& result, std::ostream& out);

}  // namespace Orlix::Cli
