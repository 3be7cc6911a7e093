#include "cli/option_checks.h"

namespace Orlix::Cli {

std::string NotEmpty(const std::string& value) {
  return value.empty() ? "the value is empty; give one" : "";
}

}  // namespace Orlix::Cli
