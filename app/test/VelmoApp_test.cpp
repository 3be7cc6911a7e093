#include "app/VelmoApp.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "app/test/Column.h"
#include "model/oxutil/json.h"
#include "model/oxutil/text.h"
#include "model/oxutil/uuid.h"

namespace Orlix {
namespace {

namespace fs = std::filesystem;

// A folder of the test's own.
class VelmoAppFiles : public testing::Test {
 protected:
  VelmoAppFiles() : folder(fs::temp_directory_path() / ("velmo_" + NewUuid())) {
    fs::create_directory(folder);
    AddColumn(*app.pData());
  }
  ~VelmoAppFiles() override { fs::remove_all(folder); }

  static std::string Read(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
  }
  static void Write(const fs::path& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
  }

  // The document as it is on disk with another member "filePath"; null: without.
  static void ReplaceFilePath(const fs::path& path, const char* filePathJson) {
    Util::JsonDocument json;
    Util::JsonDocument value;
    std::string error;
    ASSERT_TRUE(Util::ParseJson(Read(path), json, error)) << error;
    json.RemoveMember("filePath");
    if (filePathJson != nullptr) {
      ASSERT_TRUE(Util::ParseJson(filePathJson, value, error)) << error;
      json.AddMember("filePath", Util::CopyJson(value, json.GetAllocator()), json.GetAllocator());
    }
    Write(path, Util::PrettyJson(json));
  }

