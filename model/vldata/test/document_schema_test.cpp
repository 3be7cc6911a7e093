#include "model/vldata/json/document_schema.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <set>
#include <string>

#include "model/oxdata/codes/CConcCode.h"
#include "model/oxutil/text.h"
#include "model/vldata/document/unit_keys.h"
#include "model/vldata/test/test_documents.h"

namespace Orlix::Data {
namespace {

using Util::FindMember;

std::string SchemaProblemText(const std::string& text) {
  const auto problem = SchemaProblem(ParseText(text));
  return problem ? problem->path + ": " + problem->found + ", " + problem->expected : "";
}

TEST(DocumentSchema, ExamplesAndWhatIsWrittenOfThemSatisfyIt) {
  int examples = 0;
  for (const auto& entry : std::filesystem::directory_iterator("examples")) {
    if (entry.path().extension() != ".json") continue;
    SCOPED_TRACE(entry.path());
    const std::string text = FileText(entry.path().string());
    EXPECT_EQ(SchemaProblemText(text), "");
    EXPECT_EQ(SchemaProblemText(WriteDocument(ReadDocument(text))), "");
    ++examples;
  }
  EXPECT_GE(examples, 8);
  for (const Design::CodeChoice& choice : Design::KnownCodes()) {
    CVelmoData document;
    document.SetCodes(ParseText("{\"concrete\": \"" + std::string(choice.name) +
                                (choice.annex.empty() ? "" : "\", \"annex\": \"") +
                                std::string(choice.annex) + "\"}"));
    EXPECT_EQ(SchemaProblemText(WriteDocument(document)), "") << choice.name << choice.annex;
  }
}

TEST(DocumentSchema, NamesTheFirstFaultAtItsPlace) {
  const struct {
    const char* members;  // of the root, besides the format
    const char* problem;
  } kCases[] = {
      {R"("version": 2)", "version: 2, 1"},
      {R"("modelId": "")", "modelId: \"\", a text that is not empty, the identity of the document"},
      {R"("titles": [])", "titles: an array of 0, an object"},
      {R"("a/b~c": 1)", "a/b~c: 1, no member of this name"},
      {R"("units": {"strain": "1"})",
       "units.strain: \"1\", one of \"ε\", \"‰\", \"mε\", \"με\", \"%\""},
      {R"("codes": {"concrete": "ACI 318-19", "annex": "UK"})",
       "codes.annex: \"UK\", no member of this name"},
      {R"("codes": 3)", "codes: 3, the name of a code, or an object with it and its annex"},
      {R"("codes": {"annex": {"format": "velmo national annex", "code": "EN 1992-1-1:2004",
          "name": "a", "parameters": {"k_3": {"value": 11}}}})",
       "codes.annex.parameters.k_3.value: 11, a number from 0 to 10 or \"3.4 (25 mm/c)^(2/3)\""},
      {R"("codes": {"annex": {"format": "velmo national annex", "code": "EN 1992-1-1:2004",
          "name": "UK"}})",
       "codes.annex.name: \"UK\", a text that is not empty and names no annex of the program"},
      {R"("materials": {"steel": [{"name": "a"}, {"E": 2e11}]})",
       "materials.steel[2].name: nothing, a text that is not empty, the name of the grade"},
      {R"("materials": {"steel": [{"name": "a", "f_ct": 1}]})",
       "materials.steel[1].f_ct: 1, no member of this name"},
      {R"("materials": {"concrete": [{"name": "a", "gamma": 0}]})",
       "materials.concrete[1].gamma: 0, a positive number"},
      {R"("materials": {"FRP": [{"name": "a", "uls": {"tension": {"n": 2, "curve": "bilinear"}}}]})",
       "materials.FRP[1].uls.tension.n: 2, no member of this name"},
      {R"("materials": {"FRP": [{"name": "a", "uls": {"points": [[1, 2], [3]]}}]})",
       "materials.FRP[1].uls.points[2]: an array of 1, an array of two numbers"},
      {R"("sections": {})", "sections: an object, an array"},
      {R"("sections": [{}, {"components": [{"grade": "S355"}]}])",
       "sections[2].components[1].grade: \"S355\", no member of this name"},
      {R"("sections": [{"components": [{"material": "steel", "bars": []}]}])",
       "sections[1].components[1].bars: an array of 0, no member of this name"},
      {R"("sections": [{"components": [{"material": "concrete", "bars": [{"y": 1}]}]}])",
       "sections[1].components[1].bars[1]: an object, A bar; its diameter or its area is "
       "required."},
      {R"("sections": [{"components": [{"material": "concrete", "links": {"size": 0.01, "legs": 1.5}}]}])",
       "sections[1].components[1].links.legs: 1.5, a whole number of legs from 1 to 1000"},
      {R"("sections": [{"components": [{"geometry": {"depth": 1, "width": 1, "shape": "box"}}]}])",
       "sections[1].components[1].geometry.flangeThickness: nothing, a positive number [m], a "
       "thickness"},
      {R"("sections": [{"components": [{"geometry": {"width": 1, "depth": -1, "shape": "ellipse"}}]}])",
       "sections[1].components[1].geometry.depth: -1, a positive number [m], the overall depth "
       "along z"},
      {R"("sections": [{"components": [{"geometry": {"shape": "polygon",
          "polygons": [{"outline": [], "holes": [[[0, 1], [2, "3"]]]}]}}]}])",
       "sections[1].components[1].geometry.polygons[1].holes[1][2][2]: \"3\", a number"},
      {R"("sections": [{"tasks": [{}, {"cases": [{}, {"name": "a", "N": "1"}]}]}])",
       "sections[1].tasks[2].cases[2].N: \"1\", a number [N], tension positive"},
      {R"("sections": [{"tasks": [{"cases": [{"N": 1}], "action": "deformation"}]}])",
       "sections[1].tasks[1].cases[1].N: 1, no member of this name"},
      {R"("sections": [{"tasks": [{"longTermShare": 0.5}]}])",
       "sections[1].tasks[1].longTermShare: 0.5, a share with the load term \"intermediate\" "
       "alone"},
      {R"("sections": [{"tasks": [{"components": [1, 1.5]}]}])",
       "sections[1].tasks[1].components[2]: 1.5, the number of a component, from 1, once each"},
      {R"("sections": [{"tasks": [{"components": "none"}]}])",
       "sections[1].tasks[1].components: \"none\", \"all\" or an array of component numbers"},
      {R"("sections": [{"tasks": [{"preload": {"task": 1}}]}])",
       "sections[1].tasks[1].preload.case: nothing, a whole number, counted from 1"},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.members);
    const std::string text = std::string(R"({"format": "velmo document", )") + c.members + "}";
    EXPECT_EQ(SchemaProblemText(text), c.problem);
    EXPECT_FALSE(ReadDocument(text).ReadProblems().empty());
  }
  EXPECT_EQ(SchemaProblemText("{}"), "format: nothing, one of \"velmo document\"");
  EXPECT_EQ(SchemaProblemText("[]"), "document: an array of 0, an object");
}

