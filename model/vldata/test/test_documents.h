#pragma once

#include <string>
#include <string_view>

#include "model/oxutil/json.h"
#include "model/vldata/document/CVelmoData.h"

namespace Orlix::Data {

/// The document that a JSON text holds; the test fails when the text is no JSON.
CVelmoData ReadDocument(std::string_view text);
/// The value that a JSON text holds.
Util::JsonDocument ParseText(std::string_view text);
/// The text that a document is saved as.
std::string WriteDocument(const CVelmoData& document);
/// The bytes of a file, its path from the repository root.
std::string FileText(const std::string& path);
/// "path: found, expected" for every problem, one a line.
std::string ProblemText(const CVelmoData& document);

/// A rectangle [m] about a centre.
CSecGeom Rectangle(double width, double depth, Vec2<double> centre = {});
/// A concrete block 0.4 x 0.6 m of C30/37 with bars of B500B at the given places, 20 mm each, and
/// one default task; section 0 of a new document.
CVelmoData BlockDocument(std::initializer_list<Vec2<double>> bars);

}  // namespace Orlix::Data
