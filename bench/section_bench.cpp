// Time per strain plane and per biaxial case, through documents and the compile step. The plain
// fibre grid of 100x100 cells on the same sections is the yardstick: read the others as ratios to
// it.

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "cli/bench_sections.h"
#include "model/oxnumeric/polygon.h"
#include "model/oxnumeric/section/kernel.h"
#include "model/vldata/response/SectionCompiler.h"
#include "model/vlsol/Solver.h"
#include "model/vlsol/sls.h"
#include "model/vlsol/strength_reduction/strength_reduction.h"
#include "model/vlsol/uls.h"

namespace Orlix::Bench {
namespace {

using Data::CVelmoData;
using Data::Velmo9::SectionCompiler;
using Data::Velmo9::SectionState;
using Numeric::CompiledSection;
using Numeric::Plane;

constexpr int kPlanes = 256;

enum class Shape { rectangle, aciRectangle, hollowBox };

CVelmoData DocumentOf(Shape shape) {
  if (shape == Shape::hollowBox) return HollowBoxDocument();
  return shape == Shape::rectangle ? RectangleDocument() : AciRectangleDocument();
}

struct Subject {
  CompiledSection section;
  std::optional<VlSol::StrengthReduction> reduction;
  VlSol::SlsModel service;
  std::vector<Plane> planes;        // local, spread over the strain domain
  std::vector<Vec3<double>> loads;  // about the section's origin

  explicit Subject(CVelmoData document) {
    AddCases(document, kPlanes);
    const auto& described = document.Section(0);
    section = SectionCompiler::Compile(document, described, 0, SectionState::ultimate)->section;
    reduction = VlSol::StrengthReductionOf(document, described, 0, section);
    service = *VlSol::SlsModel::Of(document, described, 0);
    for (const auto& c : described.Task(0).Cases()) {
      loads.push_back(c.input);
      planes.push_back(section.ToLocal(VlSol::SolveUlsLoad(section, c.input).deformation));
    }
  }
};

const Subject& SubjectOf(Shape shape) {
  static std::map<Shape, std::unique_ptr<Subject>> subjects;
  std::unique_ptr<Subject>& subject = subjects[shape];
  if (!subject) subject = std::make_unique<Subject>(DocumentOf(shape));
  return *subject;
}

void PerPlane(benchmark::State& state, Shape shape) {
  const Subject& subject = SubjectOf(shape);
  for (auto _ : state) {
    for (const Plane& d : subject.planes) {
      benchmark::DoNotOptimize(Numeric::Integrate(subject.section, d));
    }
  }
  state.SetItemsProcessed(state.iterations() * kPlanes);
}
BENCHMARK_CAPTURE(PerPlane, rectangle, Shape::rectangle);
BENCHMARK_CAPTURE(PerPlane, box, Shape::hollowBox);

void PerPlaneWithTangent(benchmark::State& state, Shape shape) {
  const Subject& subject = SubjectOf(shape);
  for (auto _ : state) {
    for (const Plane& d : subject.planes) {
      benchmark::DoNotOptimize(Numeric::IntegrateWithTangent(subject.section, d));
    }
  }
  state.SetItemsProcessed(state.iterations() * kPlanes);
}
BENCHMARK_CAPTURE(PerPlaneWithTangent, rectangle, Shape::rectangle);
BENCHMARK_CAPTURE(PerPlaneWithTangent, box, Shape::hollowBox);

void PerUlsCase(benchmark::State& state, Shape shape) {
  const Subject& subject = SubjectOf(shape);
  const VlSol::StrengthReduction* phi = subject.reduction ? &*subject.reduction : nullptr;
  for (auto _ : state) {
    for (const Vec3<double>& load : subject.loads) {
      benchmark::DoNotOptimize(VlSol::SolveUlsLoad(subject.section, load, phi));
    }
  }
  state.SetItemsProcessed(state.iterations() * kPlanes);
}
BENCHMARK_CAPTURE(PerUlsCase, rectangle, Shape::rectangle);
BENCHMARK_CAPTURE(PerUlsCase, rectangle_aci, Shape::aciRectangle);
BENCHMARK_CAPTURE(PerUlsCase, box, Shape::hollowBox);

// The ACI section without phi: what the reduction costs is the ratio to rectangle_aci above.
void PerNominalCase(benchmark::State& state) {
  const Subject& subject = SubjectOf(Shape::aciRectangle);
  for (auto _ : state) {
    for (const Vec3<double>& load : subject.loads) {
      benchmark::DoNotOptimize(VlSol::SolveUlsLoad(subject.section, load));
    }
  }
  state.SetItemsProcessed(state.iterations() * kPlanes);
}
BENCHMARK(PerNominalCase);

// Service loads: four tenths of the ultimate ones, about half of them crack the section.
void PerSlsCase(benchmark::State& state, Shape shape) {
  const Subject& subject = SubjectOf(shape);
  for (auto _ : state) {
    for (const Vec3<double>& load : subject.loads) {
      benchmark::DoNotOptimize(VlSol::SolveSlsLoad(subject.service, 0.4 * load));
    }
  }
  state.SetItemsProcessed(state.iterations() * kPlanes);
}
BENCHMARK_CAPTURE(PerSlsCase, rectangle, Shape::rectangle);
BENCHMARK_CAPTURE(PerSlsCase, box, Shape::hollowBox);

void SolveTask(benchmark::State& state, Shape shape) {
  CVelmoData document = DocumentOf(shape);
  const int count = static_cast<int>(state.range(0));
  AddCases(document, count);
  for (auto _ : state) VlSol::Solver::SolveTask(document, document.getSection(0), 0);
  state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK_CAPTURE(SolveTask, rectangle, Shape::rectangle)->Arg(10'000)->UseRealTime();
BENCHMARK_CAPTURE(SolveTask, box, Shape::hollowBox)->Arg(10'000)->UseRealTime();

// The yardstick: what a script does, one strain plane on the cells, without bars.
void FibreGridPlane(benchmark::State& state, Shape shape) {
  const Subject& subject = SubjectOf(shape);
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
BENCHMARK_CAPTURE(FibreGridPlane, rectangle, Shape::rectangle);
BENCHMARK_CAPTURE(FibreGridPlane, box, Shape::hollowBox);

}  // namespace
}  // namespace Orlix::Bench

BENCHMARK_MAIN();
