#pragma once

#include <iosfwd>
#include <optional>

#include "app/VelmoApp.h"
#include "model/vlsol/diagrams/diagrams.h"

namespace Orlix::Cli {

/// What a table of a diagram is of.
struct DiagramPlace {
  int iSec{};
  int iTask{};
  std::optional<int> axialOf;  ///< the case whose axial force is held, from 0; null: as asked for
};

/// Prints what is held, the points with a name, or all of them, and the loads, worst first, in the
/// document's units.
/// @param all  every point of the curves and every load, not the 40 worst alone
void PrintDiagram(const VelmoApp& app, const DiagramPlace& place, const VlSol::Diagram& diagram,
                  bool all, std::ostream& out);

/// Writes curves and loads as CSV in the document's units, which stand in the heading; closed
/// curves end with their first point.
void WriteDiagramCsv(const VelmoApp& app, const VlSol::Diagram& diagram, std::ostream& out);

}  // namespace Orlix::Cli
