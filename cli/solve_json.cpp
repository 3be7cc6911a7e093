#include "cli/solve_json.h"

#include <ios>
#include <ostream>
#include <string_view>

#include "app/case_results_text.h"
#include "cli/commands.h"
#include "cli/interrupt.h"

namespace Orlix::Cli {

namespace {

constexpr const char* kStep = "    ";

}  // namespace

void WriteCaseJson(const VelmoApp& app, int iSec, int iTask, const std::vector<int>& cases,
                   const std::string& margin, std::ostream& out) {
  const std::string inner = margin + kStep;
  out << "{\n"
      << inner << "\"iSec\": " << iSec << ",\n"
      << inner << "\"iTask\": " << iTask << ",\n"
      << inner << "\"results\": [";
  if (!cases.empty()) {
    out << '\n';
    std::string message;
    const auto write = [&](std::string_view text) {
      ThrowIfInterrupted();
      out.write(text.data(), static_cast<std::streamsize>(text.size()));
    };
    if (!WriteCaseResults(*app.pData(), iSec, iTask, cases, inner + kStep, write, message)) {
      throw CommandError(message);
    }
    out << '\n' << inner;
  }
  out << "]\n" << margin << '}';
}

}  // namespace Orlix::Cli
