#include "legacy/Notes.h"

namespace Orlix::Legacy {
namespace {

void Append(std::vector<LegacyNote>& notes, std::string_view module, std::size_t line,
            std::string_view text) {
  if (notes.size() < Notes::kMax) {
    notes.push_back({std::string(module), line, std::string(text)});
  } else if (notes.size() == Notes::kMax) {
    notes.push_back({"", 0, "there are more, which are not listed"});
  }
}

}  // namespace

void Notes::AddProblem(std::string_view module, std::size_t line, std::string_view text) {
  if (!failed_.contains(module)) failed_.emplace(module);
  Append(problems_, module, line, text);
}

void Notes::AddWarning(std::string_view module, std::size_t line, std::string_view text) {
  Append(warnings_, module, line, text);
}

}  // namespace Orlix::Legacy
