#include <gtest/gtest.h>

#include <numbers>
#include <random>
#include <sstream>
#include <string>

#include "model/vldata/json/document_schema.h"
#include "model/vldata/response/SectionCompiler.h"
#include "model/vldata/test/test_documents.h"

namespace Orlix::Data {
namespace {

const char* const kExamples[] = {"examples/beam.json",
                                 "examples/circular-pier.json",
                                 "examples/column.json",
                                 "examples/composite-column.json",
                                 "examples/hollow-box-pier.json",
                                 "examples/l-shaped-wall.json",
                                 "examples/staged-composite-beam.json"};

std::string ExampleOfThePage() {
  const std::string page = FileText("docs/document.md");
  const std::size_t begin = page.find("```json\n") + 8;
  return page.substr(begin, page.find("```", begin) - begin);
}

void ExpectReadsAndCompiles(const std::string& text) {
  const CVelmoData document = ReadDocument(text);
  EXPECT_EQ(ProblemText(document), "");
  ASSERT_GT(document.NumSections(), 0);
  for (const Velmo9::VelmoSection& section : document.Sections()) {
    for (int task = 0; task < static_cast<int>(section.Tasks().size()); ++task) {
      if (section.Task(task).PreloadFrom()) continue;  // for that an earlier task must be solved
      for (const LoadState state : {LoadState::ULS, LoadState::SLS}) {
        EXPECT_EQ(Velmo9::SectionCompiler::Problems(document, section, task, state),
                  std::vector<std::string>{});
      }
    }
  }
  const std::string written = WriteDocument(document);
  EXPECT_EQ(WriteDocument(ReadDocument(written)), written);
}

TEST(Document, ExamplesAreReadWithoutProblems) {
  ExpectReadsAndCompiles(ExampleOfThePage());
  for (const char* path : kExamples) {
    SCOPED_TRACE(path);
    const std::string text = FileText(path);
    EXPECT_EQ(text.find("filePath"), std::string::npos);
    ExpectReadsAndCompiles(text);
  }
}

// Every member differs from its default, and every kind of curve, shape and preload is there.
constexpr const char* kEverything = R"({
    "format": "velmo document", "version": 1, "modelId": "an identity", "filePath": "/tmp/a ü.json",
    "titles": {"project": "p", "part": "q", "description": "two\nlines", "jobNumber": "7", "initials": "\"x\""},
    "units": {"force": "kip", "length": "ft", "sectionDims": "in", "stress": "ksi", "mass": "lb",
              "strain": "με", "temperature": "°F"},
    "codes": {"concrete": "EN 1992-1-1:2004", "annex": "UK"},
    "options": {"deductDisplacedConcrete": false},
    "materials": {
        "concrete": [
            {"name": "a", "f_k": 31000001, "E": 1e10, "f_ct": 0.1, "alpha": 0.3, "gamma": 1.7,
             "uls": {"compression": {"curve": "parabola-rectangle", "eps_peak": 0.0021, "n": 1.7,
                                     "eps_limit": 0.0033, "eps_uniform": 0.0021},
                     "tension": {"curve": "linear", "eps_limit": 1e-4}},
             "sls": {"compression": {"curve": "BS 8110 tension", "eps_limit": 0.02},
                     "tension": {"curve": "BS 8110 tension", "eps_limit": 0.02}}},
            {"name": "b", "f_k": 4e7, "E": 3e10,
             "uls": {"compression": {"curve": "rectangular-block", "block_start": 0.0011,
                                     "block_factor": 0.9, "eps_limit": 0.0035},
                     "tension": {"curve": "none", "eps_limit": 0.5}},
             "sls": {"compression": {"curve": "non-linear", "eps_peak": 0.0023, "eps_limit": 0.003},
                     "tension": {"curve": "none"}}},
            {"name": "c", "f_k": 4e7, "E": 3e10,
             "sls": {"compression": {"curve": "interpolated"}, "tension": {"curve": "interpolated"}}}],
        "reinforcement": [
            {"name": "r", "f_k": 5e8, "E": 2e11,
             "uls": {"compression": {"curve": "bilinear", "eps_peak": 0.003, "hardening": 1.1,
                                     "eps_hardening": 0.06, "eps_limit": 0.05},
                     "tension": {"curve": "explicit"}, "points": [[0, 0], [0.002, 4e8], [0.1, 5e8]]},
             "sls": {"points": [[0.1, 0.30000000000000004]]}}],
        "steel": [{"name": "s", "f_k": 1.5e8, "E": 2.1e11}],
        "FRP": [{"name": "f", "f_k": 2e9, "E": 1.6e11, "alpha": 0.85, "gamma": 1.25}]
    },
    "sections": [
        {"name": "one", "components": [
            {"name": "poly", "material": "concrete", "grade": "b", "geometry": {"shape": "polygon",
             "polygons": [{"outline": [[0, 0], [1, 0], [1, 1.1], [0, 1]],
                           "holes": [[[0.1, 0.1], [0.2, 0.1], [0.1, 0.2]]]},
                          {"outline": [[2, 0], [3, 0], [2, 1]]}]},
             "bars": [
                {"y": 0.5, "z": 0.25, "diameter": 0.02, "grade": "r", "preload": {"kind": "stress", "value": 1e8}},
                {"y": 0.6, "z": 0.25, "area": 3e-4, "grade": "r", "preload": {"kind": "force", "value": 1e5}},
                {"y": 0.7, "z": -0.0, "diameter": 0.02, "area": 3e-4, "preload": {"kind": "strain", "value": 1e-3}}],
             "barDescriptions": [
                {"text": "2B20 edge 1 polygon 1", "grade": "r", "cover": 0.06, "preload": {"kind": "force", "value": 1234}},
                {"text": "no ünderstandable \"text\""}],
             "links": {"size": 0.011, "spacing": 0.22, "legs": 3, "perimeter": false, "grade": "r"}},
            {"name": "box", "material": "steel", "grade": "s", "geometry": {"shape": "box", "width": 1,
             "depth": 2, "flangeThickness": 0.2, "webThickness": 0.3, "bottomThickness": 0.1,
             "centre": [5, -7], "rotation": 0.1, "description": "1 x 2"}},
            {"name": "strip", "material": "FRP", "grade": "f", "geometry": {"shape": "trapezoid",
             "width": 1, "depth": 0.1, "bottomWidth": 0.5}},
            {"name": "bare"}],
         "tasks": [
            {"name": "t", "uls": false, "sls": true, "action": "deformation", "components": [2, 3],
             "loadTerm": "intermediate", "creep": 2.3, "longTermShare": 0.55,
             "phiFactors": {"compressionStrain": 0.0021, "tensionStrain": 0.0049,
                            "phiCompression": 0.61, "phiTension": 0.89},
             "cases": [{"name": "c", "eps": 1e-3, "kyy": -2e-3, "kzz": 0.1}]},
            {"name": "u", "components": [], "preload": {"task": -7, "case": 3, "barsAddedLater": [4, 2]},
             "cases": [{"N": 1, "Myy": 2, "Mzz": 3}, {}]}]},
        {"name": "two", "confinement": "spiral", "tasks": [{"loadTerm": "long"}]}]
})";

