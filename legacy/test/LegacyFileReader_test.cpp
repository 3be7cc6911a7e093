#include "legacy/LegacyFileReader.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "model/oxutil/text.h"
#include "model/oxutil/uuid.h"

namespace Orlix {
namespace {

namespace fs = std::filesystem;

const std::string kNotOpened = "The specified file could not be opened";
const std::string kDos = "This is a DOS file and cannot be read by this version of Velmo";
const std::string kModules = "The following module(s) could not be read:";

std::string FileText(const fs::path& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

// Every module, each with little in it; "@" stands for a quotation mark.
std::string SmallFile() {
  std::string text = R"(ORLIX VELMO 1.0 UTF-8
CONTENTS TITLES UNITS CODES CONCRETE REINFORCEMENT LINKS STEEL FRP SECTIONS TASKS
MODULE TITLES
PROJECT "Mast, ""lower"" part"
END TITLES
MODULE UNITS
STRESS "N/mm²"
END UNITS
MODULE CODES
CONCRETE_CODE EC2_GB_04
DISPLACED_CONCRETE KEPT
END CODES
MODULE CONCRETE
GRADE "C30/37" f_k=31e6
GRADE own f_k=20e6 E=27e9 gamma=1.5 f_ct=2e6
CURVE SLS BOTH BS8110_TENSION
END CONCRETE
MODULE REINFORCEMENT
GRADE "B500B" E=205e9
CURVE ULS BOTH EXPLICIT
POINT ULS 0.02 450e6
POINT ULS 1e-12 1e-12
POINT ULS 0.002 -3e6
POINT ULS 0.0022 440e6
POINT ULS 0.02 450e6
END REINFORCEMENT
MODULE LINKS
GRADE "B500B" E=205e9
CURVE ULS BOTH EXPLICIT
POINT ULS 0 0
POINT ULS 0.0022 440e6
POINT ULS 0.02 450e6
GRADE R250 like="B500A" f_k=250e6
END LINKS
MODULE STEEL
GRADE S275 f_k=275e6 E=210e9 gamma=1
END STEEL
MODULE FRP
GRADE plate f_k=2e9 E=160e9 gamma=1.3
END FRP
MODULE SECTIONS
SECTION first
COMPONENT body CONCRETE "C30/37"
SHAPE T width=1 depth=0.6 flangeThickness=0.2 webThickness=0.3 y=0.1
LINKS diameter=0.01 legs=4 perimeter=NO grade=R250
GRP_LINE -0.1 -0.25 0.1 -0.25 count=3 size=B20 grade="B500B"
GRP_POINT 0 0.2 size=S15.7 grade="Y1860S7" preforce=150e3
COMPONENT core STEEL S275
SHAPE I width=0.1 depth=0.2 flangeThickness=0.01 webThickness=0.008
SECTION second confinement=SPIRAL
COMPONENT body CONCRETE "C40/50"
OUTLINE
VERTEX 0 0
VERTEX 1 0
VERTEX 0 1
END SECTIONS
MODULE TASKS
TASK 1 all BOTH LOAD
CREEP LONG 2
CASE "" 1e5 0 -2.5e4
TASK 2 part ULS DEFORMATION
COMPONENTS 1
PHI_FACTORS 0.002 0.005 0.65 0.9
PRELOAD 1 1
BARS_ADDED_LATER 1
CASE bent 1e-4 0.002 0
END TASKS
)";
  return text;
}

class LegacyFile : public testing::Test {
 protected:
  LegacyFile() : path(fs::temp_directory_path() / ("velmo_" + NewUuid())) {}
  ~LegacyFile() override { fs::remove(path); }

  // The message of a reading; empty when the file was read.
  std::string Read(const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
    document = Data::CVelmoData();
    const std::string id = document.ModelId();
    std::wstring error;
    const bool isRead = reader.Read(to_wstring(path.string()), document, error);
    EXPECT_EQ(isRead, error.empty());
    EXPECT_EQ(document.ModelId() == id, !isRead) << "the target changes when the file was read";
    return to_string(error);
  }

  // The small file with a text replaced.
  static std::string With(const std::string& old, const std::string& text) {
    std::string file = SmallFile();
    const std::size_t at = file.find(old);
    EXPECT_NE(at, std::string::npos) << old;
    return file.replace(at, old.size(), text);
  }

