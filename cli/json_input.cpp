#include "cli/json_input.h"

#include <rapidjson/document.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "cli/commands.h"
#include "cli/documents.h"
#include "model/oxutil/json.h"

namespace Orlix::Cli {

namespace {

std::string NameOf(const std::string& file) { return file == "-" ? "standard input" : file; }

}  // namespace

void ReadJson(const std::string& file, Util::JsonDocument& json) {
  std::string error;
  bool isRead = false;
  if (file == "-") {
    isRead = Util::ParseJson(std::cin, json, error);
  } else {
    if (std::filesystem::is_directory(file)) throw CommandError(file + ": is a directory");
    errno = 0;
    std::ifstream stream(file, std::ios::binary);
    if (!stream) throw CommandError(file + ": " + std::strerror(errno));
    isRead = Util::ParseJson(stream, json, error);
  }
  if (!isRead) throw CommandError(NameOf(file) + ": is no valid JSON: " + error);
}

void CheckUnderstood(const std::string& file, const std::vector<Data::ReadProblem>& problems) {
  if (problems.empty()) return;
  for (const Data::ReadProblem& problem : problems) std::cerr << ProblemText(problem) << '\n';
  throw CommandError(
      NameOf(file) + ": " + std::to_string(problems.size()) +
      (problems.size() == 1 ? " value was" : " values were") +
      " not understood, nothing was changed; docs/document.md describes what is expected");
}

}  // namespace Orlix::Cli