TEST(Document, WhatIsWrittenReadsBackToTheSameText) {
  const CVelmoData document = ReadDocument(kEverything);
  EXPECT_EQ(ProblemText(document), "");
  const std::string written = WriteDocument(document);
  const CVelmoData again = ReadDocument(written);
  EXPECT_EQ(ProblemText(again), "");
  EXPECT_EQ(WriteDocument(again), written);
  EXPECT_EQ(*again.getMaterials(), *document.getMaterials());
  const auto& bars = document.Section(0).Components()[0].Concrete().Bars();
  EXPECT_DOUBLE_EQ(bars[0].Area(), 1e-4 * std::numbers::pi);  // 20 mm
  EXPECT_EQ(bars[2].Area(), 3e-4);
  // A member that the reader skipped would be missing from both texts.
  std::istringstream parts(
      "31000001.0|0.30000000000000004|\"two\\nlines\"|0.0033|\"eps_uniform\": 0.0021|\"n\": 1.7|"
      "\"BS 8110 tension\"|\"block_start\": 0.0011|\"block_factor\": 0.9|\"non-linear\"|"
      "\"interpolated\"|\"hardening\": 1.1|\"eps_hardening\": 0.06|\"bottomThickness\": 0.1|"
      "\"bottomWidth\": 0.5|-7.0|\"rotation\": 0.1|\"kyy\": -0.002|\"force\": \"kip\"|\"°F\"|"
      "\"filePath\": \"/tmp/a ü.json\"|\"kind\": \"force\"|\"components\": []|\"creep\": 2.3|"
      "\"deductDisplacedConcrete\": false|\"loadTerm\": \"intermediate\"|\"longTermShare\": 0.55|"
      "\"compressionStrain\": 0.0021|\"tensionStrain\": 0.0049|\"phiCompression\": 0.61|"
      "\"phiTension\": 0.89|\"task\": -7|\"case\": 3|\"barsAddedLater\": [\n|\"confinement\": "
      "\"spiral\"|\"cover\": 0.06|\"value\": 1234.0|no ünderstandable|\"size\": 0.011|"
      "\"spacing\": 0.22|\"legs\": 3|\"perimeter\": false|\"description\": \"1 x 2\"");
  for (std::string part; std::getline(parts, part, '|');) {
    EXPECT_NE(written.find(part), std::string::npos) << part;
  }
}

