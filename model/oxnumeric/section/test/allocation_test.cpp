#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <random>

#include "model/oxnumeric/section/equilibrium.h"
#include "model/oxnumeric/section/failure.h"
#include "model/oxnumeric/section/test/sections.h"

namespace {
// Counts what the code under test takes from the heap.
long allocations = 0;
}  // namespace

// Not inlined, so that the compiler does not hold malloc and delete for a mismatched pair.
[[gnu::noinline]] void* operator new(std::size_t size) {
  ++allocations;
  if (void* p = std::malloc(size == 0 ? 1 : size)) return p;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* p) noexcept { std::free(p); }
[[gnu::noinline]] void operator delete(void* p, std::size_t) noexcept { std::free(p); }

namespace Orlix::Numeric {
namespace {

using namespace Testing;

TEST(Allocation, SearchesTakeNothingFromTheHeap) {
  std::mt19937 random(6);
  for (const SectionInput& input : {Column(), Box(Block()), Column(Rational())}) {
    const CompiledSection section = Compile(input);
    long taken = 0;
    for (int i = 0; i < 50; ++i) {
      const Resultant load = 1.3 * Integrate(section, RandomPlane(section, random, 0.003));
      const long before = allocations;
      const EquilibriumResult e = SolveEquilibrium(section, load);
      const double g = GaugeOf(section, e.plane).value;
      const FailurePoint p =
          FindFailure(section, {{load.x, 0, 0}, {0, load.y, load.z}}, {1.0, e.plane, g});
      taken += allocations - before;
      EXPECT_TRUE(e.converged || p.found);
    }
    EXPECT_EQ(taken, 0);
  }
}

}  // namespace
}  // namespace Orlix::Numeric
