#include "reports/csv/CsvBuilder.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <fstream>
#include <limits>
#include <locale>
#include <sstream>
#include <stdexcept>

#include "app/test/Column.h"
#include "model/oxutil/json.h"

namespace Orlix::Velmo {
namespace {

using Lines = std::vector<std::string>;
using Records = std::vector<Data::Velmo9::CaseULSDetails>;

constexpr double kInf = std::numeric_limits<double>::infinity();

// Takes its ULS records from the test.
class FedBuilder : public CsvBuilder {
 public:
  using CsvBuilder::CsvBuilder;

  std::vector<ULSCaseInformation> GenerateULSResults(int iSec, int iTask,
                                                     const std::vector<int>&) override {
    std::vector<ULSCaseInformation> list;
    for (const auto& record : records) {
      list.push_back({{iSec, iTask, static_cast<int>(list.size())}, record});
    }
    return list;
  }

  Records records;
};

class CsvBuilderTest : public testing::Test {
 protected:
  CsvBuilderTest() : builder(app) { AddColumn(*app.pData()); }

  // The lines of the report behind the units.
  Lines Tables(const std::vector<int>& cases, const CsvOptions& options) {
    const Lines& lines = builder.BuildCaseDetails(0, 0, cases, options);
    return {lines.begin() + 14, lines.end()};
  }