TEST(Document, StandardGradesWrittenInFullAreStillTheCodesOwn) {
  const CVelmoData document;
  const CVelmoData again = ReadDocument(WriteDocument(document));
  EXPECT_EQ(ProblemText(again), "");
  EXPECT_EQ(*again.getMaterials(), *document.getMaterials());
  const CVelmoData byName = ReadDocument(
      R"({"format": "velmo document", "materials": {"concrete": [{"name": "C30/37", "gamma": 1.2}]}})");
  const Materials& materials = *byName.getMaterials();
  EXPECT_EQ(materials.NumGrades(MatType::concrete), 1);
  EXPECT_EQ(materials.Grade(MatType::concrete, 0).Properties().f_k, 30e6);
  EXPECT_EQ(materials.Grade(MatType::concrete, 0).Properties().gamma, 1.2);
  EXPECT_EQ(materials.NumGrades(MatType::reinforcement),
            document.getMaterials()->NumGrades(MatType::reinforcement));
}

TEST(Document, SaysWhatItCouldNotTakeOver) {
  const struct {
    const char* members;  // of the root, besides the format
    const char* problems;
  } kCases[] = {
      {R"("version": 2)", "version: 2, 1\n"},
      {R"("titles": [1, 2])", "titles: an array of 2, an object\n"},
      {R"("titles": {"part": "a", "part": "b"})",
       "titles.part: the member a second time, each member once\n"},
      {R"("units": {"stress": "bar"})",
       "units.stress: \"bar\", the text of a unit of this dimension\n"},
      {R"("codes": {"concrete": "EN 1"})",
       "codes.concrete: \"EN 1\", one of \"EN 1992-1-1:2004\", \"ACI 318-19\", \"ACI 318-14\", "
       "\"BS 8110-1:1997\", \"BS 8110-1:1997 Amd 3\", \"HK CoP 2013\", \"IS 456:2000\", \"CSA "
       "A23.3-14\", \"AS 3600:2018\"\n"},
      {R"("codes": {"concrete": "ACI 318-19", "annex": "UK"})",
       "codes.annex: \"UK\", no annex for this code\n"},
      {R"("options": {"deductDisplacedConcrete": 1})",
       "options.deductDisplacedConcrete: 1, true or false\n"},
      {R"("materials": {"concrete": [{}]})",
       "materials.concrete[1].name: nothing, the name of the grade\n"},
      {R"("materials": {"concrete": [{"name": "C30/37"}, {"name": "C30/37"}]})",
       "materials.concrete[2].name: \"C30/37\", a name that no other grade of the table has\n"},
      {R"("materials": {"steel": [{"name": "S", "E": 1e9}]})",
       "materials.steel[1].f_k: nothing, a positive number, since the code has no grade of this "
       "name\n"},
      {R"("materials": {"concrete": [{"name": "C30/37", "uls": {"tension": {"curve": "curly"}}}]})",
       "materials.concrete[1].uls.tension.curve: \"curly\", one of \"none\", \"linear\", "
       "\"explicit\", \"bilinear\", \"parabola-rectangle\", \"rectangular-block\", \"non-linear\", "
       "\"BS 8110 tension\", \"interpolated\"\n"},
      {R"("materials": {"concrete": [{"name": "C30/37", "uls": {"compression":
           {"curve": "parabola-rectangle", "eps_peak": 0.004, "eps_limit": 0.003}}}]})",
       "materials.concrete[1].uls: numbers that give no curve, a peak and a limit in this order, a "
       "modulus, and points where explicit\n"},
      {R"("materials": {"concrete": [{"name": "C30/37", "sls": {"tension": {"curve": "none"}}}]})",
       "materials.concrete[1].sls: different curves in compression and tension, \"BS 8110 "
       "tension\" or \"interpolated\" alike on both sides\n"},
      {R"("materials": {"reinforcement": [{"name": "B500B", "sls": {"points": [[1, 2], [3], 4]}}]})",
       "materials.reinforcement[1].sls.points[2]: an array of 1, an array of two numbers\n"
       "materials.reinforcement[1].sls.points[3]: 4, an array of two numbers\n"},
      {R"("sections": [{"components": [{"grade": "C24"}]}])",
       "sections[1].components[1].material: nothing, the material of the grade\n"},
      {R"("sections": [{}, {"components": [{}, {"material": "concrete", "grade": "C31/37"}]}])",
       "sections[2].components[2].grade: \"C31/37\", the name of a grade in the document's "
       "table\n"},
      {R"("sections": [{"components": [{"material": "steel", "bars": []}]}])",
       "sections[1].components[1].bars: an array of 0, bars in a component of concrete alone\n"},
      {R"("sections": [{"components": [{"material": "concrete", "bars": [{"y": "0", "diameter": 0}]}]}])",
       "sections[1].components[1].bars[1].y: \"0\", a number\n"
       "sections[1].components[1].bars[1].diameter: 0, a positive number\n"},
      {R"("sections": [{"components": [{"material": "concrete", "bars": [{}]}]}])",
       "sections[1].components[1].bars[1].area: nothing, an area or a diameter\n"},
      {R"("sections": [{"components": [{"material": "FRP", "links": {}, "barDescriptions": []}]}])",
       "sections[1].components[1].barDescriptions: an array of 0, barDescriptions in a component "
       "of concrete alone\n"
       "sections[1].components[1].links: an object, links in a component of concrete alone\n"},
      {R"("sections": [{"components": [{"material": "concrete", "barDescriptions": [{"cover": -1}],
           "links": {"legs": 1.5}}]}])",
       "sections[1].components[1].barDescriptions[1].text: nothing, a bar description\n"
       "sections[1].components[1].barDescriptions[1].cover: -1, a number that is not negative\n"
       "sections[1].components[1].links.size: nothing, a diameter\n"
       "sections[1].components[1].links.legs: 1.5, a whole number of legs up to 1000\n"},
      {R"("sections": [{"components": [{"geometry": {"shape": "star"}}]}])",
       "sections[1].components[1].geometry.shape: \"star\", the name of a shape, such as "
       "\"rectangle\" or \"polygon\"\n"},
      {R"("sections": [{"components": [{"geometry": {"shape": "circle", "width": 1}}]}])",
       "sections[1].components[1].geometry.diameter: nothing, a positive number\n"
       "sections[1].components[1].geometry.width: 1, no member of this name\n"},
      {R"("sections": [{"components": [{"geometry": {"shape": "polygon", "polygons": [{"outline": [[0]]}]}}]}])",
       "sections[1].components[1].geometry.polygons[1].outline[1]: an array of 1, an array of two "
       "numbers\n"},
      {R"("sections": [{"components": [{}], "tasks": [{"components": [1, 1, 2, 1.5]}]}])",
       "sections[1].tasks[1].components[2]: 1, the number of a component, 1 to 1, once each\n"
       "sections[1].tasks[1].components[3]: 2, the number of a component, 1 to 1, once each\n"
       "sections[1].tasks[1].components[4]: 1.5, the number of a component, 1 to 1, once each\n"},
      {R"("sections": [{"tasks": [{"loadTerm": "medium", "creep": -1, "longTermShare": 0.5}]}])",
       "sections[1].tasks[1].loadTerm: \"medium\", one of \"short\", \"long\", \"intermediate\"\n"
       "sections[1].tasks[1].creep: -1, a number that is not negative\n"
       "sections[1].tasks[1].longTermShare: 0.5, a share with the load term \"intermediate\" "
       "alone\n"},
      {R"("sections": [{"tasks": [{"loadTerm": "intermediate", "longTermShare": 1.5}]}])",
       "sections[1].tasks[1].longTermShare: 1.5, a number from 0 to 1\n"},
      {R"("sections": [{"tasks": [{"phiFactors": {"compressionStrain": 0.002, "tensionStrain": 0.005,
           "phiCompression": "0.65", "phi": 1}}]}])",
       "sections[1].tasks[1].phiFactors.phiCompression: \"0.65\", a number\n"
       "sections[1].tasks[1].phiFactors.phiTension: nothing, a number\n"
       "sections[1].tasks[1].phiFactors.phi: 1, no member of this name\n"},
      {R"("sections": [{"tasks": [{"preload": {"task": 1.5, "barsAddedLater": [1]}}]}])",
       "sections[1].tasks[1].preload.task: 1.5, a whole number, counted from 1\n"
       "sections[1].tasks[1].preload.case: nothing, a whole number, counted from 1\n"
       "sections[1].tasks[1].preload.barsAddedLater[1]: 1, the number of a component, 1 to 0, once "
       "each\n"},
      {R"("sections": [{"tasks": [{"action": "deformation", "cases": [{"N": 1}]}]}])",
       "sections[1].tasks[1].cases[1].N: 1, no member of this name\n"},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.members);
    const auto text = std::string(R"({"format": "velmo document", )") + c.members + "}";
    const CVelmoData document = ReadDocument(text);
    EXPECT_EQ(ProblemText(document), c.problems);
    // What was taken over instead is a document that can be written and read.
    const std::string written = WriteDocument(document);
    EXPECT_EQ(WriteDocument(ReadDocument(written)), written);
  }
  for (const char* text : {"null", "[]", "\"text\"", "3"}) {
    EXPECT_EQ(ReadDocument(text).ReadProblems().size(), 1U) << text;
  }
  EXPECT_EQ(ProblemText(ReadDocument("{}")), "format: nothing, \"velmo document\"\n");
}

