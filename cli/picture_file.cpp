#include "cli/picture_file.h"

#include <CLI/CLI.hpp>
#include <optional>

#include "cli/commands.h"

namespace Orlix::Cli {

void AddPictureWidth(CLI::App& command, PictureArguments& arguments) {
  command.add_option("--width", arguments.widthPx, "Width of a PNG in pixels")
      ->check(CLI::Range(Plot::PictureOptions::kFewestPx, Plot::PictureOptions::kMostPx))
      ->capture_default_str();
}

Plot::PictureOptions PictureOptionsFrom(const PictureArguments& arguments) {
  const std::optional<Plot::PictureFormat> format = Plot::PictureFormatOf(arguments.out);
  if (!format) {
    throw CommandError(arguments.out +
                       ": the ending of the file says what a picture is written as; known are " +
                       Plot::kPictureEndings);
  }
  return {*format, arguments.widthPx, {}};
}

}  // namespace Orlix::Cli
