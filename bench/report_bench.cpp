// What a CSV report costs: records, tables and file, beside the formatting of its numbers alone and
// beside writing the same bytes at once. The section is the hollow box with 36 bars, ULS and SLS.
//
// usage: report_bench [all] [cases]    all: the stress-strain tables, too

#include <sys/resource.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

#include "app/VelmoApp.h"
#include "cli/bench_sections.h"
#include "model/oxutil/StringFrom.h"
#include "reports/csv/CsvBuilder.h"

namespace Orlix::Bench {
namespace {

using Velmo::CsvBuilder;
using Velmo::CsvOptions;
using Lines = std::vector<std::string>;

template <class F>
double Seconds(F f) {
  const auto start = std::chrono::steady_clock::now();
  f();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Most memory that the process ever had [bytes].
double PeakMemory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) * 1024.0;
}

void Row(const char* what, double seconds, double cases, const char* remark = "") {
  std::printf("%-34s %8.3f s %8.2f us/case  %s\n", what, seconds, seconds / cases * 1e6, remark);
}

// Keeps the time of the records and gives the rest of the work to its base.
class TimedBuilder : public CsvBuilder {
 public:
  using CsvBuilder::CsvBuilder;

  std::vector<ULSCaseInformation> GenerateULSResults(int iSec, int iTask,
                                                     const std::vector<int>& cases) override {
    std::vector<ULSCaseInformation> list;
    records += Seconds([&] { list = CsvBuilder::GenerateULSResults(iSec, iTask, cases); });
    return list;
  }
  std::vector<SLSCaseInformation> GenerateSLSResults(
      int iSec, int iTask, const std::vector<int>& cases,
      const std::vector<ULSCaseInformation>& uls) override {
    std::vector<SLSCaseInformation> list;
    records += Seconds([&] { list = CsvBuilder::GenerateSLSResults(iSec, iTask, cases, uls); });
    return list;
  }

  double records{};  ///< [s]
};

// The numbers of a report, as they were before they became text.
std::vector<double> NumbersOf(const Lines& lines) {
  std::vector<double> numbers;
  for (const std::string& line : lines) {
    for (const char* at = line.data(); at < line.data() + line.size(); ++at) {
      double value{};
      const auto read = std::from_chars(at, line.data() + line.size(), value);
      if (read.ec == std::errc()) numbers.push_back(value);
      at = std::find(read.ptr, line.data() + line.size(), ',');
    }
  }
  return numbers;
}

void WriteLines(const Lines& lines, const std::filesystem::path& path, bool isFlushed) {
  std::ofstream stream(path);
  for (const std::string& line : lines) {
    stream << line << '\n';
    if (isFlushed) stream.flush();
  }
}

void Measure(const char* title, CsvOptions options, int count) {
  VelmoApp app;
  *app.pData() = HollowBoxDocument();
  AddCases(*app.pData(), count);
  auto& section = app.pData()->getSection(0);
  section.Task(0).SetLimitStates(true, true);
  app.SolveTask(section, 0);
  std::vector<int> cases(static_cast<std::size_t>(count));
  std::iota(cases.begin(), cases.end(), 0);

  const double before = PeakMemory();
  TimedBuilder builder(app);
  const Lines* lines{};
  const double build = Seconds([&] { lines = &builder.BuildCaseDetails(0, 0, cases, options); });
  const double memory = PeakMemory() - before;
  const std::vector<double> numbers = NumbersOf(*lines);
  std::size_t length = 0;
  const double formatting = Seconds([&] {
    for (const double number : numbers) length += StringFrom(number).size();
  });
  std::string text;
  for (const std::string& line : *lines) text.append(line).append("\n");
  const std::filesystem::path path = std::filesystem::temp_directory_path() / "report_bench.csv";
  const double save = Seconds([&] { builder.SaveFile(path); });
  const double flushed = Seconds([&] { WriteLines(*lines, path, true); });
  const double unflushed = Seconds([&] { WriteLines(*lines, path, false); });
  const double atOnce = Seconds([&] {
    std::ofstream(path, std::ios::binary)
        .write(text.data(), static_cast<std::streamsize>(text.size()));
  });
  std::filesystem::remove(path);

  const auto n = static_cast<double>(count);
  std::printf("%s: %d cases, %zu lines, %.1f MB, %zu numbers of %zu characters\n", title, count,
              lines->size(), static_cast<double>(text.size()) * 1e-6, numbers.size(), length);
  Row("records", builder.records, n, "asked from the facade in blocks");
  Row("tables", build - builder.records, n);
  Row("  formatting their numbers alone", formatting, n);
  Row("SaveFile", save, n);
  Row("  flush after every line", flushed - unflushed, n, "of narrow lines, against none");
  Row("writing the same bytes at once", atOnce, n);
  std::printf("peak memory of the report: %.0f bytes a case, of these text %.0f\n", memory / n,
              static_cast<double>(text.size()) / n);
}

}  // namespace
}  // namespace Orlix::Bench

int main(int argc, char** argv) {
  const bool isAll = argc > 1 && std::string_view(argv[1]) == "all";
  const int at = isAll ? 2 : 1;
  int count = isAll ? 10'000 : 100'000;
  if (argc > at) std::from_chars(argv[at], argv[at] + std::strlen(argv[at]), count);
  if (count < 1) return 2;
  Orlix::Velmo::CsvOptions options(true);
  if (!isAll) {
    options.uls.stressStrainProfile = options.uls.stressStrainRebar = false;
    options.sls.stressStrainProfile = options.sls.stressStrainRebar = false;
  }
  Orlix::Bench::Measure(isAll ? "all tables" : "tables with a row a case", options, count);
  return 0;
}
