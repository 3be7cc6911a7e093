#include "cli/dxf_json.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <array>
#include <charconv>
#include <cmath>
#include <ostream>
#include <string>
#include <vector>

#include "model/oxutil/text.h"

namespace Orlix::Cli {

using dxf_import::Circle;
using dxf_import::DxfDiagnostic;
using dxf_import::DxfImportResult;
using dxf_import::Polygon;

namespace {

/// Text, or a number, as JSON.
struct Json {
  const std::string& text;
};
struct Number {
  double value;
};

std::ostream& operator<<(std::ostream& out, const Json& json) {
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  writer.String(ValidUtf8(json.text));
  return out.write(buffer.GetString(), static_cast<std::streamsize>(buffer.GetSize()));
}

std::ostream& operator<<(std::ostream& out, Number number) {
  if (!std::isfinite(number.value)) return out << "null";
  std::array<char, 32> digits;
  const char* end = std::to_chars(digits.begin(), digits.end(), number.value).ptr;
  return out.write(digits.data(), end - digits.data());
}

std::ostream& operator<<(std::ostream& out, const Vec3<double>& point) {
  return out << '[' << Number{point.x} << ", " << Number{point.y} << ", " << Number{point.z} << ']';
}

// Writes a list with an item a line, `margin` deep.
template <class Item, class WriteItem>
void WriteList(const std::vector<Item>& items, const char* margin, std::ostream& out,
               WriteItem write) {
  out << '[';
  const char* separator = "\n";
  for (const Item& item : items) {
    out << separator << margin << "    ";
    write(item);
    separator = ",\n";
  }
  if (!items.empty()) out << '\n' << margin;
  out << ']';
}

void WritePolygon(const Polygon& polygon, const char* margin, std::ostream& out) {
  out << "{\"layer\": " << Json{polygon.layer}
      << ", \"closed\": " << (polygon.closed ? "true" : "false") << ", \"vertices\": ";
  WriteList(polygon.vertices, margin, out, [&](const Vec3<double>& vertex) { out << vertex; });
  out << '}';
}

void WriteCircles(const std::vector<Circle>& circles, const char* margin, std::ostream& out) {
  WriteList(circles, margin, out, [&](const Circle& circle) {
    out << "{\"center\": " << circle.center << ", \"radius\": " << Number{circle.radius}
        << ", \"layer\": " << Json{circle.layer} << '}';
  });
}

void WriteDiagnostic(const DxfDiagnostic& d, std::ostream& out) {
  out << "{\"severity\": " << static_cast<int>(d.severity) << ", \"line\": " << d.line
      << ", \"entityType\": " << Json{d.entityType} << ", \"layer\": " << Json{d.layer}
      << ", \"message\": " << Json{d.message} << ", \"hint\": " << Json{d.hint} << '}';
}

}  // namespace

void WriteDxfJson(const DxfImportResult& result, std::ostream& out) {
  constexpr const char* kMargin = "        ";
  out << "{\n    \"success\": " << (result.success ? "true" : "false")
      << ",\n    \"sourceUnit\": " << static_cast<int>(result.sourceUnit)
      << ",\n    \"targetUnit\": " << static_cast<int>(result.targetUnit)
      << ",\n    \"geometry\": {\n        \"outer\": ";
  WritePolygon(result.geometry.outer, kMargin, out);
  out << ",\n        \"holes\": ";
  WriteList(result.geometry.holes, kMargin, out,
            [&](const Polygon& hole) { WritePolygon(hole, "            ", out); });
  out << ",\n        \"circularHoles\": ";
  WriteCircles(result.geometry.circularHoles, kMargin, out);
  out << ",\n        \"rebars\": ";
  WriteCircles(result.geometry.rebars, kMargin, out);
  out << "\n    },\n    \"diagnostics\": ";
  WriteList(result.diagnostics, "    ", out,
            [&](const DxfDiagnostic& d) { WriteDiagnostic(d, out); });
  out << "\n}\n";
}

}  // namespace Orlix::Cli
