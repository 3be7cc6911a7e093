#pragma once

#include <filesystem>
#include <string>

#include "app/VelmoApp.h"
#include "model/vldata/json/ProblemList.h"

namespace Orlix::Cli {

/// Opens a document.
/// @throws CommandError when it cannot be read; for broken JSON with line and column.
VelmoApp OpenDocument(const std::filesystem::path& path);

/// As OpenDocument; when parts of the document could not be taken over, standard error says how
/// many, names the first and where to learn of the others.
VelmoApp OpenForUse(const std::filesystem::path& path);

/// As OpenForUse, of a document that is going to be replaced by what comes of it.
/// @throws CommandError, too, when that would lose something: parts that were not taken over, or a
/// file of the older format.
VelmoApp OpenForEdit(const std::filesystem::path& path);

/// "sections[1].tasks[1].sls: found 3, expected ...".
std::string ProblemText(const Data::ReadProblem& problem);

/// Writes the document, which from then on lives at `path`, and reads it back. A file that was
/// there is replaced only when the new one is complete.
/// @throws std::runtime_error when the file cannot be written or reads back differently; then
/// nothing is left behind.
void SaveDocument(VelmoApp& app, const std::filesystem::path& path);

/// @throws CommandError when results would be written over the document that they are of.
void CheckIsNotDocument(const std::filesystem::path& results,
                        const std::filesystem::path& document);

/// The design code and, where it has one, its annex: "EN 1992-1-1:2004 (UK)".
std::string CodeText(const Data::CVelmoData& document);

}  // namespace Orlix::Cli