TEST(Document, ListsNoMoreThanAThousandProblems) {
  std::string text = R"({"format": "velmo document", "sections": [0)";
  for (int i = 0; i < 5000; ++i) text += ",0";
  const CVelmoData document = ReadDocument(text + "]}");
  EXPECT_EQ(document.ReadProblems().size(), ProblemList::kMax + 1);
  EXPECT_EQ(document.ReadProblems().back().found, "further problems");
}

// Any bytes give a document and problems, or are no JSON; what was read can be written and checked.
TEST(Document, SurvivesMutatedBytes) {
  const std::string originals[] = {ExampleOfThePage(), kEverything};
  constexpr std::string_view kBytes = "0123456789-+.eE\"{}[]:,ntf \xC3\x00";
  std::mt19937 random(20240607);
  const auto below = [&](std::size_t n) { return random() % n; };
  int read = 0;
  for (int round = 0; round < 4000; ++round) {
    std::string text = originals[below(2)];
    for (std::size_t i = 0; i <= below(3); ++i) {
      const std::size_t at = below(text.size());
      switch (below(3)) {
        case 0:
          text[at] = kBytes[below(kBytes.size())];
          break;
        case 1:
          text.erase(at, 1 + below(40));
          break;
        default:
          text.insert(at, text.substr(below(text.size()), below(60)));
          break;
      }
    }
    Util::JsonDocument json;
    std::string error;
    if (!Util::ParseJson(text, json, error)) continue;
    ++read;
    const CVelmoData document(json);
    const std::string written = WriteDocument(document);
    const CVelmoData again = ReadDocument(written);
    ASSERT_EQ(WriteDocument(again), written) << text;
    // The schema is no stricter than the reader, which lists all that the schema finds.
    ASSERT_TRUE(!SchemaProblem(json) || !document.ReadProblems().empty()) << text;
    ASSERT_TRUE(!SchemaProblem(ParseText(written)) || !again.ReadProblems().empty()) << written;
    for (const auto& section : document.Sections()) {
      for (int task = 0; task < static_cast<int>(section.Tasks().size()); ++task) {
        for (const auto state : {Velmo9::SectionState::ultimate, Velmo9::SectionState::cracked}) {
          Velmo9::SectionCompiler::Compile(document, section, task, state);
        }
      }
    }
  }
  EXPECT_GT(read, 300);  // enough mutants are still JSON for the reader to be tried
}

}  // namespace
}  // namespace Orlix::Data
