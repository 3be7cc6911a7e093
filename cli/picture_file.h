#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "plot/picture.h"

namespace CLI {
class App;
}

namespace Orlix::Cli {

/// What the pictures of all commands are told by the command line.
struct PictureArguments {
  std::string out;
  int widthPx{Plot::PictureOptions{}.widthPx};
};

/// The ending of a file's name in small letters, with its point; empty without one.
std::string EndingOf(const std::filesystem::path& path);

/// @param endings  those that a command writes, such as ".csv, .json"
/// @throws CommandError, which lists them, for a file with another ending
void CheckEnding(const std::string& out, std::string_view endings);

/// Adds the option of a PNG's width. That of the file is the command's own.
void AddPictureWidth(CLI::App& command, PictureArguments& arguments);

/// The options by the ending of the file and the width.
/// @throws CommandError, which lists the endings, for another one
Plot::PictureOptions PictureOptionsFrom(const PictureArguments& arguments);

}  // namespace Orlix::Cli
