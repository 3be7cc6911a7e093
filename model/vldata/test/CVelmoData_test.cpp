#include "model/vldata/document/CVelmoData.h"

#include <gtest/gtest.h>

#include "model/oxutil/text.h"
#include "model/vldata/document/standard_grades.h"
#include "model/vldata/test/test_documents.h"

namespace Orlix::Data {
namespace {

using Design::CMat;

const CMat& Concrete(const CVelmoData& document, const wchar_t* name) {
  const Materials& materials = *document.getMaterials();
  return materials.Grade(MatType::concrete, materials.Find(MatType::concrete, name));
}

CMat Edited(CMat grade, double gamma) {
  Design::MaterialProperties properties = grade.Properties();
  properties.gamma = gamma;
  grade.SetProperties(properties);
  return grade;
}

TEST(CVelmoData, CopiesAreIndependent) {
  CVelmoData original = BlockDocument({{0.0, 0.1}});
  const std::string before = WriteDocument(original);
  CVelmoData copy(original);
  CVelmoData assigned;
  assigned = original;
  for (CVelmoData* other : {&copy, &assigned}) {
    EXPECT_EQ(WriteDocument(*other), before);
    CMat& grade = other->getMaterials()->Grade(MatType::concrete, 0);
    grade = Edited(grade, 1.0);
    other->getSection(0).Components().clear();
    other->getSection(0).Task(0).addCase();
    EXPECT_EQ(WriteDocument(original), before);
  }
  CVelmoData& same = original;
  original = same;
  EXPECT_EQ(WriteDocument(original), before);
  for (int i = 0; i < 20; ++i) {  // its own, often enough for the vectors to move
    original.AddSection(original.Section(0));
    original.getSection(0).AddTask(original.Section(0).Task(0));
  }
  EXPECT_EQ(original.Section(20).Components(), original.Section(0).Components());
  EXPECT_THROW(original.Section(21), std::out_of_range);
  EXPECT_THROW(original.Section(-1), std::out_of_range);
}

TEST(CVelmoData, ANewCodeTakesItsStandardGradesAlongAndLeavesEditedOnes) {
  CVelmoData document;
  CMat& edited = document.getMaterials()->Grade(MatType::concrete, 0);
  edited = Edited(edited, 1.3);
  const CMat before = edited;
  document.SetCodes(ParseText(R"({"annex": "UK"})"));
  EXPECT_EQ(ProblemText(document), "");
  EXPECT_EQ(document.concreteCode().Data().country, Design::CCountry::Code::unitedKingdom);
  EXPECT_EQ(document.getMaterials()->Grade(MatType::concrete, 0), before);
  EXPECT_EQ(Concrete(document, L"C30/37").Properties().alpha, 0.85);
  document.SetCodes(ParseText(R"({"concrete": "EN 1992-1-1:2004"})"));  // the annex stays
  EXPECT_EQ(Concrete(document, L"C30/37").Properties().alpha, 0.85);
}

std::string Changes(const CVelmoData& document, GradeChange::Kind kind) {
  std::string names;
  for (const GradeChange& change : document.GradeChanges()) {
    if (change.kind == kind) names += to_string(change.name) + "|";
  }
  return names;
}

TEST(CVelmoData, SaysOfEachGradeWhatANewCodeDidToIt) {
  CVelmoData document = BlockDocument({{0.1, 0.0}});  // C30/37, B500B
  document.getMaterials()->Grade(MatType::concrete, 0) =
      Edited(document.getMaterials()->Grade(MatType::concrete, 0), 1.3);
  using Kind = GradeChange::Kind;
  document.SetCodes(ParseText(R"({"annex": "UK"})"));
  EXPECT_EQ(Changes(document, Kind::replaced),  // all concretes but the edited one, no steel
            "C16/20|C20/25|C25/30|C30/37|C35/45|C40/50|C45/55|C50/60|C55/67|C60/75|C70/85|C80/95|"
            "C90/105|");
  EXPECT_EQ(Changes(document, Kind::keptOwn), "C12/15|");
  EXPECT_EQ(document.GradeChanges().size(), 14U);
  document.SetCodes(L"BS 8110-1:1997 Amd 3");
  EXPECT_EQ(Changes(document, Kind::keptInUse), "C30/37|");
  EXPECT_EQ(Changes(document, Kind::replaced),  // steels by their modulus, bars not
            "S275|S275 (16 to 40 mm)|S355|S355 (16 to 40 mm)|S460|S460 (16 to 40 mm)|");
  EXPECT_EQ(Changes(document, Kind::keptOwn), "C12/15|");
  EXPECT_EQ(Changes(document, Kind::removed),
            "C16/20|C20/25|C25/30|C35/45|C40/50|C45/55|C50/60|C55/67|C60/75|C70/85|C80/95|C90/105|"
            "Y1770S7|Y1860S7|B500A inclined|B500B inclined|B500C inclined|S235|"
            "S235 (16 to 40 mm)|");
  EXPECT_EQ(Changes(document, Kind::added),
            "C20|C25|C30|C35|C40|C45|C50|C55|C60|Grade 250|Grade 460|Wire 1670|Wire 1770|"
            "Strand 1670|Strand 1770|Strand 1860|");
}

TEST(CVelmoData, AnotherCodeAndBackIsTheSameDocument) {
  CVelmoData document;
  const std::string before = WriteDocument(document);
  document.SetCodes(L"ACI 318-19");
  EXPECT_EQ(*document.getMaterials(), *StandardMaterials(document.concreteCode().Data()));
  const std::string written = WriteDocument(document);
  EXPECT_EQ(WriteDocument(ReadDocument(written)), written);
  document.SetCodes(ParseText(R"({"concrete": "EN 1992-1-1:2004"})"));
  EXPECT_EQ(WriteDocument(document), before);
}

TEST(CVelmoData, AGradeOfTheUsersHasTheSafetyOfItsCode) {
  const struct {
    const wchar_t* code;
    double design, bars;  // f_d of a concrete, gamma of a bar
    Design::CurveKind service;
  } kCases[] = {{L"EN 1992-1-1:2004", 41e6 / 1.5, 1.15, Design::CurveKind::interpolated},
                {L"BS 8110-1:1997", 0.67 * 41e6 / 1.5, 1.05, Design::CurveKind::bs8110Tension},
                {L"CSA A23.3-14", 0.79 * 0.65 * 41e6, 1 / 0.85, Design::CurveKind::none},
                {L"ACI 318-14", 0.85 * 41e6, 1.0, Design::CurveKind::none}};
  for (const auto& c : kCases) {
    CVelmoData document;
    document.SetCodes(c.code);
    document.SetGrade(ParseText(R"({"type": "concrete", "name": "own", "f_k": 41e6, "E": 3e10})"),
                      false);
    document.SetGrade(
        ParseText(R"({"type": "reinforcement", "name": "own", "f_k": 41e7, "E": 2e11})"), false);
    EXPECT_EQ(ProblemText(document), "");
    const CMat& concrete = Concrete(document, L"own");
    EXPECT_NEAR(concrete.DesignStrength(), c.design, 1.0);
    EXPECT_EQ(concrete.Model(LoadState::SLS, LoadSign::tension), c.service);
    const Materials& tables = *document.getMaterials();
    const int bar = tables.Find(MatType::reinforcement, L"own");
    EXPECT_DOUBLE_EQ(tables.Reinforcement(bar).Properties().gamma, c.bars);
    EXPECT_DOUBLE_EQ(tables.Reinforcement(bar).Curve(LoadState::ULS).Stress(-0.02), -41e7 / c.bars);
  }
}

TEST(CVelmoData, GradesInUseStayUnderANewCodeAndAreReported) {
  CVelmoData document = BlockDocument({{0.1, 0.0}});                 // C30/37, B500B
  CMat& own = document.getMaterials()->Grade(MatType::concrete, 0);  // C12/15
  own = Edited(own, 1.3);
  const CMat edited = own;
  const CMat used = Concrete(document, L"C30/37");
  document.SetCodes(L"ACI 318-19");
  EXPECT_EQ(ProblemText(document),
            "materials.concrete[2].name: \"C30/37\", a grade of EN 1992-1-1:2004 that stays, a "
            "grade of ACI 318-19\n"
            "materials.reinforcement[1].name: \"B500B\", a grade of EN 1992-1-1:2004 that stays, "
            "a grade of ACI 318-19\n");
  const Materials& materials = *document.getMaterials();
  EXPECT_EQ(materials.Grade(MatType::concrete, 0), edited);
  const CSecComp& block = document.Section(0).Components()[0];
  EXPECT_EQ(materials.Grade(MatType::concrete, block.MaterialGrade()), used);
  EXPECT_EQ(materials.Reinforcement(block.Concrete().Bars()[0].Grade()).Name(), L"B500B");
  EXPECT_EQ(static_cast<std::size_t>(materials.NumGrades(MatType::concrete)),
            2 + document.concreteCode().Data().concretes.size());
  document.SetCodes(L"EN 1992-1-1:2004");
  EXPECT_EQ(ProblemText(document), "");
  EXPECT_EQ(Concrete(document, L"C30/37"), used);
}

TEST(CVelmoData, AWrongCodeChangesNothing) {
  for (const char* codes :
       {R"({"concrete": "ACI 318-19", "annex": "UK"})", R"("EN 1992")",
        R"({"concrete": "EN 1992-1-1:2004", "annex": ""})", R"({"annex": 1})", R"({"concrete": 3})",
        R"({"annex": "UK", "steel": "EN 1993"})", "3", "null"}) {
    CVelmoData document;
    const std::string before = WriteDocument(document);
    document.SetCodes(ParseText(codes));
    EXPECT_EQ(WriteDocument(document), before) << codes;
    EXPECT_EQ(document.ReadProblems().size(), 1U) << codes << "\n" << ProblemText(document);
  }
}

TEST(CVelmoData, SetsAndResetsGrades) {
  CVelmoData document;
  document.SetGrade(ParseText(R"({"type": "concrete", "name": "C30/37", "gamma": 1.2})"), true);
  document.SetGrade(ParseText(R"({"type": "concrete", "name": "C30/37", "f_ct": 1e6})"), false);
  EXPECT_EQ(ProblemText(document), "");
  const Design::MaterialProperties& properties = Concrete(document, L"C30/37").Properties();
  EXPECT_EQ(properties.gamma, 1.2);  // the second edit kept the first
  EXPECT_EQ(properties.f_ct, 1e6);
  document.ResetGrade(MatType::concrete, 4);
  EXPECT_EQ(*document.getMaterials(), *CVelmoData().getMaterials());

  document.SetGrade(ParseText(R"({"type": "steel", "name": "S240", "f_k": 240e6, "E": 210e9})"),
                    false);
  const int steel = document.getMaterials()->Find(MatType::steel, L"S240");
  ASSERT_GE(steel, 0);
  const Materials before = *document.getMaterials();
  document.ResetGrade(MatType::steel, steel);
  document.ResetGrade(MatType::steel, 99);
  document.ResetGrade(MatType::none, 0);
  for (const char* grade :
       {R"({"type": "steel", "name": "S290", "f_k": 290e6, "E": 210e9})",  // a new name
        R"({"type": "steel", "name": "S240", "E": 0})", R"({"type": "wood", "name": "S240"})",
        R"({"type": "concrete", "name": "C30/37", "sls": {"tension": {"curve": "none"}}})"}) {
    document.SetGrade(ParseText(grade), true);
    EXPECT_EQ(document.ReadProblems().size(), 1U) << grade << "\n" << ProblemText(document);
  }
  EXPECT_EQ(*document.getMaterials(), before);
}

TEST(CVelmoData, MovesOwnGradesOfComponentsIntoTheTables) {
  CVelmoData document = BlockDocument({});
  const CMat standard = Concrete(document, L"C30/37");
  auto& components = document.getSection(0).Components();
  components.resize(5, components.front());
  components[0].SetUserDefinedGrade(standard);
  components[1].SetUserDefinedGrade(Edited(standard, 1.1));
  components[2].SetUserDefinedGrade(Edited(standard, 1.1));
  components[3].SetUserDefinedGrade(CMat(MatType::steel));
  components[4].SetUserDefinedGrade(CMat(MatType::reinforcement));
  const Materials before = *document.getMaterials();
  EXPECT_TRUE(document.IsMigrationOfGradesRequired());
  document.SetUserDefinedGradesToSections();
  EXPECT_FALSE(document.IsMigrationOfGradesRequired());

  const Materials& materials = *document.getMaterials();
  const int count = before.NumGrades(MatType::concrete);
  EXPECT_EQ(materials.NumGrades(MatType::concrete), count + 1);
  EXPECT_EQ(materials.NumGrades(MatType::reinforcement), before.NumGrades(MatType::reinforcement));
  const auto& moved = document.Section(0).Components();
  EXPECT_EQ(materials.Grade(MatType::concrete, moved[0].MaterialGrade()), standard);
  EXPECT_EQ(moved[1].MaterialGrade(), count);
  EXPECT_EQ(moved[2].MaterialGrade(), count);
  EXPECT_EQ(materials.Grade(MatType::concrete, count).Name(), L"C30/37 (2)");
  EXPECT_EQ(materials.Grade(MatType::steel, moved[3].MaterialGrade()).Name(), L"user-defined");
  EXPECT_EQ(moved[4].MaterialType(), MatType::concrete);
}

TEST(CVelmoData, CrackedResultsApplyWhereAnIncludedConcreteHasSuchAModel) {
  CVelmoData document = BlockDocument({});
  const auto& section = document.Section(0);
  EXPECT_TRUE(document.HasMaterialModel(section, 0, LoadState::SLS, 22));
  EXPECT_FALSE(document.HasMaterialModel(section, 0, LoadState::ULS, 22));
  EXPECT_FALSE(document.HasMaterialModel(section, 0, LoadState::SLS, 20));
  EXPECT_TRUE(document.ShouldCalculateCracked(section, 0));
  document.getSection(0).Task(0).SetIncludedComponents({1});
  EXPECT_FALSE(document.ShouldCalculateCracked(section, 0));
  EXPECT_FALSE(section.hasConcreteComponent(0));
}

}  // namespace
}  // namespace Orlix::Data
