// Time per strain plane and per biaxial ultimate limit state case, through documents and the
// compile step. Each figure stands beside that of a plain fibre grid of 100x100 cells on the same
// section, so that it can be read as a ratio on any machine.

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <vector>

#include "bench/sections.h"
#include "model/oxnumeric/polygon.h"
#include "model/oxnumeric/section/kernel.h"
#include "model/vldata/response/SectionCompiler.h"
#include "model/vlsol/Solver.h"
#include "model/vlsol/uls.h"

namespace Orlix::Bench {
namespace {

using Data::CVelmoData;
using Data::Velmo9::SectionCompiler;
using Numeric::CompiledSection;
using Numeric::Plane;

constexpr int kPlanes = 256;

struct Subject {
  CVelmoData document;
  CompiledSection section;
  std::vector<Plane> planes;        // local, spread over the strain domain
  std::vector<Vec3<double>> loads;  // about the section's origin

  explicit Subject(CVelmoData given) : document(std::move(given)) {
    AddCases(document, kPlanes);
    section = SectionCompiler::Compile(document, document.Section(0), 0, LoadState::ULS)->section;
    for (const auto& c : document.Section(0).Task(0).Cases()) {
      loads.push_back(c.input);
      planes.push_back(section.ToLocal(VlSol::SolveUlsLoad(section, c.input).deformation));
    }
  }
};

const Subject& SubjectOf(bool box) {
  static const Subject rectangle(RectangleDocument());
  static const Subject hollowBox(HollowBoxDocument());
  return box ? hollowBox : rectangle;
}

void PerPlane(benchmark::State& state, bool box, bool tangent) {
  const Subject& subject = SubjectOf(box);
  for (auto _ : state) {
    for (const Plane& d : subject.planes) {
      if (tangent) {
        benchmark::DoNotOptimize(Numeric::IntegrateWithTangent(subject.section, d));
      } else {
        benchmark::DoNotOptimize(Numeric::Integrate(subject.section, d));
      }
    }
  }
  state.SetItemsProcessed(state.iterations() * kPlanes);
}
BENCHMARK_CAPTURE(PerPlane, rectangle, false, false);
BENCHMARK_CAPTURE(PerPlane, rectangle_tangent, false, true);
BENCHMARK_CAPTURE(PerPlane, box, true, false);
BENCHMARK_CAPTURE(PerPlane, box_tangent, true, true);

void PerUlsCase(benchmark::State& state, bool box) {
  const Subject& subject = SubjectOf(box);
  for (auto _ : state) {
    for (const Vec3<double>& load : subject.loads) {
      benchmark::DoNotOptimize(VlSol::SolveUlsLoad(subject.section, load));
    }
  }
  state.SetItemsProcessed(state.iterations() * kPlanes);
}
BENCHMARK_CAPTURE(PerUlsCase, rectangle, false);
BENCHMARK_CAPTURE(PerUlsCase, box, true);

void SolveTask(benchmark::State& state, bool box) {
  CVelmoData document = box ? HollowBoxDocument() : RectangleDocument();
  const int count = static_cast<int>(state.range(0));
  AddCases(document, count);
  for (auto _ : state) VlSol::Solver::SolveTask(document, document.getSection(0), 0);
  state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK_CAPTURE(SolveTask, rectangle, false)->Arg(10'000)->UseRealTime();
BENCHMARK_CAPTURE(SolveTask, box, true)->Arg(10'000)->UseRealTime();

// The yardstick: what a script does, one strain plane on 100x100 cells, without bars.
void FibreGridPlane(benchmark::State& state, bool box) {
  const Subject& subject = SubjectOf(box);
  const CompiledSection& section = subject.section;
  const Numeric::CompiledSection::Region& region = section.regions.front();
  const Numeric::PiecewiseCurve& curve =
      section.curves[static_cast<std::size_t>(region.curve)].exact;
  constexpr int kCells = 100;
  std::vector<Vec2<double>> cells;
  const double size = 2.0 * section.radius / kCells;
  for (int i = 0; i < kCells * kCells; ++i) {
    const Vec2<double> p{(i % kCells + 0.5) * size - section.radius,
                         (i / kCells + 0.5) * size - section.radius};
    bool inside = false;
    for (const auto& ring : region.rings) {
      inside ^= Numeric::Contains(ring, p) == Numeric::Location::inside;
    }
    if (inside) cells.push_back(p);
  }
  for (auto _ : state) {
    for (const Plane& d : subject.planes) {
      Numeric::Resultant f{};
      for (const Vec2<double>& p : cells) {
        const double e = d.x + d.y * p.y - d.z * p.x;
        const double force = curve[curve.Locate(e)].Stress(e) * size * size;
        f += Numeric::Resultant{force, force * p.y, -force * p.x};
      }
      benchmark::DoNotOptimize(f);
    }
  }
  state.SetItemsProcessed(state.iterations() * kPlanes);
}
BENCHMARK_CAPTURE(FibreGridPlane, rectangle, false);
BENCHMARK_CAPTURE(FibreGridPlane, box, true);

}  // namespace
}  // namespace Orlix::Bench

BENCHMARK_MAIN();
