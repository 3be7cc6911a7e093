#include "cli/solve_json.h"

#include <rapidjson/document.h>

#include <algorithm>
#include <cstddef>
#include <ostream>

#include "cli/case_records.h"
#include "cli/commands.h"
#include "model/oxutil/json.h"

namespace Orlix::Cli {

namespace {

constexpr const char* kStep = "    ";

// JSON text has line ends only between its lines, never within a string.
void WriteIndented(const std::string& text, const std::string& margin, std::ostream& out) {
  for (const char c : text) {
    out << c;
    if (c == '\n') out << margin;
  }
}

}  // namespace

void WriteCaseJson(VelmoApp& app, int iSec, int iTask, const std::vector<int>& cases,
                   const std::string& margin, std::ostream& out) {
  const std::string inner = margin + kStep;
  out << "{\n"
      << inner << "\"iSec\": " << iSec << ",\n"
      << inner << "\"iTask\": " << iTask << ",\n"
      << inner << "\"results\": [";
  const std::string element = inner + kStep;
  const char* separator = "";
  for (std::size_t begin = 0; begin < cases.size(); begin += kBlock) {
    const std::size_t end = std::min(begin + kBlock, cases.size());
    const std::vector<int> block(cases.begin() + static_cast<std::ptrdiff_t>(begin),
                                 cases.begin() + static_cast<std::ptrdiff_t>(end));
    Util::JsonDocument json;
    std::string message;
    if (!app.GetCaseResults(iSec, iTask, block, json, message, false)) throw CommandError(message);
    for (const Util::JsonValue& result : json["results"].GetArray()) {
      out << separator << '\n' << element;
      WriteIndented(Util::PrettyJson(result), element, out);
      separator = ",";
    }
  }
  if (!cases.empty()) out << '\n' << inner;
  out << "]\n" << margin << '}';
}

}  // namespace Orlix::Cli
