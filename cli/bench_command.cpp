#include <sys/resource.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iostream>
#include <limits>
#include <memory>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#ifdef _OPENMP
#include <omp.h>
#endif

#include "app/VelmoApp.h"
#include "app/case_results_text.h"
#include "cli/TextTable.h"
#include "cli/bench_sections.h"
#include "cli/commands.h"
#include "cli/interrupt.h"
#include "cli/option_checks.h"
#include "model/oxutil/StringFrom.h"
#include "model/oxutil/json.h"
#include "model/vlsol/Solver.h"

namespace Orlix::Cli {

namespace {

struct Arguments {
  std::string section;
  int cases{10'000};
  int threads{};
  int bars{24};
  int vertices{48};
  bool json{};
};

constexpr const char* kExample = R"(Example:
  velmo bench --cases 2000
  velmo bench --section polygon --vertices 200 --bars 100 --cases 2000 --threads 2 --json

Solves the same load cases of built-in sections at both limit states and makes their JSON. The time
of a case is that of the wall clock over the number of cases; the rest of the machine should be
idle. Memory is the most that the program has had so far, in MB.)";

/// Time of one stage.
struct Stage {
  const char* name;
  double seconds;
};

/// A section, and what its cases took.
struct Measured {
  std::string section;
  std::size_t vertices{};
  std::size_t bars{};
  std::vector<Stage> stages;
  double memory{};  ///< the program's peak [MB]
};

double SecondsOf(const std::function<void()>& work) {
  ThrowIfInterrupted();
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double PeakMemory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

int SetThreads(int threads) {
#ifdef _OPENMP
  if (threads > 0) omp_set_num_threads(threads);
  return omp_get_max_threads();
#else
  static_cast<void>(threads);
  return 1;
#endif
}

Data::CVelmoData DocumentOf(const std::string& section, const Arguments& arguments) {
  if (section == "rectangle") return Bench::RectangleDocument();
  if (section == "box") return Bench::HollowBoxDocument();
  return Bench::PolygonDocument(arguments.vertices, arguments.bars);
}

Measured Measure(const std::string& name, const Arguments& arguments) {
  VelmoApp app;
  *app.pData() = DocumentOf(name, arguments);
  // Half of what spreads over the whole capacity: most cases are carried, about half of them crack.
  Bench::AddCases(*app.pData(), arguments.cases, 0.5);
  Data::Velmo9::VelmoSection& section = app.pData()->getSection(0);
  Data::Velmo9::AnalysisTask& task = section.Task(0);

  Measured measured;
  measured.section = name;
  const Data::CSecComp& component = section.Components().front();
  for (const auto& polygon : component.Geometry().Polygons(0.0)) {
    measured.vertices += polygon.outline.size();
    for (const auto& hole : polygon.holes) measured.vertices += hole.size();
  }
  measured.bars = component.Concrete().Bars().size();

  VlSol::SolveOptions options;
  options.progress = [](std::size_t, std::size_t) { return !IsInterrupted(); };
  const auto solve = [&](bool uls, bool sls) {
    task.SetLimitStates(uls, sls);
    return SecondsOf([&] {
      if (!app.SolveTask(section, 0, options)) throw Interrupted();
    });
  };
  const double uls = solve(true, false);
  const double sls = solve(false, true);
  const double both = solve(true, true);

  std::vector<int> cases(static_cast<std::size_t>(task.NumCases()));
  std::iota(cases.begin(), cases.end(), 0);
  std::string message;
  const double json = SecondsOf([&] {
    const auto nowhere = [](std::string_view) { ThrowIfInterrupted(); };
    if (!WriteCaseResults(*app.pData(), 0, 0, cases, "", nowhere, message)) {
      throw CommandError(message);
    }
  });
  measured.stages = {{"solve ULS", uls},
                     {"solve SLS", sls},
                     {"results as JSON", json},
                     {"both and JSON", both + json}};
  measured.memory = PeakMemory();
  return measured;
}

void PrintTable(const std::vector<Measured>& all, const Arguments& arguments, int threads) {
  std::cout << arguments.cases << " cases, " << threads
            << (threads == 1 ? " thread\n\n" : " threads\n\n");
  TextTable table;
  table.AddColumn("section", "", TextTable::Align::left);
  for (const char* name : {"vertices", "bars"}) table.AddColumn(name, "");
  table.AddColumn("stage", "", TextTable::Align::left);
  table.AddColumn("time", "s");
  table.AddColumn("a case", "us");
  table.AddColumn("cases", "1/s");
  table.AddColumn("memory", "MB");
  for (const Measured& measured : all) {
    for (const Stage& stage : measured.stages) {
      table.AddRow({measured.section, std::to_string(measured.vertices),
                    std::to_string(measured.bars), stage.name, StringFrom(stage.seconds),
                    StringFrom(stage.seconds / arguments.cases * 1e6),
                    StringFrom(arguments.cases / stage.seconds), StringFrom(measured.memory)});
    }
  }
  table.Print(std::cout);
}

void PrintJson(const std::vector<Measured>& all, const Arguments& arguments, int threads) {
  Util::JsonDocument json;
  Util::JsonAllocator& allocator = json.GetAllocator();
  json.SetArray();
  for (const Measured& measured : all) {
    Util::JsonValue value(rapidjson::kObjectType);
    value.AddMember("section", measured.section, allocator);
    value.AddMember("cases", arguments.cases, allocator);
    value.AddMember("threads", threads, allocator);
    value.AddMember("vertices", static_cast<std::uint64_t>(measured.vertices), allocator);
    value.AddMember("bars", static_cast<std::uint64_t>(measured.bars), allocator);
    Util::JsonValue stages(rapidjson::kObjectType);
    for (const Stage& stage : measured.stages) {
      stages.AddMember(rapidjson::StringRef(stage.name), stage.seconds, allocator);
    }
    value.AddMember("seconds", stages, allocator);
    value.AddMember("memory", measured.memory, allocator);
    json.PushBack(value, allocator);
  }
  std::cout << Util::PrettyJson(json) << '\n';
}

int Run(const Arguments& arguments) {
  const InterruptGuard guard;
  const int threads = SetThreads(arguments.threads);
  std::vector<std::string> sections = {"rectangle", "box", "polygon"};
  if (!arguments.section.empty()) sections = {arguments.section};
  std::vector<Measured> all;
  for (const std::string& section : sections) all.push_back(Measure(section, arguments));
  if (arguments.json) {
    PrintJson(all, arguments, threads);
  } else {
    PrintTable(all, arguments, threads);
  }
  return kDone;
}

}  // namespace

void AddBenchCommand(CLI::App& program, int& exitCode) {
  auto arguments = std::make_shared<Arguments>();
  CLI::App* command = program.add_subcommand("bench", "Time the program on built-in sections");
  command->footer(kExample);
  command->add_option("--cases", arguments->cases, "Load cases of each section")
      ->check(CLI::Range(1, 10'000'000))
      ->capture_default_str();
  command->add_option("--threads", arguments->threads, "Threads; all processors without it")
      ->check(CLI::Range(1, 1024));
  command->add_option("--section", arguments->section, "One section; all three without it")
      ->check(CLI::IsMember({"rectangle", "box", "polygon"}));
  command->add_option("--vertices", arguments->vertices, "Vertices of the polygon")
      ->check(CLI::Range(3, 10'000))
      ->capture_default_str();
  command->add_option("--bars", arguments->bars, "Bars of the polygon")
      ->check(CLI::Range(0, 10'000))
      ->capture_default_str();
  command->add_flag("--json", arguments->json,
                    "Print JSON: seconds of each stage, peak memory in MB");
  command->callback([arguments, &exitCode] { exitCode = Run(*arguments); });
}

}  // namespace Orlix::Cli
