// Any bytes as a table of load cases: finite inputs and names, or an error that says where.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "cli/case_csv.h"
#include "cli/commands.h"

namespace Orlix::Cli {
namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

void Read(const std::string& bytes, LoadAction action) {
  try {
    for (const Data::Velmo9::TaskCase& one :
         ReadCases(bytes, "loads.csv", action, Data::CUnit()).cases) {
      const Vec3<double>& input = one.input;
      Require(std::isfinite(input.x) && std::isfinite(input.y) && std::isfinite(input.z));
    }
  } catch (const CommandError& error) {
    Require(std::string(error.what()).find("loads.csv") != std::string::npos);
  }
}

}  // namespace
}  // namespace Orlix::Cli

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const Orlix::LoadAction action =
      (data[0] & 1U) != 0 ? Orlix::LoadAction::load : Orlix::LoadAction::deformation;
  Orlix::Cli::Read(std::string(data + 1, data + size), action);
  return 0;
}
