#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <numeric>
#include <string>
#include <vector>

#include "app/VelmoApp.h"
#include "model/oxutil/json.h"

namespace Orlix {
namespace {

// All results of all tasks, as text to the last digit.
std::vector<std::string> Results(VelmoApp& app) {
  std::vector<std::string> results;
  for (int iSec = 0; iSec < app.pData()->NumSections(); ++iSec) {
    const int numTasks = static_cast<int>(app.pData()->Section(iSec).Tasks().size());
    for (int iTask = 0; iTask < numTasks; ++iTask) {
      std::vector<std::string> problems;
      EXPECT_TRUE(app.preSolutionChecksPassed(problems, iSec, iTask)) << problems[0];
      const int count =
          app.pData()->Section(iSec).Tasks()[static_cast<std::size_t>(iTask)].NumCases();
      std::vector<int> cases(static_cast<std::size_t>(count));
      std::iota(cases.begin(), cases.end(), 0);
      Util::JsonDocument json;
      std::string message;
      EXPECT_TRUE(app.GetCaseResults(iSec, iTask, cases, json, message, true)) << message;
      results.push_back(Util::PrettyJson(json));
    }
  }
  return results;
}

// The twins are written by hand, with bars, grades and angles in other words.
TEST(OlderFormat, DocumentsSolveToTheSameNumbersAsTheirTwins) {
  for (const std::string name : {"examples/round-column", "examples/deck-strip"}) {
    SCOPED_TRACE(name);
    VelmoApp older;
    VelmoApp twin;
    std::string message;
    const auto attributes = older.Open(name + ".velmo", message);
    ASSERT_TRUE(attributes.opened) << message;
    EXPECT_TRUE(attributes.gradesNeedMigration);
    EXPECT_FALSE(older.pData()->IsMigrationOfGradesRequired());
    EXPECT_TRUE(older.pData()->FilePath().empty());
    ASSERT_TRUE(twin.Open(name + ".json", message).opened) << message;
    EXPECT_TRUE(twin.pData()->ReadProblems().empty());
    EXPECT_EQ(older.pData()->Titles(), twin.pData()->Titles());
    EXPECT_EQ(older.pData()->Units(), twin.pData()->Units());
    const auto results = Results(older);
    EXPECT_EQ(results.size(), 3U);
    EXPECT_EQ(results, Results(twin));
  }
}

}  // namespace
}  // namespace Orlix
