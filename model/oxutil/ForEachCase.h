#pragma once

#include <cstddef>
#include <exception>
#include <vector>

namespace Orlix {

/// Calls f(i) once for every i in [0, count), in parallel where OpenMP is on. Each call may write
/// only what belongs to its index; then the result does not depend on the number of threads.
/// @throws what the call with the lowest index threw, after all calls have ended.
template <class F>
void ForEachCase(std::ptrdiff_t count, F&& f) {
  if (count <= 0) return;
  std::vector<std::exception_ptr> failures(static_cast<std::size_t>(count));
#ifdef _OPENMP
#pragma omp parallel for schedule(static) if (count > 1)  // one case needs no team
#endif
  for (std::ptrdiff_t i = 0; i < count; ++i) {
    try {
      f(i);
    } catch (...) {
      failures[static_cast<std::size_t>(i)] = std::current_exception();
    }
  }
  for (const std::exception_ptr& failure : failures) {
    if (failure) std::rethrow_exception(failure);
  }
}

}  // namespace Orlix
