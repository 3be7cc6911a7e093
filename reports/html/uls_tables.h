#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "reports/html/HtmlPage.h"
#include "reports/html/result_columns.h"

// Results of a solved task at the ultimate limit state.

namespace Orlix::Velmo {

/// The cases, the highest utilisation first; one that could not be computed before all others.
std::vector<int> RankedUls(const Data::Velmo9::AnalysisTask& task);
/// How many are carried, and which governs.
std::string UlsVerdict(const TaskContext& c);
/// The worst cases, in full.
void AddUlsGoverning(const TaskContext& c, HtmlPage& page);
/// All cases, or the worst when there are more than `mostRows`.
void AddUlsTable(const TaskContext& c, std::size_t mostRows, HtmlPage& page);

}  // namespace Orlix::Velmo
