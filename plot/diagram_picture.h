#pragma once

#include <string>

#include "app/VelmoApp.h"
#include "model/vlsol/diagrams/diagrams.h"
#include "plot/picture.h"

namespace Orlix::Plot {

/// A sheet with a diagram: its curves, named points and the loads of the task. A diagram without
/// points says why it has none.
/// @param iSec, iTask  that the diagram was made of; they give names and units
/// @return the bytes of a file; the same for the same diagram
/// @throws std::out_of_range for no such section or task; std::invalid_argument for options out of
///         bounds; PictureError.
std::string DiagramPicture(const VelmoApp& app, int iSec, int iTask, const VlSol::Diagram& diagram,
                           const PictureOptions& options);

}  // namespace Orlix::Plot
