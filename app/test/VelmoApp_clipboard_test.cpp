#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "app/VelmoApp.h"
#include "app/test/Column.h"
#include "model/oxutil/json.h"
#include "model/oxutil/text.h"

namespace Orlix {
namespace {

using Data::Velmo9::AnalysisTask;
using Rows = std::vector<std::vector<std::string>>;

constexpr const char* kAll =
    R"({"start": {"case": 0, "col": 0}, "end": {"case": 2147483647, "col": 2147483647}})";

// As a spreadsheet reads it.
Rows Pasted(const std::string& text) {
  Rows rows;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    auto& cells = rows.emplace_back();
    std::istringstream fields(line + '\t');
    for (std::string cell; std::getline(fields, cell, '\t');) cells.push_back(cell);
  }
  return rows;
}

std::optional<std::string> TaskData(const VelmoApp& app, const std::string& range,
                                    const std::string& options = R"({"uls": true, "sls": true})",
                                    int iTask = 0) {
  Util::JsonDocument json;
  std::string error;
  EXPECT_TRUE(Util::ParseJson(R"({"iSec": 0, "iTask": )" + std::to_string(iTask) +
                                  R"(, "range": )" + range + R"(, "options": )" + options + "}",
                              json, error))
      << error;
  std::string text = "before";
  if (app.CopyTaskData(json, text)) return text;
  EXPECT_EQ(text, "before");
  return std::nullopt;
}

VelmoApp Column(bool uls, bool sls, LoadAction action, const std::vector<Vec3<double>>& inputs) {
  VelmoApp app;
  AnalysisTask& task = AddColumn(*app.pData()).Task(0);
  task.SetLimitStates(uls, sls);
  task.SetAction(action);
  for (const Vec3<double>& input : inputs) task.addCase({"", input});
  return app;
}

std::string Cell(const Rows& rows, const std::string& title, std::size_t iCase) {
  for (std::size_t i = 0; i < rows[0].size(); ++i) {
    if (rows[0][i] == title) return rows[iCase + 2][i];
  }
  ADD_FAILURE() << "there is no column " << title;
  return "";
}

TEST(VelmoAppClipboard, EveryCellHasTheValueOfItsTitle) {
  VelmoApp app =
      Column(true, true, LoadAction::load, {{-1e6, 120e3, 30e3}, {-5e6, 0, 0}, {-100e3, 60e3, 0}});
  app.SolveTask(app.pData()->getSection(0), 0);
  const Rows rows = Pasted(TaskData(app, kAll).value());
  ASSERT_EQ(rows.size(), 5u);
  for (const auto& row : rows) EXPECT_EQ(row.size(), rows[0].size());
  // Of docs/facade-json.md in display units, to six digits.
  const std::map<std::string, std::string> kCells[] = {{{"Case", "1"},
                                                        {"N", "-1000"},
                                                        {"ULS failure N", "-1771.45"},
                                                        {"ULS eps0", "-0.328373"},
                                                        {"ULS NA angle", "38.8455"},
                                                        {"ULS NA offset", "109.016"},
                                                        {"ULS failure kzz", "6.37935"},
                                                        {"ULS load utilisation", "0.564508"},
                                                        {"ULS deformation utilisation", "0.342361"},
                                                        {"ULS status", "carried"},
                                                        {"ULS M/Mu", "0.544459"},
                                                        {"ULS concrete min stress", "-16.7861"},
                                                        {"ULS bar max strain", "0.329754"}},
                                                       {{"ULS status", "not carried"},
                                                        {"ULS load utilisation", "1.43781"},
                                                        {"ULS M/Mu", "-"},
                                                        {"ULS eps0", "-"},
                                                        {"ULS deformation utilisation", "-"},
                                                        {"ULS concrete max stress", "-"}},
                                                       {{"SLS cracked kyy", "2.34739"},
                                                        {"SLS uncracked NA offset", "36.0289"},
                                                        {"SLS eps0", "0.112316"},
                                                        {"SLS zeta", "0.418183"},
                                                        {"SLS EA", "-890342"},
                                                        {"SLS EIyy", "46293.2"},
                                                        {"SLS EIzz", "-"},
                                                        {"SLS crack width", "0.155596"},
                                                        {"SLS state", "cracked"},
                                                        {"SLS cracked bar max stress", "153.03"}}};
  for (std::size_t iCase = 0; iCase < 3; ++iCase) {
    for (const auto& [title, text] : kCells[iCase])
      EXPECT_EQ(Cell(rows, title, iCase), text) << title;
  }
}

TEST(VelmoAppClipboard, DeformationsHaveTheLoadsThatAnswerThem) {
  VelmoApp app =
      Column(true, true, LoadAction::deformation, {{-0.0005, 0.004, 0}, {0.0002, 0.002, 0.001}});
  app.SolveTask(app.pData()->getSection(0), 0);
  const Rows rows = Pasted(TaskData(app, kAll).value());
  EXPECT_EQ(Cell(rows, "eps0", 0), "-0.5");
  EXPECT_EQ(Cell(rows, "ULS N", 0), "-1380.26");
  EXPECT_EQ(Cell(rows, "ULS NA offset", 0), "125");
  EXPECT_EQ(Cell(rows, "SLS NA angle", 1), "26.5651");
  EXPECT_EQ(Cell(rows, "SLS uncracked N", 1), "1027.11");
  EXPECT_EQ(Cell(rows, "SLS cracked Mzz", 1), "13.3893");
}

TEST(VelmoAppClipboard, CasesWithoutResultsHaveTheirInputsOnly) {
  VelmoApp app = Column(true, true, LoadAction::load, {{-1e6, 0, 0}, {-2e6, 0, 0}});
  const auto expectInputsOnly = [&app] {
    const Rows rows = Pasted(TaskData(app, kAll).value());
    for (const std::size_t row : {2u, 3u}) {
      EXPECT_EQ(rows[row][1], row == 2 ? "-1000" : "-2000");
      for (std::size_t i = 4; i < rows[row].size(); ++i) EXPECT_EQ(rows[row][i], "-") << rows[0][i];
    }
  };
  expectInputsOnly();  // not solved
  app.SolveTask(app.pData()->getSection(0), 0);
  EXPECT_EQ(Cell(Pasted(TaskData(app, kAll).value()), "ULS status", 0), "carried");
  app.pData()->SetOptions({.deductDisplacedConcrete = false});
  expectInputsOnly();  // solved before the model changed
}

// Uniform compression, where both states of the concrete have the same plane.
TEST(VelmoAppClipboard, OnlyMeaningfulServiceStatesAreShown) {
  const struct {
    Data::Design::CurveKind model;
    bool uncracked;
    bool cracked;
  } kCases[] = {{Data::Design::CurveKind::interpolated, true, true},
                {Data::Design::CurveKind::bs8110Tension, false, true},
                {Data::Design::CurveKind::linear, true, false}};
  for (const auto& c : kCases) {
    VelmoApp app = Column(false, true, LoadAction::load, {{-1e6, 0, 0}});
    Data::Materials& materials = *app.pData()->getMaterials();
    Data::Design::CurveShape shape;
    shape.kind = c.model;
    materials.Grade(MatType::concrete, materials.Find(MatType::concrete, L"C30/37"))
        .SetShape(LoadState::SLS, LoadSign::tension, shape);
    app.SolveTask(app.pData()->getSection(0), 0);
    const Rows rows = Pasted(TaskData(app, kAll).value());
    for (const std::string title : {"eps0", "concrete min stress"}) {
      EXPECT_EQ(Cell(rows, "SLS uncracked " + title, 0) != "-", c.uncracked) << title;
      EXPECT_EQ(Cell(rows, "SLS cracked " + title, 0) != "-", c.cracked) << title;
    }
    EXPECT_NE(Cell(rows, "SLS eps0", 0), "-");
  }
}

TEST(VelmoAppClipboard, RangesAreCutToTheTable) {
  const VelmoApp app = Column(true, false, LoadAction::load, {{-1e6, 0, 0}, {-2e6, 0, 0}});
  const auto range = [](const std::string& from, const std::string& to) {
    return R"({"start": {)" + from + R"(}, "end": {)" + to + "}}";
  };
  const struct {
    std::string range;
    std::string text;
  } kCases[] = {
      {range(R"("case": 1, "col": 1)", R"("case": 1, "col": 2)"), "N\tMyy\nkN\tkNm\n-2000\t0\n"},
      {range(R"("case": -5, "col": -5)", R"("case": 2147483647, "col": 0)"), "Case\n\n1\n2\n"},
      {range(R"("case": 1, "col": 0)", R"("case": 0, "col": 1)"), "Case\tN\n\tkN\n"},
      {range(R"("case": 0, "col": 3)", R"("case": 0, "col": 2)"), ""},
      {range(R"("case": 7, "col": 0)", R"("case": 9, "col": 0)"), "Case\n\n"},
  };
  for (const auto& c : kCases) EXPECT_EQ(TaskData(app, c.range), c.text) << c.range;
}

TEST(VelmoAppClipboard, RequestsOfAnotherFormAreRefused) {
  const VelmoApp app = Column(true, false, LoadAction::load, {{-1e6, 0, 0}});
  EXPECT_FALSE(TaskData(app, kAll, "true"));
  EXPECT_FALSE(TaskData(app, kAll, "{}", 1));
  EXPECT_FALSE(TaskData(app, kAll, "{}", -1));
  for (const char* range :
       {"[]", R"({"start": {"case": 0, "col": 0}})",
        R"({"start": {"case": 0, "col": 0}, "end": {"case": 0.5, "col": 0}})",
        R"({"start": {"case": 0, "col": 0}, "end": {"case": 4294967296, "col": 0}})"}) {
    EXPECT_FALSE(TaskData(app, range)) << range;
  }
  std::string text;
  EXPECT_FALSE(app.CopyTaskData(Util::JsonValue(3), text));
}

}  // namespace
}  // namespace Orlix
