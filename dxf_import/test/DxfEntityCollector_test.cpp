#include "dxf_import/DxfEntityCollector.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "dxf_import/test/drawing_text.h"

namespace Orlix::dxf_import {
namespace {

// "type/layer@line: code=value ..."
std::string TextOf(const DxfEntity& entity) {
  std::string text = std::string(entity.type) + '/' + std::string(entity.layer) + '@' +
                     std::to_string(entity.line) + ':';
  for (const DxfTag& tag : entity.tags) {
    text += ' ' + std::to_string(tag.code) + '=' + std::string(tag.value);
  }
  return text;
}

struct Collected {
  DxfUnit units{};
  std::vector<std::string> entities;
  std::vector<DxfDiagnostic> diagnostics;
};

// Both ways of collecting, which must agree.
Collected CollectBothWays(const std::string& words) {
  std::istringstream in(Lines(words));
  DxfTokenizer tokenizer(in);
  const DxfCollectionResult all = DxfEntityCollector::Collect(tokenizer);
  Collected collected{all.units, {}, all.diagnostics};
  for (const DxfEntity& entity : all.entities) collected.entities.push_back(TextOf(entity));

  std::istringstream again(Lines(words));
  DxfTokenizer tokenizerAgain(again);
  std::vector<std::string> visited;
  std::vector<DxfDiagnostic> diagnostics;
  const DxfHeaderData header = DxfEntityCollector::Collect(
      tokenizerAgain, [&](const DxfEntity& entity) { visited.push_back(TextOf(entity)); },
      diagnostics);
  EXPECT_EQ(header.units, collected.units);
  EXPECT_EQ(visited, collected.entities);
  EXPECT_EQ(diagnostics, collected.diagnostics);
  return collected;
}

TEST(DxfEntityCollector, TakesTheEntitiesOfItsSections) {
  const struct {
    const char* what;
    std::string words;
    std::vector<std::string> want;
  } kCases[] = {
      {"none without a section", "0 LINE 8 A", {}},
      {"any type, with every tag, the last layer counts",
       Entities("99 lost 0 LINE 8 A x 1 8 B 2 C 0 SEQEND"),
       {"LINE/B@7: 8=A -1=1 8=B 2=C", "SEQEND/@17:"}},
      {"section names in any case", "0 SECTION 2 eNtItIeS 0 A", {"A/@5:"}},
      {"section words in upper case alone", "0 section 2 ENTITIES 0 A 0 ENDSEC", {"A/@5:"}},
      {"of several sections, those between left out",
       Entities("0 A") + "0 SECTION 2 BLOCKS 0 X 0 ENDSEC " + Entities("0 B"),
       {"A/@5:", "B/@21:"}},
      {"nothing after EOF", Entities("0 A 0 EOF 0 B") + Entities("0 C"), {"A/@5:"}},
      {"an entity goes on in a section that starts within it",
       "0 SECTION 2 ENTITIES 0 A 8 L 0 SECTION 2 OTHER 1 lost 0 SECTION 2 ENTITIES 1 x",
       {"A/L@5: 8=L 1=x"}},
      {"a name opens a section wherever none is open", "2 ENTITIES 0 A", {"A/@3:"}},
      {"a tag without a code before the section is no matter", "_ _ 2 ENTITIES 0 A", {"A/@5:"}},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    const Collected got = CollectBothWays(c.words);
    EXPECT_EQ(got.entities, c.want);
    EXPECT_EQ(got.units, DxfUnit::Unknown);
    EXPECT_TRUE(got.diagnostics.empty());
  }
}

TEST(DxfEntityCollector, TakesTheUnitFromTheTagAfterItsName) {
  const struct {
    std::string header;
    DxfUnit want;
    const char* refused = nullptr;  // value that is warned of
  } kCases[] = {
      {"", DxfUnit::Unknown},
      {"9 $INSUNITS 70 0", DxfUnit::Unitless},
      {"9 $INSUNITS 70 1", DxfUnit::Inches},
      {"9 $INSUNITS 70 2", DxfUnit::Feet},
      {"9 $INSUNITS 70 3", DxfUnit::Unknown},
      {"9 $INSUNITS 70 4", DxfUnit::Millimetres},
      {"9 $INSUNITS 70 5", DxfUnit::Centimetres},
      {"9 $INSUNITS 70 +6", DxfUnit::Metres},
      {"9 $INSUNITS 70 -1", DxfUnit::Unknown},
      {"9 $insunits 70 4", DxfUnit::Unknown},
      {"9 $INSUNITS 71 4 70 4", DxfUnit::Unknown},
      {"9 $INSUNITS 9 $INSUNITS 70 4", DxfUnit::Unknown},
      {"9 $INSUNITS 0 ENDSEC 0 SECTION 2 HEADER 70 4", DxfUnit::Unknown},
      {"9 $INSUNITS 70 4 9 $INSUNITS 70 6", DxfUnit::Metres},
      {"9 $INSUNITS 70 4 9 $INSUNITS 70 mm", DxfUnit::Unknown, "mm"},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.header);
    const Collected got = CollectBothWays("0 SECTION 2 Header " + c.header + " 0 ENDSEC");
    EXPECT_EQ(got.units, c.want);
    std::vector<DxfDiagnostic> want;
    if (c.refused != nullptr) {
      want.push_back({DxfSeverity::Warning, 0, "", "",
                      std::string("Failed to parse $INSUNITS value '") + c.refused + "'.",
                      "Ensure $INSUNITS contains a valid integer unit code."});
    }
    EXPECT_EQ(got.diagnostics, want);
  }
}

}  // namespace
}  // namespace Orlix::dxf_import
