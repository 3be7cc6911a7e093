#pragma once

#include <string>

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

/// Adds the option of a PNG's width. That of the file is the command's own.
void AddPictureWidth(CLI::App& command, PictureArguments& arguments);

/// The options by the ending of the file and the width.
/// @throws CommandError, which lists the endings, for another one
Plot::PictureOptions PictureOptionsFrom(const PictureArguments& arguments);

}  // namespace Orlix::Cli
