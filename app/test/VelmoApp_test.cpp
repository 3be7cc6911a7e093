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

  // Writes the document with another member "filePath", or without one.
  void WriteWithFilePath(const fs::path& path, const std::string& filePath) const {
    const std::string text = to_string(app.fileString(false));
    const std::string member = filePath.empty() ? "" : "\"filePath\": " + filePath + ",";
    Write(path, "{" + member + text.substr(1));
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
  for (const char* filePath : {"", "\"elsewhere.json\"", "\"\"", "5", "null"}) {
    SCOPED_TRACE(filePath);
    WriteWithFilePath(path, filePath);
    VelmoApp other;
    std::string message;
    ASSERT_TRUE(other.Open(path, message).opened) << message;
    const bool hasMember = *filePath != '\0';
    EXPECT_EQ(other.pData()->ModelId() != app.pData()->ModelId(), hasMember);
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
  const auto expectRefused = [&](const fs::path& path) {
    std::string message;
    EXPECT_FALSE(app.Open(path, message).opened);
    EXPECT_EQ(message, "The specified file could not be opened");
    EXPECT_EQ(app.fileString(true), before);
  };
  for (const std::string& content :
       {std::string(), std::string("[1, 2]"), std::string("{\"format\": "),
        std::string("DOS\0file", 8), std::string(1000000, '[')}) {
    SCOPED_TRACE(content.substr(0, 20));
    Write(folder / "input", content);
    expectRefused(folder / "input");
  }
  expectRefused(folder);
  expectRefused(folder / "missing.json");
}

TEST_F(VelmoAppFiles, SaveIsTrueEvenWhereNothingCanBeWritten) {
  EXPECT_TRUE(app.Save(folder / "no such folder" / "a.json", false));
  EXPECT_EQ(app.pData()->FilePath(), folder / "no such folder" / "a.json");
}

TEST(VelmoApp, UnitsThatAreMissingOrUnknownTakeTheirDefault) {
  for (const char* text : {"null", "[]", R"({"force": "MN"})", R"({"force": {"label": 7}})",
                           R"({"force": {"label": "stone"}})", R"({"Force": {"label": "MN"}})"}) {
    Data::CUnit units;
    ASSERT_TRUE(units.SetUnitString(Dimension::force, L"kip"));
    VelmoApp app;
    app.pData()->SetUnits(units);
    Util::JsonDocument json;
    std::string error;
    ASSERT_TRUE(Util::ParseJson(text, json, error)) << error;
    app.setUnits(json);
    EXPECT_EQ(app.pData()->Units(), Data::CUnit()) << text;
  }
}

}  // namespace
}  // namespace Orlix
