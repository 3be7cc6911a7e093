#pragma once

#include <cstddef>
#include <string>

#include "app/VelmoApp.h"

namespace Orlix::Velmo {

/// What the report is made with besides the document.
struct HtmlReportOptions {
  std::string version;        ///< of the program
  std::string date;           ///< as it shall stand there; empty: none
  std::size_t mostRows{200};  ///< of a table of cases; of more the worst are listed
};

/// The report of a solved task as one HTML page that needs nothing beside it: verdict, checks,
/// inputs, sheets of section and diagrams, governing cases, tables, how the numbers are to be read.
/// In the document's units. A task whose checks fail, or that has no results, is reported with its
/// inputs and messages alone.
/// @throws std::out_of_range for no such section or task; Plot::PictureError
std::string HtmlReport(const VelmoApp& app, int iSec, int iTask, const HtmlReportOptions& options);

}  // namespace Orlix::Velmo
