// Time of a diagram of about 100 points, without documents; run the release build.

#include <benchmark/benchmark.h>

#include <cstddef>

#include "cli/bench_sections.h"
#include "model/vldata/response/SectionCompiler.h"
#include "model/vlsol/diagrams/diagrams.h"
#include "model/vlsol/strength_reduction/strength_reduction.h"

namespace Orlix::Bench {
namespace {

using VlSol::DiagramKind;

void PerDiagram(benchmark::State& state, const Data::CVelmoData& document, DiagramKind kind,
                double angle) {
  const auto& described = document.Section(0);
  const auto compiled = Data::Velmo9::SectionCompiler::Compile(
      document, described, 0, Data::Velmo9::SectionState::ultimate);
  const auto reduction = VlSol::StrengthReductionOf(document, described, 0, compiled->section);
  VlSol::DiagramRequest request;
  request.kind = kind;
  request.angle = angle;
  request.axial = 0.1 * compiled->section.mostCompression;
  std::size_t points = 0;
  for (auto _ : state) {
    const VlSol::Diagram diagram =
        VlSol::DiagramOf(compiled->section, request, reduction ? &*reduction : nullptr);
    points = diagram.nominal.size() + diagram.design.size();
    benchmark::DoNotOptimize(points);
  }
  state.counters["points"] = static_cast<double>(points);
}

constexpr double kOblique = 0.5;

void Rectangle(benchmark::State& state, DiagramKind kind, double angle) {
  PerDiagram(state, RectangleDocument(), kind, angle);
}
void AciRectangle(benchmark::State& state, DiagramKind kind, double angle) {
  PerDiagram(state, AciRectangleDocument(), kind, angle);
}
void HollowBox(benchmark::State& state, DiagramKind kind, double angle) {
  PerDiagram(state, HollowBoxDocument(), kind, angle);
}

#define VELMO_BENCH_DIAGRAMS(Section)                                        \
  BENCHMARK_CAPTURE(Section, nm, DiagramKind::axialMoment, 0.0);             \
  BENCHMARK_CAPTURE(Section, nmOblique, DiagramKind::axialMoment, kOblique); \
  BENCHMARK_CAPTURE(Section, mm, DiagramKind::biaxialMoment, 0.0);           \
  BENCHMARK_CAPTURE(Section, mkOblique, DiagramKind::momentCurvature, kOblique)
VELMO_BENCH_DIAGRAMS(Rectangle);
VELMO_BENCH_DIAGRAMS(AciRectangle);
VELMO_BENCH_DIAGRAMS(HollowBox);

}  // namespace
}  // namespace Orlix::Bench

BENCHMARK_MAIN();
