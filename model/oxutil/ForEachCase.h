#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace Orlix {

/// Told now and then, by the calling thread alone, how many calls have been made; false: no more of
/// them are wanted.
using LoopProgress = std::function<bool(std::ptrdiff_t done)>;

/// Calls f(i) once for every i in [0, count), in parallel where OpenMP is on. Each call may write
/// only what belongs to its index; then the result does not depend on the number of threads.
/// @param progress  may be empty
/// @return false when `progress` wanted no more; then some calls are not made
/// @throws what the call with the lowest index threw, or what `progress` threw, after all calls
/// have ended.
bool ForEachCase(std::ptrdiff_t count, const std::function<void(std::ptrdiff_t)>& f,
                 const LoopProgress& progress = {});

/// Makes pieces of a text in parallel and hands them on in order.
/// @param make  appends piece i of [0, count) to an empty text; called in any thread
/// @param use   takes the pieces one after the other, by their index; called in any thread, never
///              twice at a time
/// @throws what making or using the piece with the lowest index threw; no later piece was used.
void MakeInOrder(std::ptrdiff_t count,
                 const std::function<void(std::ptrdiff_t, std::string&)>& make,
                 const std::function<void(std::string_view)>& use);

}  // namespace Orlix
