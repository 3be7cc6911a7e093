#include "cli/picture_file.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <optional>

#include "cli/commands.h"

namespace Orlix::Cli {

std::string EndingOf(const std::filesystem::path& path) {
  std::string ending = path.extension().string();
  std::transform(ending.begin(), ending.end(), ending.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return ending;
}

void CheckEnding(const std::string& out, std::string_view endings) {
  const std::string ending = EndingOf(out);
  const std::string list = ", " + std::string(endings) + ",";
  if (!ending.empty() && list.find(" " + ending + ",") != std::string::npos) return;
  throw CommandError(out + ": the ending of the file says what is written; known are " +
                     std::string(endings));
}

void AddPictureWidth(CLI::App& command, PictureArguments& arguments) {
  command.add_option("--width", arguments.widthPx, "Width of a PNG in pixels")
      ->check(CLI::Range(Plot::PictureOptions::kFewestPx, Plot::PictureOptions::kMostPx))
      ->capture_default_str();
}

Plot::PictureOptions PictureOptionsFrom(const PictureArguments& arguments) {
  CheckEnding(arguments.out, Plot::kPictureEndings);
  return {Plot::PictureFormatOf(arguments.out).value(), arguments.widthPx, {}};
}

}  // namespace Orlix::Cli