  VelmoApp app;
  FedBuilder builder;
};

TEST_F(CsvBuilderTest, FailedCasesAreListedAsRangesOfThreeAndMore) {
  const std::pair<std::vector<int>, const char*> kCases[] = {
      {{1, 2}, "1,2,"},
      {{1, 2, 3}, "1 to 3,"},
      {{4}, "4,"},
      {{2, 3, 4, 5, 8, 9}, "2 to 5,8,9,"},
      {{1, 3, 4, 5, 7, 8, 10}, "1,3 to 5,7,8,10,"}};
  const std::vector<int> all = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
  CsvOptions sls;
  sls.sls.crackResultsPerFace = true;  // part of another table that is not wanted
  for (const auto& [failed, line] : kCases) {
    builder.records.assign(10, {});
    for (auto& record : builder.records) record.status = true;
    for (const int n : failed) builder.records[static_cast<std::size_t>(n - 1)].status = false;
    const Lines lines = Tables(all, sls);
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_EQ(lines[2], "SLS results are not available for the following cases");
    EXPECT_EQ(lines[4], line);
    EXPECT_EQ(Tables(all, {}), lines);  // the list stays until it is made anew
  }
  builder.records.assign(2, {});
  EXPECT_EQ(Tables({9, 4}, CsvOptions(true)).at(4), "10,5,");  // in their order, no SLS table
}

TEST_F(CsvBuilderTest, EnvelopesOfThreeCasesAndMoreRepeatTheFirstExtremeRow) {
  const auto table = [this](std::initializer_list<double> utilisations) {
    builder.records.clear();
    for (const double u : utilisations) builder.records.emplace_back().loadUtilisation = u;
    CsvOptions options;
    options.uls.appliedLoad = true;
    const Lines lines = Tables({}, options);
    return Lines(lines.begin() + 5, lines.end());
  };
  EXPECT_EQ(table({}), Lines());
  EXPECT_EQ(table({1, 2}).size(), 2U);
  EXPECT_EQ(
      table({0.5, 0.75, 0.75, 0.5}),
      Lines({"1,1,1,0,0,0,50", "1,1,2,0,0,0,75", "1,1,3,0,0,0,75", "1,1,4,0,0,0,50",
             "Maximum utilisation", "1,1,2,0,0,0,75", "Minimum utilisation", "1,1,1,0,0,0,50"}));
  EXPECT_EQ(table({-kInf, 0.1, kInf}).at(4), "1,1,3,0,0,0,inf");
}

TEST_F(CsvBuilderTest, NeutralAxisIsThatOfThePlaneAndUnguardedWithoutCurvature) {
  const std::pair<Vec3<double>, const char*> kPlanes[] = {
      {{0.001, 0.01, 0.0}, "1,10,0,0,-0.1"},
      {{-0.002, 0.0, 0.02}, "-2,0,20,90,0.1"},
      {{-0.002, -0.02, 0.0}, "-2,-20,0,180,0.1"},
      {{0.001, 4e-11, -3e-11}, "1,4e-08,-3e-08,-36.8699,-2e+07"},  // no tolerance
      {{-0.001, 0.0, 0.0}, "-1,0,0,0,inf"},
      {{0.0, -0.0, 0.0}, "0,0,0,0,nan"}};
  CsvOptions options;
  options.uls.failureDeformation = true;
  for (const auto& [plane, text] : kPlanes) {
    builder.records.assign(1, {});
    builder.records[0].deformationAtFailure = Data::Velmo9::Deformation(plane);
    EXPECT_EQ(Tables({0}, options).at(5), std::string("1,1,1,") + text);
  }
}

TEST_F(CsvBuilderTest, StressTablesQuoteGradesAndDashWhatIsNotCalculated) {
  Data::Velmo9::PointULSResult point;
  point.position = {0.5, std::numeric_limits<double>::quiet_NaN()};
  point.grade = L"C30, \"own\"\n";
  point.materialType = L"concrete";
  builder.records.resize(1);
  builder.records[0].pointResults[1] = {point, point, point};
  for (std::size_t i = 0; i < 3; ++i) {
    builder.records[0].pointResults[1][i].stress = i == 0 ? kInf : -1e6 * static_cast<double>(i);
  }
  CsvOptions options;
  options.uls.stressStrainProfile = true;
  const Lines lines = Tables({0}, options);
  const std::string start = "1,1,1,2,concrete,\"C30, \"\"own\"\" \",0.5,-,";
  ASSERT_EQ(lines.size(), 16U);
  EXPECT_EQ(lines[5], start + "-,0");
  EXPECT_EQ(lines[8], "Maximum stress");
  EXPECT_EQ(lines[9], start + "-1,0");
  EXPECT_EQ(lines[11], start + "-2,0");
  EXPECT_EQ(lines[15], start + "-,0");  // strains are alike: the first
}

TEST_F(CsvBuilderTest, WhatIsNotThereIsOutOfRangeAndLeavesNoLines) {
  const CsvOptions sls(true);
  EXPECT_EQ(builder.BuildCaseDetails(0, 0, {}, {}).size(), 14U);
  for (const auto& [iSec, iTask] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) {
    EXPECT_THROW(builder.BuildCaseDetails(iSec, iTask, {0}, sls), std::out_of_range);
  }
  EXPECT_THROW(builder.BuildCaseDetails(0, 0, {0}, sls), std::out_of_range);  // no record for it
  EXPECT_THROW(builder.HasBS8110TensionModel(-1), std::out_of_range);
  builder.SaveFile(testing::TempDir() + "csv_none");
  EXPECT_EQ(std::ifstream(testing::TempDir() + "csv_none").peek(), EOF);
}

TEST_F(CsvBuilderTest, ServiceabilityTasksHaveServiceabilityTables) {
  auto& task = app.pData()->getSection(0).Task(0);
  task.SetLimitStates(false, true);
  task.addCase({"", {-5e5, 5e3, 0.0}});
  app.SolveTask(app.pData()->getSection(0), 0);
  CsvBuilder real(app);
  CsvOptions options;
  options.sls.appliedLoad = true;
  EXPECT_EQ(real.BuildCaseDetails(0, 0, {0}, options).back(), "1,1,1,-500,5,0");
  EXPECT_EQ(real.BuildCaseDetails(0, 0, {7}, options).back(), "8,");  // there is no such case
  const auto records = real.GenerateSLSResults(0, 0, {0}, real.GenerateULSResults(0, 0, {0}));
  EXPECT_FALSE(records.at(0).details.pointResults.empty());  // though the report shows none
}

TEST_F(CsvBuilderTest, StrainUnitsAreWords) {
  const std::pair<const wchar_t*, std::string> kUnits[] = {
      {L"‰", "per mille"}, {L"mε", "mille-epsilon"}, {L"με", "micro-epsilon"}};
  for (const auto& [unit, word] : kUnits) {
    Data::CUnit units;
    ASSERT_TRUE(units.SetUnitString(Dimension::strain, unit));
    units.SetUnitString(Dimension::length, L"mm");
    app.pData()->SetUnits(units);
    const Lines& lines = builder.BuildCaseDetails(0, 0, {}, {});
    EXPECT_EQ(lines.at(8), "Curvature," + word + "/mm");
    EXPECT_EQ(lines.at(12), "Strain," + word);
  }
}

TEST_F(CsvBuilderTest, OptionsAreNamesWithANumber) {
  const struct {
    const char* json;
    bool ULSOptions::*uls;
    bool SLSOptions::*sls;
  } kCases[] = {{R"({"varName": "appliedLoad", "id": 49})", &ULSOptions::appliedLoad, nullptr},
                {R"({"varName": "appliedLoad", "id": 50})", nullptr, &SLSOptions::appliedLoad},
                {R"({"varName": "failureLoad", "id": 60})", &ULSOptions::failureLoad, nullptr},
                {R"({"varName": "stiffness", "id": -1})", nullptr, &SLSOptions::stiffness},
                {R"({"varName": "Stiffness", "id": 1})", nullptr, nullptr},
                {R"({"varName": "stiffness\u0000", "id": 1})", nullptr, nullptr},
                {R"({"varName": "stiffness", "id": 1.5})", nullptr, nullptr},
                {R"({"varName": 1, "id": 1}, 7, null, [])", nullptr, nullptr}};
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.json);
    Util::JsonDocument json;
    std::string error;
    ASSERT_TRUE(Util::ParseJson("[" + std::string(c.json) + "]", json, error)) << error;
    CsvOptions options = CsvBuilder::GetCsvOptions(json);
    EXPECT_EQ(options.IsAnyULSOptionSelected(), c.uls != nullptr);
    EXPECT_EQ(options.IsAnySLSOptionSelected(), c.sls != nullptr);
    EXPECT_TRUE(c.uls == nullptr || options.uls.*c.uls);
    EXPECT_TRUE(c.sls == nullptr || options.sls.*c.sls);
  }
}

// A locale in which numbers and wide streams behave differently.
struct CommaPunct : std::numpunct<wchar_t> {
  wchar_t do_decimal_point() const override { return L','; }
  std::string do_grouping() const override { return "\1"; }
};

TEST_F(CsvBuilderTest, FilesAreUtf8InEveryLocale) {
  const std::string path = testing::TempDir() + "csv_locale";
  const Lines& lines = builder.BuildCaseDetails(0, 0, {}, {});
  std::string expected;
  for (const std::string& line : lines) expected += line + "\n";
  ASSERT_NE(expected.find("Area,m²\n"), std::string::npos);
  for (const std::locale& locale :
       {std::locale::classic(), std::locale(std::locale::classic(), new CommaPunct)}) {
    const std::locale before = std::locale::global(locale);
    builder.SaveFile(path);
    std::locale::global(before);
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    EXPECT_EQ(bytes.str(), expected);
  }
  EXPECT_THROW(builder.SaveFile(testing::TempDir() + "no/folder/r.csv"), std::runtime_error);
}

}  // namespace
}  // namespace Orlix::Velmo
