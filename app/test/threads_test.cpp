// Threads of the caller's own: documents of their own are solved side by side, and one solved
// document is read by all. The preset tsan runs this under the thread sanitizer, without OpenMP,
// whose barriers that does not know.

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <string>
#include <thread>
#include <vector>

#include "app/VelmoApp.h"
#include "app/test/Column.h"
#include "model/oxutil/json.h"

namespace Orlix {
namespace {

constexpr int kCases = 24;

VelmoApp SolvedColumn() {
  VelmoApp app;
  Data::Velmo9::VelmoSection& section = AddColumn(*app.pData());
  Data::Velmo9::AnalysisTask& task = section.Task(0);
  task.SetLimitStates(true, true);
  for (int i = 0; i < kCases; ++i) task.addCase({"", {-1e5 * i, 8e3 * i, 3e3 * (i % 5)}});
  app.SolveTask(section, 0);
  return app;
}

// All records of a task as JSON text, asked for through the operations that only read.
std::string Records(const VelmoApp& app) {
  std::string text;
  for (int i = 0; i < kCases; ++i) {
    const auto uls = app.CaseULSDetails(0, 0, i, Data::Velmo9::UlsOutputOptions(true), true);
    const auto sls = app.CaseSLSDetails(0, 0, i, Data::Velmo9::SlsOutputOptions(true), true);
    EXPECT_EQ(uls.loadUtilisation > 0.0, i > 0);
    text += std::to_string(uls.loadUtilisation) + ' ' + std::to_string(uls.momentRatio) + ' ' +
            std::to_string(sls.crackWidth) + '\n';
  }
  return text;
}

template <class Work>
std::array<std::string, 4> OnFourThreads(const Work& work) {
  std::array<std::string, 4> texts;
  std::vector<std::thread> threads;
  for (std::string& text : texts) threads.emplace_back([&text, &work] { text = work(); });
  for (std::thread& thread : threads) thread.join();
  return texts;
}

TEST(Threads, SolveDocumentsOfTheirOwnAndReadASharedOne) {
  const VelmoApp app = SolvedColumn();
  const std::string alone = Records(app);
  for (const std::string& text : OnFourThreads([&app] { return Records(app); })) {
    EXPECT_EQ(text, alone);
  }
  for (const std::string& text : OnFourThreads([] { return Records(SolvedColumn()); })) {
    EXPECT_EQ(text, alone);
  }
  // Copies share what they did not change, each on its own thread.
  for (const std::string& text : OnFourThreads([&app] {
         VelmoApp copy = app;
         copy.setCaseInput(0, 0, 0, {1.0, 0.0, 0.0});
         copy.setCaseInput(0, 0, 0, {});
         copy.SolveTask(copy.pData()->getSection(0), 0);
         return Records(copy);
       })) {
    EXPECT_EQ(text, alone);
  }
}

}  // namespace
}  // namespace Orlix
