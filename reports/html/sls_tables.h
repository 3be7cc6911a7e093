#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "reports/html/HtmlPage.h"
#include "reports/html/result_columns.h"

// Results of a solved task at the serviceability limit state.

namespace Orlix::Velmo {

/// The cases: those without a solution, then by crack width, then by how far they are cracked.
std::vector<int> RankedSls(const Data::Velmo9::AnalysisTask& task);
/// How many are cracked, and the widest crack.
std::string SlsVerdict(const TaskContext& c);
/// The worst cases, in full.
void AddSlsGoverning(const TaskContext& c, HtmlPage& page);
/// All cases, or the worst when there are more than `mostRows`.
void AddSlsTable(const TaskContext& c, std::size_t mostRows, HtmlPage& page);

}  // namespace Orlix::Velmo