  fs::path folder;
  VelmoApp app;
};

TEST_F(VelmoAppFiles, WhatIsSavedReadsBackTheSame) {
  const fs::path path = folder / fs::path(u8"Stütze ½.json");
  const std::string id = app.pData()->ModelId();
  ASSERT_TRUE(app.Save(path, false));
  EXPECT_EQ(app.pData()->ModelId(), id);
  VelmoApp other;
  std::string message;
  const auto attributes = other.Open(path, message);
  EXPECT_TRUE(attributes.opened);
  EXPECT_FALSE(attributes.gradesNeedMigration);
  EXPECT_EQ(message, "");
  EXPECT_TRUE(other.pData()->ReadProblems().empty());
  EXPECT_EQ(other.pData()->ModelId(), id);
  EXPECT_EQ(other.pData()->FilePath(), path);
  EXPECT_EQ(other.fileString(true), app.fileString(true));
  EXPECT_EQ(to_string(other.fileString(true)), Read(path));

  ASSERT_TRUE(app.Save(path, true));
  EXPECT_NE(app.pData()->ModelId(), id);
}

TEST_F(VelmoAppFiles, ADocumentSavedElsewhereGetsANewIdentity) {
  const fs::path path = folder / "a.json";
  const struct {
    const char* what;
    const char* filePath;  // JSON; null: no such member
    bool keepsId;
  } kCases[] = {
      {"no member", nullptr, true}, {"another path", "\"elsewhere.json\"", false},
      {"empty", "\"\"", false},     {"a number", "5", false},
      {"null", "null", false},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    app.Save(path, false);
    ReplaceFilePath(path, c.filePath);
    VelmoApp other;
    std::string message;
    ASSERT_TRUE(other.Open(path, message).opened) << message;
    EXPECT_EQ(other.pData()->ModelId() == app.pData()->ModelId(), c.keepsId);
    EXPECT_EQ(other.pData()->FilePath(), path);
  }
  app.Save(path, false);
  fs::rename(path, folder / "b.json");
  VelmoApp moved;
  std::string message;
  ASSERT_TRUE(moved.Open(folder / "b.json", message).opened);
  EXPECT_NE(moved.pData()->ModelId(), app.pData()->ModelId());
}

TEST_F(VelmoAppFiles, WhatIsNoJsonObjectIsRefusedAndChangesNothing) {
  const std::wstring before = app.fileString(true);
  const fs::path path = folder / "input";
  const std::string contents[] = {"",
                                  "[1, 2]",
                                  "7",
                                  "{\"format\": ",
                                  "{} {}",
                                  "\xff\xfe garbage",
                                  std::string("DOS\0file", 8),
                                  std::string(1000000, '[')};
  for (const std::string& content : contents) {
    SCOPED_TRACE(content.substr(0, 20));
    Write(path, content);
    std::string message;
    const auto attributes = app.Open(path, message);
    EXPECT_FALSE(attributes.opened);
    EXPECT_FALSE(attributes.gradesNeedMigration);
    EXPECT_EQ(message, "The specified file could not be opened");
    EXPECT_EQ(app.fileString(true), before);
  }
  for (const fs::path& unreadable : {folder, folder / "missing.json"}) {
    std::string message;
    EXPECT_FALSE(app.Open(unreadable, message).opened);
    EXPECT_EQ(message, "The specified file could not be opened");
  }
}

TEST_F(VelmoAppFiles, SaveIsTrueEvenWhereNothingCanBeWritten) {
  EXPECT_TRUE(app.Save(folder / "no such folder" / "a.json", false));
  EXPECT_EQ(app.pData()->FilePath(), folder / "no such folder" / "a.json");
}

Data::CUnit UnitsAfter(const std::string& json) {
  VelmoApp app;
  Util::JsonDocument document;
  std::string error;
  EXPECT_TRUE(Util::ParseJson(json, document, error)) << error;
  app.setUnits(document);
  return app.pData()->Units();
}

TEST(VelmoApp, UnitsThatAreMissingOrUnknownTakeTheirDefault) {
  Data::CUnit force;
  ASSERT_TRUE(force.SetUnitString(Dimension::force, L"MN"));
  const Data::CUnit standard;
  EXPECT_EQ(UnitsAfter(R"({"force": {"label": "MN"}})"), force);
  for (const char* json :
       {"{}", "null", "[]", "7", R"({"force": "MN"})", R"({"force": {"label": 7}})",
        R"({"force": {}})", R"({"force": {"label": "stone"}})", R"({"Force": {"label": "MN"}})"}) {
    EXPECT_EQ(UnitsAfter(json), standard) << json;
  }
}

TEST(VelmoApp, ExplicitCurvesAreRefusedAndChangeNothing) {
  VelmoApp app;
  const std::wstring before = app.fileString(true);
  std::string text = "0.001 20";
  std::string message;
  EXPECT_FALSE(app.setExplicitCurve(MatType::concrete, 0, LoadState::ULS, LoadSign::compression,
                                    text, message));
  EXPECT_EQ(message, "Explicit curves cannot be imported yet");
  message.clear();
  EXPECT_FALSE(app.importExplicitCurve(MatType::concrete, 0, LoadState::ULS, LoadSign::compression,
                                       "curve.txt", message));
  EXPECT_EQ(message, "Explicit curves cannot be imported yet");
  EXPECT_EQ(app.fileString(true), before);
}

TEST(VelmoApp, IndicesOutsideTheDocumentAreNotValid) {
  VelmoApp app;
  EXPECT_FALSE(app.isValidSectionIndex(0));
  AddColumn(*app.pData());
  EXPECT_TRUE(app.isValidSectionIndex(0));
  EXPECT_TRUE(app.isValidTaskIndex(0, 0));
  for (const int index : {-1, 1}) {
    EXPECT_FALSE(app.isValidSectionIndex(index));
    EXPECT_FALSE(app.isValidTaskIndex(0, index));
    EXPECT_FALSE(app.isValidTaskIndex(index, 0));
  }
}

TEST(VelmoApp, CopiesAreIndependent) {
  VelmoApp app;
  AddColumn(*app.pData());
  VelmoApp copy = app;
  copy.New(L"title", Data::CUnit());
  EXPECT_EQ(app.pData()->NumSections(), 1);
  EXPECT_EQ(copy.pData()->NumSections(), 0);
  EXPECT_EQ(copy.pData()->Titles().project, "title");
}

}  // namespace
}  // namespace Orlix
