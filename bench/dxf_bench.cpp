// The whole import of generated drawings, from a stream in memory, beside a scan of the same stream
// by lines and, where it is installed, beside dxflib putting the same shapes into vectors.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "bench/drawings.h"
#include "dxf_import/DxfSectionImporter.h"

#ifdef VELMO_BENCH_DXFLIB
#include <dxflib/dl_creationadapter.h>
#include <dxflib/dl_dxf.h>
#endif

namespace Orlix::Bench {
namespace {

using dxf_import::DxfSectionImporter;

constexpr const char* kKinds[] = {"bars",        "outline", "other sections",
                                  "unsupported", "mixed",   "outline and bars"};

/// Runs `read` on the drawing; arguments are its kind and its lines.
template <class Read>
void Measure(benchmark::State& state, Read read) {
  const std::string text =
      DrawingOf(static_cast<DrawingKind>(state.range(0)), static_cast<int>(state.range(1)));
  std::stringstream stream(text);
  for (auto _ : state) {
    stream.clear();
    stream.seekg(0);
    if (!read(stream)) state.SkipWithError("the drawing was not read");
  }
  state.SetLabel(kKinds[state.range(0)]);
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void Import(benchmark::State& state) {
  Measure(state, [](std::stringstream& stream) {
    return DxfSectionImporter::ImportFromStream(stream).success;
  });
}

void ScanLines(benchmark::State& state) {
  Measure(state, [](std::stringstream& stream) {
    std::string line;
    std::size_t bytes = 0;
    while (std::getline(stream, line)) bytes += line.size();
    return bytes > 0;
  });
}

#ifdef VELMO_BENCH_DXFLIB
class Shapes : public DL_CreationAdapter {
 public:
  void addCircle(const DL_CircleData& c) override {
    circles_.push_back({{c.cx, c.cy, c.cz}, c.radius, attributes.getLayer()});
  }
  void addPolyline(const DL_PolylineData&) override {
    polygons_.push_back({{}, attributes.getLayer(), true});
  }
  void addVertex(const DL_VertexData& v) override {
    if (!polygons_.empty()) polygons_.back().vertices.push_back({v.x, v.y, v.z});
  }
  bool HasOutline() const { return !polygons_.empty(); }

 private:
  std::vector<dxf_import::Circle> circles_;
  std::vector<dxf_import::Polygon> polygons_;
};

void Dxflib(benchmark::State& state) {
  Measure(state, [](std::stringstream& stream) {
    DL_Dxf reader;
    Shapes shapes;
    return reader.in(stream, &shapes) && shapes.HasOutline();
  });
}
#endif

void Drawings(benchmark::internal::Benchmark* benchmark) {
  benchmark->ArgNames({"kind", "lines"})->Unit(benchmark::kMillisecond);
  for (int kind = 0; kind <= static_cast<int>(DrawingKind::outlineAndBars); ++kind) {
    benchmark->Args({kind, 1'000'000});
  }
}

void LargeDrawings(benchmark::internal::Benchmark* benchmark) {
  Drawings(benchmark);
  for (int kind = 0; kind <= static_cast<int>(DrawingKind::outlineAndBars); ++kind) {
    benchmark->Args({kind, 5'000'000});
  }
}

BENCHMARK(Import)->Apply(LargeDrawings);
BENCHMARK(ScanLines)->Apply(Drawings);
#ifdef VELMO_BENCH_DXFLIB
BENCHMARK(Dxflib)->Apply(Drawings);
#endif

}  // namespace
}  // namespace Orlix::Bench

BENCHMARK_MAIN();
