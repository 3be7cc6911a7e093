#pragma once

#include <iosfwd>
#include <string>

#include "dxf_import/SectionGeometry.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace Orlix::Cli {

/// Where the section of a drawing goes and what the drawing does not say of it.
struct DxfSectionArguments {
  std::string document;  ///< empty: no section is asked for
  std::string name;
  std::string code;
  std::string annex;
  std::string concrete;
  std::string reinforcement;
  std::string barSizes;
  std::string origin{"centroid"};
};

/// Adds the options that fill the arguments.
/// @return the option that asks for a section
CLI::Option* AddDxfSectionOptions(CLI::App& command, DxfSectionArguments& arguments);

/// Adds the section to the document, which is made when it is not there, and saves it. What was
/// assumed goes to standard error, what was done to `out`.
/// @param drawing  [mm], of a successful import
/// @return kDone, or kProblems when the drawing makes no section; then nothing was written
/// @throws CommandError for a document that cannot be read or written, codes and grades that are
///         not known, or a code that is not the document's.
int AddDrawingToDocument(const DxfSectionArguments& arguments,
                         const dxf_import::SectionGeometry& drawing, std::ostream& out);

}  // namespace Orlix::Cli
