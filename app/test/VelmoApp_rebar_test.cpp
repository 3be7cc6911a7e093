#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <filesystem>
#include <string>

#include "app/VelmoApp.h"
#include "app/test/Column.h"
#include "model/oxutil/json.h"
#include "model/oxutil/text.h"

namespace Orlix {
namespace {

using Data::CBar;
using Data::Reinforcement;

// A column whose bars are described: the lengths of the second have no unit.
class DescribedBars : public testing::Test {
 protected:
  DescribedBars() {
    Reinforcement described;
    described.descriptions = {{L"3B20 top cover 40mm"}, {L"B16@100 bottom cover 42"}};
    AddColumn(*app.pData());
    Set(described);
    app.generateRebar(app.pData()->getSection(0));
    EXPECT_EQ(Bars().bars.size(), 6U);
  }

  void Set(const Reinforcement& bars) {
    app.pData()->getSection(0).Components()[0].Concrete().SetReinforcement(bars);
  }
  const Reinforcement& Bars() const {
    return app.pData()->Section(0).Components()[0].Concrete().GetReinforcement();
  }
  std::string Text(std::size_t description) const {
    return to_string(Bars().descriptions[description].text);
  }

  VelmoApp app;
};

TEST_F(DescribedBars, AreMadeAgainWhenADocumentIsOpenedAndNeverWritten) {
  const auto path = std::filesystem::temp_directory_path() / "velmo_described_bars.json";
  Reinforcement bars = Bars();
  bars.bars.insert(bars.bars.begin(), CBar({0.0, 0.1}, 0.012, 1e-4, 0));
  Set(bars);
  app.Save(path, false);
  VelmoApp opened;
  std::string message;
  EXPECT_TRUE(opened.Open(path, message).opened);
  std::filesystem::remove(path);
  EXPECT_EQ(opened.pData()->Section(0).Components()[0].Concrete().GetReinforcement(), bars);
  EXPECT_EQ(opened.fileString(false), app.fileString(false));
  EXPECT_EQ(app.fileString(false).find(L"\"y\": -0.1"), std::wstring::npos);
}

TEST_F(DescribedBars, StayWhereTheyAreWhenTheUnitChanges) {
  const Reinforcement before = Bars();
  Util::JsonDocument json;
  std::string error;
  ASSERT_TRUE(Util::ParseJson(R"({"sectionDims": {"label": "in"}})", json, error));
  app.setUnits(json);
  EXPECT_EQ(Text(0), "3B20 top cover 40mm");
  EXPECT_EQ(Text(1), "B16@100 bottom cover 42 [mm]");
  app.updateSections(false, L"");
  EXPECT_EQ(Bars().bars, before.bars);
}

TEST_F(DescribedBars, TakeTheGradeOfTheirLetterWhenAsked) {
  const int other = app.pData()->getMaterials()->Find(MatType::reinforcement, L"B500A");
  Reinforcement bars = Bars();
  for (Data::BarDescription& description : bars.descriptions) description.grade = other;
  Set(bars);
  app.updateSections(false, L"");
  EXPECT_EQ(Bars().bars.front().Grade(), other);
  app.updateSections(true, L"");
  EXPECT_EQ(to_string(app.pData()->GetRebarHelper().Name(Bars().bars.front().Grade())), "B500B");
  EXPECT_EQ(Bars().descriptions[1].grade, Bars().bars.front().Grade());
}

TEST_F(DescribedBars, AreNamedBeforeASolutionWithWhatIsWrong) {
  const int grade = Bars().bars.front().Grade();
  const auto point = [&](double y, double z) { return CBar({y, z}, 0.02, 3.14e-4, grade); };
  const struct {
    const char* description;
    std::vector<CBar> bars;
    std::string message;
  } kCases[] = {
      {"3B20 top cover 40mm", {}, ""},
      {"3B20 top cover 40mm", {point(0.2, 0)}, "Component 1, bar 1 lies outside the section."},
      {"3B20 top cover 40mm",
       {point(0.0, 0), point(0.145, 0), point(0.145, 0.1)},
       "Component 1, bars 2 and 3 reach out of the section."},
      {"3B20 top cover 40mm", {point(0.0, 0.195)}, "Component 1, bars 1 and 3 overlap."},
      {"2B20 line (0, 0) (200mm, 0)",
       {},
       "Component 1, bar 2 of bar description 1 lies outside the section."},
      {"2B20 bottom cover 145mm",
       {},
       "Component 1, bar description 1: the cover does not fit: a bar is 10 mm too near to a "
       "face.Component 1, bars 1 and 2 overlap."},
      {"3B20 cover 40mm",
       {},
       "Component 1, bar description 1: it has 3 bars for 4 corners: every corner needs one."},
      {"3B20 top cover 40mm",
       {CBar({0, 0}, 0.0, 0.15, grade)},
       "Component 1 has more bars (150942 mm²) than concrete (150000 mm²)."},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.description);
    Reinforcement reinforcement;
    reinforcement.bars = c.bars;
    reinforcement.descriptions = {{cstr(c.description), grade}};
    Set(reinforcement);
    app.generateRebar(app.pData()->getSection(0));
    std::vector<std::string> messages;
    EXPECT_EQ(app.preSolutionChecksPassed(messages, 0, 0), c.message.empty());
    std::string all;
    for (const std::string& message : messages) all += message;
    EXPECT_EQ(all, c.message);
  }
}

}  // namespace
}  // namespace Orlix
