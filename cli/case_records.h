#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <vector>

#include "app/VelmoApp.h"
#include "results/CaseRecords.h"

namespace Orlix::Cli {

/// Cases asked from the facade at a time: enough to keep all processors busy, few enough that
/// records with all their points stay small.
inline constexpr std::size_t kBlock = 2048;

/// Calls use(iCase, record) for the cases of a solved task, in order, with the record of one limit
/// state.
/// @throws CommandError when a case has no result.
void ForEachUlsRecord(const VelmoApp& app, int iSec, int iTask, std::span<const int> cases,
                      const std::function<void(int, const Data::Velmo9::CaseULSDetails&)>& use);
void ForEachSlsRecord(const VelmoApp& app, int iSec, int iTask, std::span<const int> cases,
                      const std::function<void(int, const Data::Velmo9::CaseSLSDetails&)>& use);

}  // namespace Orlix::Cli
