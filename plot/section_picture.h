#pragma once

#include <optional>
#include <string>

#include "app/VelmoApp.h"
#include "plot/picture.h"

namespace Orlix::Plot {

/// Which strains of a case a picture shows.
enum class SectionState {
  reported,      ///< under the load where the task computes ULS, else the state that was reported
  underLoad,     ///< ULS, under the load or of the imposed plane
  atFailure,     ///< ULS, at the failure load
  uncracked,     ///< SLS
  cracked,       ///< SLS
  interpolated,  ///< SLS, between both: mean strains, to which no stresses belong
};

/// A task's case; indices count from zero.
struct PictureCase {
  int iTask{};
  int iCase{};
  SectionState state{SectionState::reported};
};

/// A sheet with a section: outlines, bars, dimensions; with a case also neutral axis, strains and
/// stresses. A case that is not carried or has no solution is drawn without them and says so.
/// @param ofCase  nothing: the section alone
/// @return the bytes of a file; the same for the same document
/// @pre    the case is solved
/// @throws std::out_of_range for no such section, task or case; std::invalid_argument, with a text
///         for the user, for a state that the task does not compute or the case does not have, and
///         for options out of bounds; PictureError.
std::string SectionPicture(const VelmoApp& app, int iSec, const std::optional<PictureCase>& ofCase,
                           const PictureOptions& options);

}  // namespace Orlix::Plot
