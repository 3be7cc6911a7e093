#include "model/vldata/json/annex_json.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <variant>

#include "model/vldata/document/standard_grades.h"
#include "model/vldata/test/test_documents.h"

namespace Orlix::Data {
namespace {

// The file that docs/national-annex.md shows.
std::string Example() {
  const std::string page = FileText("docs/national-annex.md");
  const std::size_t begin = page.find("```json") + 7;
  return page.substr(begin, page.find("```", begin) - begin);
}

std::string Heading() {
  return R"("format": "velmo national annex", "code": "EN 1992-1-1:2004", "name": "own")";
}

CVelmoData DocumentWith(const std::string& annex) {
  return ReadDocument(R"({"format": "velmo document", "codes": {"annex": )" + annex + "}}");
}

TEST(NationalAnnex, EveryChoiceReachesGradesOrCrackWidths) {
  const CVelmoData document = DocumentWith("{" + Heading() + R"json(, "parameters": {
      "alpha_cc": 0.9, "gamma_c": 1.4, "gamma_s": {"value": 1.1, "source": "mine"},
      "eps_ud/eps_uk": 0.8, "eps_ud prestressing": 0.03, "k_3": "3.4 (25 mm/c)^(2/3)",
      "k_4": 0.5, "w_max X0, XC1": "no limit", "w_max XC2 to XC4": 2e-4, "w_max XD, XS": 1e-4
}
})json");
  EXPECT_EQ(ProblemText(document), "");
  const Design::CConcCodeData& code = document.concreteCode().Data();
  const auto grade = [&](MatType type, const wchar_t* name) -> const Design::CMat& {
    return document.getMaterials()->Grade(type, document.getMaterials()->Find(type, name));
  };
  EXPECT_DOUBLE_EQ(grade(MatType::concrete, L"C30/37").DesignStrength(), 0.9 * 30e6 / 1.4);
  const auto& bar = grade(MatType::reinforcement, L"B500B inclined").Curve(LoadState::ULS);
  const double fyd = 500e6 / 1.1, yield = fyd / 200e9;
  EXPECT_DOUBLE_EQ(bar.TensionLimit(), 0.8 * 0.05);
  // On the line from (yield, f_yd) to (0.05, 1.08 f_yd).
  EXPECT_NEAR(bar.Stress(-0.04), -fyd * (1 + 0.08 * (0.04 - yield) / (0.05 - yield)), 1.0);
  EXPECT_DOUBLE_EQ(grade(MatType::reinforcement, L"Y1860S7").Curve(LoadState::ULS).TensionLimit(),
                   0.03);
  const auto& cracks = std::get<Design::En1992::CrackWidthParameters>(*code.crackWidth);
  EXPECT_EQ(cracks.k3, 3.4);
  EXPECT_EQ(cracks.k3CoverLimit, 0.025);
  EXPECT_EQ(cracks.k4, 0.5);
  EXPECT_EQ(cracks.limitX0ToXc1, std::numeric_limits<double>::infinity());
  EXPECT_EQ(cracks.limitXc2ToXc4, 2e-4);
  EXPECT_EQ(cracks.limitXdAndXs, 1e-4);
  // The list shows the rule and what it counts as.
  EXPECT_EQ(code.constants[9].symbol, "w_max X0, XC1: no limit");
  EXPECT_TRUE(std::isinf(code.constants[9].value));
}

TEST(NationalAnnex, StaysWholeInTheDocumentWhereverItIsOpened) {
  const CVelmoData document = DocumentWith(Example());
  EXPECT_EQ(ProblemText(document), "");
  const std::string written = WriteDocument(document);
  const CVelmoData again = ReadDocument(written);
  EXPECT_EQ(ProblemText(again), "");
  EXPECT_EQ(WriteDocument(again), written);
  EXPECT_EQ(*again.getMaterials(), *StandardMaterials(again.concreteCode().Data()));
  // Another code and back with what the document itself held; an absent annex stays.
  CVelmoData moved = again;
  moved.SetCodes(L"ACI 318-19");
  const Util::JsonDocument saved = ParseText(written);
  moved.SetCodes(saved["codes"]);
  EXPECT_EQ(WriteDocument(moved), written);
  moved.SetCodes(ParseText(R"({"concrete": "EN 1992-1-1:2004"})"));
  EXPECT_EQ(WriteDocument(moved), written);
}

TEST(NationalAnnex, SaysWhatItCouldNotTakeOverAndHasTheRecommendedValueThere) {
  const struct {
    std::string annex;
    const char* problems;
  } kCases[] = {
      {"[]",
       "codes.annex: an array of 0, one of \"recommended\", \"UK\", or an annex as an object\n"},
      {"{}",
       "codes.annex.format: nothing, \"velmo national annex\"\n"
       "codes.annex.code: nothing, \"EN 1992-1-1:2004\", the code that takes the annex\n"
       "codes.annex.name: nothing, the name of the annex\n"},
      {R"({"format": "velmo national annex", "version": 2, "code": "ACI 318-19", "name": "UK"})",
       "codes.annex.version: 2, 1\n"
       "codes.annex.code: \"ACI 318-19\", \"EN 1992-1-1:2004\", the code that takes the annex\n"
       "codes.annex.name: \"UK\", a name that no annex of the program has\n"},
      {R"({"format": "velmo national annex", "code": "EN 1992-1-1:2004", "name": "a\u001b[7m"})",
       "codes.annex.name: \"a\x1B[7m\", a name of one line, of 200 bytes at most\n"},
      {"{" + Heading() + R"(, "parameters": {"alpha_cc": 0.7, "k_3": "k_3", "k_4": null,
          "gamma_c": {"value": 0.9}, "gamma_s": {"source": "x", "clause": 1},
          "w_max XD, XS": [0.3], "alpha_ct": 1}})",
       "codes.annex.parameters.alpha_cc: 0.7, a number from 0.8 to 1\n"
       "codes.annex.parameters.gamma_c.value: 0.9, a number from 1 to 2\n"
       "codes.annex.parameters.gamma_s.value: nothing, a number from 1 to 2\n"
       "codes.annex.parameters.gamma_s.clause: 1, no member of this name\n"
       "codes.annex.parameters.k_3: \"k_3\", a number from 0 to 10, or \"3.4 (25 mm/c)^(2/3)\"\n"
       "codes.annex.parameters.k_4: null, a number from 0.1 to 2\n"
       "codes.annex.parameters.w_max XD, XS: an array of 1, a number from 5e-05 to 0.001 m, or "
       "\"no limit\"\n"
       "codes.annex.parameters.alpha_ct: 1, no member of this name\n"},
  };
  for (const auto& c : kCases) {
    const CVelmoData document = DocumentWith(c.annex);
    EXPECT_EQ(ProblemText(document), c.problems);
    EXPECT_EQ(*document.getMaterials(), *CVelmoData().getMaterials()) << c.annex;
    EXPECT_EQ(ProblemText(ReadDocument(WriteDocument(document))), "") << c.annex;
    CVelmoData set;
    set.SetCodes(ParseText(R"({"annex": )" + c.annex + "}"));
    EXPECT_EQ(set.concreteCode().Data().country, Design::CCountry::Code::none) << c.annex;
  }
}

}  // namespace
}  // namespace Orlix::Data