  fs::path path;
  LegacyFileReader reader;
  Data::CVelmoData document;
};

TEST_F(LegacyFile, WhatHasNoHeaderIsNotOpened) {
  const struct {
    const char* what;
    std::string text;
    std::string message;
  } kCases[] = {
      {"empty", "", kNotOpened},
      {"JSON", "[1, 2]", kNotOpened},
      {"no contents", "ORLIX VELMO 1.0 UTF-8\n", kNotOpened},
      {"no module listed", "ORLIX VELMO 1.0 UTF-8\nCONTENTS\n", kNotOpened},
      {"a module listed twice", "ORLIX VELMO 1.0 UTF-8\nCONTENTS TITLES TITLES\n", kNotOpened},
      {"another program", With("ORLIX VELMO", "ORLIX FRAME"), kNotOpened},
      {"another family", With("ORLIX VELMO", "ORLYX VELMO"), kNotOpened},
      {"a later format", With("1.0", "2.0"), kNotOpened},
      {"an earlier format", With("1.0", "0.9"), kNotOpened},
      {"no version", With("1.0", "1"), kNotOpened},
      {"another encoding", With("UTF-8", "UTF-16"), kNotOpened},
      {"a mark of another encoding", "\xEF\xBB\xBF" + With("UTF-8", "LATIN-1"), kNotOpened},
      {"one endless line", std::string(200000, 'x'), kNotOpened},
      {"DOS", std::string("ORLIX\x1A\0\1\2", 9), kDos},
      {"DOS, one endless line", "ORLIX\x1A" + std::string(200000, 'x'), kDos},
      {"good", SmallFile(), ""},
      {"with a byte-order mark", "\xEF\xBB\xBF" + SmallFile(), ""},
      {"a comment before the contents", With("CONTENTS", "# here\n\n  CONTENTS"), ""},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(Read(c.text), c.message);
    EXPECT_TRUE(reader.Warnings().empty());
  }
  std::wstring error;
  EXPECT_FALSE(reader.Read(fs::temp_directory_path().wstring(), document, error));
  EXPECT_EQ(to_string(error), kNotOpened);
}

TEST_F(LegacyFile, WhatIsCutShortIsNeverADocument) {
  for (const char* example : {"examples/round-column.velmo", "examples/deck-strip.velmo"}) {
    const std::string whole = FileText(example);
    ASSERT_EQ(Read(whole), "") << example;
    EXPECT_TRUE(reader.Warnings().empty());
    EXPECT_EQ(Read(whole.substr(0, whole.size() - 1)), "") << "the last line feed may be missing";
    const std::size_t last = whole.rfind("END ");
    for (std::size_t size = 0; size + 1 < whole.size(); ++size) {
      // Anywhere in the first lines and the last, around each line end, now and then between.
      const bool isAtEnd = whole[size] == '\n' || (size > 0 && whole[size - 1] == '\n');
      if (size > 120 && size < last && !isAtEnd && size % 41 != 0) continue;
      std::ofstream(path, std::ios::binary) << whole.substr(0, size);
      std::wstring error;
      ASSERT_FALSE(reader.Read(to_wstring(path.string()), document, error)) << size;
      const std::string message = to_string(error);
      ASSERT_TRUE(message == kNotOpened || message.starts_with(kModules + "\n")) << size;
    }
  }
}

TEST_F(LegacyFile, NamesTheModulesAndTheLinesThatAreWrong) {
  const std::string endless(65537, ' ');
  const struct {
    const char* old;
    const char* text;
    std::string modules;
    std::size_t line;
    const char* problem;
  } kCases[] = {
      {"PROJECT", "PROJEKT", "TITLES", 4, "is no record"},
      {"part\"", "part", "TITLES", 4, "closing quote"},
      {"END TITLES\n", "PART a\nPART b\nEND TITLES\n", "TITLES", 6, "stands twice"},
      {"END TITLES\n", "", "TITLES", 5, "has no end"},
      {"END TASKS", endless.c_str(), "TASKS", 67, "longer than 65536 bytes"},
      {"STRESS \"N/mm²\"", "STRESS N/in²", "UNITS", 7, "is no unit"},
      {"EC2_GB_04", "EC9_04", "CODES", 10, "EC2_GB_04"},
      {"KEPT", "kept", "CODES", 11, "DEDUCTED, KEPT"},
      {"f_k=31e6", "f_k=-31e6", "CONCRETE", 14, "a positive number"},
      {"f_k=31e6", "f_k=31e6 f_k=32e6", "CONCRETE", 14, "stands twice"},
      {"f_k=31e6", "f_k=nan", "CONCRETE", 14, "a positive number"},
      {" f_ct=2e6", "", "CONCRETE", 15, "lacks f_ct"},
      {"BOTH BS8110", "TENSION BS8110", "CONCRETE", 15, "on one side only"},
      {"GRADE own", "GRADE \"C30/37\"", "CONCRETE", 15, "a second time"},
      {"0.0022 440e6", "0.0022", "REINFORCEMENT", 24, "stress"},
      {"BOTH EXPLICIT", "BOTH BILINEAR eps_limit=0.02", "REINFORCEMENT", 19, "no EXPLICIT side"},
      {"BOTH EXPLICIT", "BOTH BILINEAR eps_peak=2 eps_limit=1", "REINFORCEMENT", 19, "curve"},
      {"LINKS\nGRADE \"B500B\" E=205e9", "LINKS\nGRADE B500B E=206e9", "LINKS", 28, "other values"},
      {"like=\"B500A\"", "like=nothing", "LINKS", 33, "no grade \"nothing\""},
      {"MODULE STEEL", "MODULE STEEL x", "STEEL", 0, "contents alone"},
      {"CONCRETE \"C40/50\"", "CONCRETE C41/50", "SECTIONS", 51, "neither the file nor the code"},
      {"webThickness=0.3 ", "", "SECTIONS", 44, "lacks webThickness"},
      {"legs=4", "legs=2.5", "SECTIONS", 45, "whole number"},
      {"count=3", "count=3 spacing=0.1", "SECTIONS", 46, "either count or spacing"},
      {"size=B20", "size=B21", "SECTIONS", 46, "a metric size"},
      {"size=B20", "size=\"B20 top\"", "SECTIONS", 46, "lacks a size"},
      {"COMPONENT core STEEL S275", "COMPONENT core STEEL S275\nGRP_POINT 0 0 size=B20", "SECTIONS",
       49, "components of concrete"},
      {"VERTEX 1 0", "VERTEX 1", "SECTIONS", 54, "expected a number"},
      {"OUTLINE\n", "", "SECTIONS", 52, "before the first OUTLINE"},
      {"TASK 2", "TASK 3", "TASKS", 61, "a whole number, 1 to 2"},
      {"CREEP LONG 2", "CREEP LONG 2 0.5", "TASKS", 59, "one field more"},
      {"CREEP LONG 2", "CREEP LONG 2\nCREEP SHORT 0", "TASKS", 60, "stands twice"},
      {"COMPONENTS 1", "COMPONENTS 1 2", "TASKS", 62, "a whole number, 1 to 1"},
      {"PRELOAD 1 1\n", "", "TASKS", 64, "before the PRELOAD"},
      {"CASE bent", "CASE=bent", "TASKS", 66, "is no record"},
      {"END TASKS", "END TASK", "TASKS", 67, "has no end"},
      {"CONTENTS TITLES", "CONTENTS", "TITLES", 3, "does not stand in the contents"},
      {"CONTENTS", "CONTENTS WALLS", "WALLS", 0, "contents alone"},
      {"MODULE UNITS", "MODULE TITLES\nEND TITLES\nMODULE UNITS", "TITLES", 6, "stands twice"},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(std::string(c.old) + " -> " + c.text);
    EXPECT_EQ(Read(With(c.old, c.text)), kModules + "\n" + c.modules);
    ASSERT_FALSE(reader.Problems().empty());
    EXPECT_EQ(reader.Problems()[0].line, c.line);
    EXPECT_NE(reader.Problems()[0].text.find(c.problem), std::string::npos)
        << reader.Problems()[0].text;
  }
}

TEST_F(LegacyFile, ListsEveryModuleThatFailsAndNoneThatOnlyRefersToIt) {
  std::string text = With("GRADE own f_k", "GRADE own f k");
  text.replace(text.find("GRADE R250"), 5, "GRAD ");
  text.replace(text.find("CASE bent"), 4, "CASES");
  EXPECT_EQ(Read(text), kModules + "\nCONCRETE\nLINKS\nTASKS");
}

TEST_F(LegacyFile, WarnsOfWhatItLeavesOut) {
  const struct {
    const char* what;
    std::string text;
    std::size_t line;
    const char* warning;
  } kCases[] = {
      {"a module", With("MODULE UNITS", "MODULE WALLS\nany \"thing\nEND WALLS\nMODULE UNITS"), 6,
       "is no module that this version knows"},
      {"a listed module", With("CONTENTS", "CONTENTS WALLS") + "MODULE WALLS\nEND WALLS\n", 68,
       "is no module"},
      {"a line between modules", With("MODULE UNITS", "unit mm\nMODULE UNITS"), 6, "outside"},
      {"bytes", With("lower", "lo\xFFwer"), 4, "no UTF-8"},
      {"a record of a newer version",
       With("KEPT", "KEPT\nSEISMIC_CODE EC8_04").replace(12, 3, "1.7"), 12, "no record"},
      {"an attribute of a newer version", With("legs=4", "turns=4").replace(12, 3, "1.7"), 45,
       "no attribute"},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(Read(c.text), "");
    ASSERT_EQ(reader.Warnings().size(), 1U);
    EXPECT_EQ(reader.Warnings()[0].line, c.line);
    EXPECT_NE(reader.Warnings()[0].text.find(c.warning), std::string::npos)
        << reader.Warnings()[0].text;
  }
}

TEST_F(LegacyFile, ReadsWhatStandsThere) {
  ASSERT_EQ(Read(SmallFile()), "");
  EXPECT_EQ(document.Titles().project, "Mast, \"lower\" part");
  EXPECT_EQ(document.concreteCode().Data().country, Data::Design::CCountry::Code::unitedKingdom);
  EXPECT_FALSE(document.Options().deductDisplacedConcrete);
  ASSERT_EQ(document.NumSections(), 2);
  const auto& first = document.Section(0);
  const auto& reinforcement = first.Components().at(0).Concrete().GetReinforcement();
  EXPECT_EQ(reinforcement.links.legs, 4);
  EXPECT_EQ(to_string(reinforcement.descriptions.at(0).text),
            "3B20 line (-100mm, -250mm) (100mm, -250mm)");
  EXPECT_EQ(reinforcement.bars.at(0).Area(), 150e-6);
  EXPECT_EQ(reinforcement.bars.at(0).GetPreload(), (Data::Preload{PreloadKind::force, 150e3}));
  EXPECT_EQ(document.Section(1).Confinement(), Data::Confinement::spiral);
  const auto& task = document.Section(1).Tasks().at(0);
  EXPECT_EQ(task.Action(), LoadAction::deformation);
  EXPECT_EQ(task.PreloadFrom()->barsAddedLater, std::set<int>{0});
  EXPECT_EQ(task.PhiFactors()->tensionStrain, 0.005);
  EXPECT_EQ(task.Cases().at(0).input.y, 0.002);
}

TEST_F(LegacyFile, TheExampleOfThePageIsRead) {
  std::string example = FileText("docs/older-format.md");
  example.erase(0, example.find("```\n", example.find("## Example")) + 4);
  EXPECT_EQ(Read(example.substr(0, example.find("```"))), "");
  EXPECT_TRUE(reader.Warnings().empty());
  EXPECT_EQ(document.Section(0).Tasks().at(0).NumCases(), 2);
}

TEST_F(LegacyFile, GradesOfTheFileMoveIntoTheTablesUnderAFreeName) {
  ASSERT_EQ(Read(SmallFile()), "");
  ASSERT_TRUE(document.IsMigrationOfGradesRequired());
  document.SetUserDefinedGradesToSections();
  EXPECT_FALSE(document.IsMigrationOfGradesRequired());
  const auto materials = document.getMaterials();
  const auto nameOf = [&](MatType type, int grade) {
    return to_string(materials->Grade(type, grade).Name());
  };
  const auto& body = document.Section(0).Components().at(0);
  EXPECT_EQ(nameOf(MatType::concrete, body.MaterialGrade()), "C30/37 (2)");
  EXPECT_EQ(materials->Grade(MatType::concrete, body.MaterialGrade()).Properties().f_k, 31e6);
  const auto& bars = body.Concrete().GetReinforcement();
  EXPECT_EQ(nameOf(MatType::reinforcement, bars.descriptions.at(0).grade), "B500B (2)");
  EXPECT_EQ(nameOf(MatType::reinforcement, bars.bars.at(0).Grade()), "Y1860S7");
  EXPECT_EQ(nameOf(MatType::reinforcement, bars.links.grade), "R250");
  // The origin that was nearly one, the point of no side and the one given twice are put right.
  const auto& points = materials->Grade(MatType::reinforcement, bars.descriptions.at(0).grade)
                           .Curve(LoadState::ULS)
                           .ExplicitPoints();
  ASSERT_EQ(points.Rows(), 3U);
  EXPECT_EQ(points(0, 0), 0.0);
  EXPECT_EQ(points(1, 1), 440e6);
  // What nothing is made of is kept, too.
  EXPECT_GE(materials->Find(MatType::concrete, L"own"), 0);
  EXPECT_GE(materials->Find(MatType::FRP, L"plate"), 0);
}

}  // namespace
}  // namespace Orlix
