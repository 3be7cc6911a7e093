#include "cli/documents.h"

#include <rapidjson/document.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <system_error>

#include "cli/commands.h"
#include "cli/printable.h"
#include "legacy/LegacyMessages.h"
#include "model/oxutil/AtomicFile.h"
#include "model/oxutil/json.h"
#include "model/oxutil/text.h"

namespace Orlix::Cli {

namespace {

constexpr std::size_t kProblemsTold = 5;

// Documents remember where they live, so every path is made absolute.
std::filesystem::path Place(const std::filesystem::path& path) {
  return std::filesystem::absolute(path).lexically_normal();
}

// Why a file that the facade refused is no document.
std::string ReasonOf(const std::filesystem::path& path, const std::string& message) {
  if (std::filesystem::is_directory(path)) return "is a directory";
  // What is of the older format has its own messages.
  if (message.starts_with(to_string(std::wstring(Legacy::Messages::kModules)))) {
    return message + "\n`velmo convert` tells the lines";
  }
  if (message != to_string(std::wstring(Legacy::Messages::kNotOpened))) return message;
  errno = 0;
  std::ifstream stream(path, std::ios::binary);
  if (!stream) return errno == 0 ? message : std::strerror(errno);
  Util::JsonDocument json;
  std::string error;
  const bool parsed = Util::ParseJson(stream, json, error);
  stream.clear();
  stream.seekg(0);
  char first{};
  if (!(stream >> first)) return "is empty; `velmo new` makes a document";
  if (!parsed && (first == '{' || first == '\xEF')) return "is no valid JSON: " + error;
  return message + ": it is no JSON document; `velmo new` makes one";
}

// As VelmoApp::Save writes it.
std::string TextOf(const Data::CVelmoData& document) {
  Util::JsonDocument json;
  document.toJson(json, json.GetAllocator(), true);
  return Util::PrettyJson(json);
}

// The text of the document that a text holds.
std::string ReadBack(const std::string& text) {
  std::istringstream stream(text);
  Util::JsonDocument json;
  std::string error;
  if (!Util::ParseJson(stream, json, error)) return error;
  VelmoApp app;
  *app.pData() = Data::CVelmoData(json);
  VelmoApp::SetUserDefinedGradesToSections(*app.pData());
  return TextOf(*app.pData());
}

}  // namespace

VelmoApp OpenDocument(const std::filesystem::path& path) {
  VelmoApp app;
  std::string message;
  if (!app.Open(Place(path), message).opened) {
    throw CommandError(path.string() + ": " + ReasonOf(path, message));
  }
  return app;
}

VelmoApp OpenForUse(const std::filesystem::path& path) {
  VelmoApp app = OpenDocument(path);
  const auto& problems = app.pData()->ReadProblems();
  if (!problems.empty()) {
    std::cerr << path.string() << ": " << problems.size()
              << (problems.size() == 1 ? " value was" : " values were")
              << " not understood and took the default:\n";
    const std::size_t told = std::min(problems.size(), kProblemsTold);
    for (std::size_t i = 0; i < told; ++i) std::cerr << "  " << ProblemText(problems[i]) << '\n';
    if (told < problems.size()) {
      std::cerr << "  and " << problems.size() - told << " more; `velmo validate` lists them\n";
    }
  }
  return app;
}

VelmoApp OpenForEdit(const std::filesystem::path& path) {
  VelmoApp app = OpenForUse(path);
  if (app.pData()->FilePath().empty()) {
    throw CommandError(path.string() +
                       ": is of the older format; `velmo convert` makes a document of it");
  }
  if (!app.pData()->ReadProblems().empty()) {
    throw CommandError(path.string() +
                       ": what was not understood would be lost; put it right first, nothing was "
                       "changed");
  }
  return app;
}

std::string ProblemText(const Data::ReadProblem& problem) {
  return (problem.path.empty() ? "document" : Printable(problem.path)) + ": found " +
         Printable(problem.found) + ", expected " + problem.expected;
}

void SaveDocument(VelmoApp& app, const std::filesystem::path& path) {
  app.pData()->setFilePath(Place(path));
  const std::string text = TextOf(*app.pData());
  if (ReadBack(text) != text) {
    throw CommandError(path.string() + ": the document would read back differently; not written");
  }
  Util::WriteWhole(path, text);
}

void CheckIsNotDocument(const std::filesystem::path& results,
                        const std::filesystem::path& document) {
  std::error_code notThere;  // what is not there is no document
  if (!std::filesystem::equivalent(results, document, notThere)) return;
  throw CommandError(results.string() +
                     ": is the document itself; give the results a file of their own");
}

std::string CodeText(const Data::CVelmoData& document) {
  const auto code = document.CodePointer();
  return code->annex.empty() ? code->name : code->name + " (" + code->annex + ")";
}

}  // namespace Orlix::Cli