TEST(DocumentSchema, BoundsOfAnnexesAreThoseOfTheCode) {
  const Design::CConcCode code;
  for (const Design::AnnexParameter& parameter : code.Data().annexParameters) {
    const double least = parameter.least;
    const double most = parameter.most;
    for (const double number :
         {least, most, std::nextafter(least, -1.0), std::nextafter(most, 11.0)}) {
      const std::string text = R"({"format": "velmo document", "codes": {"annex": {"format":
          "velmo national annex", "code": "EN 1992-1-1:2004", "name": "a", "parameters": {")" +
                               std::string(parameter.name) +
                               "\": " + Util::PrettyJson(Util::JsonValue(number)) + "}}}}";
      EXPECT_EQ(SchemaProblemText(text).empty(), ReadDocument(text).ReadProblems().empty())
          << parameter.name << number << SchemaProblemText(text);
      EXPECT_EQ(SchemaProblemText(WriteDocument(ReadDocument(text))), "");
    }
  }
}

// Names of members, choices and units are those of the reader and of the page on documents.
TEST(DocumentSchema, SaysWhatThePageOnDocumentsSays) {
  const Util::JsonDocument schema = ParseText(std::string(DocumentSchemaText()));
  EXPECT_EQ(DocumentSchemaText(), FileText("docs/velmo-document.schema.json"));
  const std::string page = FileText("docs/document.md") + FileText("docs/national-annex.md");
  std::set<std::string> members;
  const auto collect = [&](const auto& self, const Util::JsonValue& node) -> void {
    if (node.IsArray()) {
      for (const auto& element : node.GetArray()) self(self, element);
    } else if (node.IsObject()) {
      for (const auto& member : node.GetObject()) self(self, member.value);
      const Util::JsonValue* properties = FindMember(node, "properties");
      if (properties == nullptr || FindMember(*properties, "type") != nullptr) return;
      for (const auto& property : properties->GetObject())
        members.insert(property.name.GetString());
    }
  };
  collect(collect, schema);
  EXPECT_GT(members.size(), 80U);
  for (const std::string& name : members) {
    const bool isNamed = page.find("`" + name + "`") != std::string::npos ||
                         page.find("\"" + name + "\"") != std::string::npos;
    EXPECT_TRUE(isNamed) << name;
  }
  // The first cells of the page's tables, one code word each.
  for (std::size_t at = page.find("\n| "); at != std::string::npos;
       at = page.find("\n| ", at + 1)) {
    const std::size_t begin = page.find('`', at) + 1;
    if (begin > page.find('|', at + 3)) continue;
    const std::string word = page.substr(begin, page.find('`', begin) - begin);
    EXPECT_TRUE(members.contains(word) ||
                DocumentSchemaText().find('"' + word + '"') != std::string_view::npos)
        << word;
  }
  for (const auto& [key, dimension] : kUnitKeys) {
    for (const auto& unit :
         (*FindMember(
              *FindMember(*FindMember(*FindMember(schema, "definitions"), "units"), "properties"),
              key))
             .GetObject()) {
      if (!unit.value.IsArray()) continue;
      for (const auto& text : unit.value.GetArray()) {
        EXPECT_TRUE(CUnit().SetUnitString(dimension, cstr(text.GetString()))) << text.GetString();
      }
    }
  }
}

}  // namespace
}  // namespace Orlix::Data
