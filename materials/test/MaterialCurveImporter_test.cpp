#include "materials/MaterialCurveImporter.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "model/oxnumeric/Vec.h"
#include "model/oxutil/text.h"

namespace Orlix {
namespace {

using Data::CVelmoData;
using Data::Design::CMat;
using Data::Design::CurveKind;

constexpr LoadSign kCompression = LoadSign::compression;
constexpr LoadSign kTension = LoadSign::tension;
constexpr const char* kTooFew = "Not enough valid points to define stress-strain curve";
constexpr const char* kNoOrigin = "Invalid stress-strain curve, curve must go through the origin";

// Strains as plain numbers, stresses in MPa.
CVelmoData PlainDocument() {
  CVelmoData document;
  Data::CUnit units;
  units.SetUnitString(Dimension::strain, cstr("ε"));
  document.SetUnits(units);
  return document;
}

std::string Import(CVelmoData& document, MatType type, LoadSign sign, const std::string& text) {
  std::string error;
  const bool done = MaterialCurveImporter(document, type, 0, LoadState::ULS, sign, error)
                        .ImportPointsFromText(text);
  EXPECT_EQ(done, error.empty());
  return error;
}

const CMat& First(const CVelmoData& document, MatType type) {
  return document.getMaterials()->Grade(type, 0);
}

// To the pascal: a conversion rounds.
std::vector<Vec2<double>> PointsOf(const CMat& material) {
  const auto& table = material.Curve(LoadState::ULS).ExplicitPoints();
  std::vector<Vec2<double>> points;
  for (std::size_t i = 0; i < table.Rows(); ++i)
    points.push_back({table(i, 0), std::round(table(i, 1)) / 1e6});
  return points;
}

TEST(MaterialCurveImporter, KeepsThePointsOfOneSideOrSaysWhyNot) {
  const std::string file = "0,0\r\n0.001,20\r\n0.002,30\r\n";
  const std::vector<Vec2<double>> three = {{-0.002, -30}, {-0.001, -20}, {0, 0}};
  const struct {
    const char* what;
    std::string text;
    LoadSign sign;
    std::string error;
    std::vector<Vec2<double>> points;  // strain, MPa
  } kCases[] = {
      {"three lines", file, kCompression, "", three},
      {"no end of the last line", "0,0\r\n0.001,20\r\n0.002,30", kCompression, "", three},
      {"the other side", file, kTension, kTooFew, {}},
      {"tension", "0 0\r\n-0.001 -20\r\n0.002 30\r\n", kTension, "", {{0, 0}, {0.001, 20}}},
      {"every separator, runs of them, more fields", "0;0\r\n0.001 | 20\r\n\t,;0.002:: ,30|7;x\r\n",
       kCompression, "", three},
      {"lines that are no points",
       "strain;stress\r\n\r\n;;\r\n5\r\n0 0\r\n0x1 3\r\n0.001 20\r\n0.001 2O\r\n0.002 30\r\n",
       kCompression, "", three},
      {"not finite", "0 0\r\n0.001 20\r\nnan 3\r\n0.001 nan\r\n0.1 1e308\r\ninf 0\r\n0.002 30\r\n",
       kCompression, "", three},
      {"near the origin", "1e-11 5e-17\r\n0.001 20\r\n", kCompression, "", {{-0.001, -20}, {0, 0}}},
      {"zero stress is kept, at zero strain not",
       "0 0\r\n0 5\r\n0.001 0\r\n",
       kCompression,
       "",
       {{-0.001, 0}, {0, 0}}},
      {"no origin", "0.001 20\r\n0.002 30\r\n0.003 40\r\n", kCompression, kNoOrigin, {}},
      {"the origin twice", "0 0\r\n0 0\r\n", kCompression, kTooFew, {}},
      {"a line feed does not split", "0 0\n0.001 20\n", kCompression, kTooFew, {}},
      {"nothing", "", kCompression, "No valid points found", {}},
      {"an end of line", "\r\n", kCompression, kTooFew, {}},
      {"50,000 separators", std::string(50000, ' ') + file + std::string(50000, ',') + "\r\n",
       kCompression, "", three},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    CVelmoData document = PlainDocument();
    const CMat before = First(document, MatType::concrete);
    EXPECT_EQ(Import(document, MatType::concrete, c.sign, c.text), c.error);
    const CMat& material = First(document, MatType::concrete);
    if (c.error.empty()) {
      EXPECT_EQ(PointsOf(material), c.points);
    } else {
      EXPECT_EQ(material, before);
    }
  }
}

TEST(MaterialCurveImporter, ConvertsFromTheUnitsOfTheDocument) {
  CVelmoData document;  // ‰ and MPa
  EXPECT_EQ(Import(document, MatType::concrete, kCompression, "0 0\r\n1 20\r\n"), "");
  const auto& curve = First(document, MatType::concrete).Curve(LoadState::ULS);
  EXPECT_DOUBLE_EQ(curve.Stress(0.001), 20e6);
  EXPECT_EQ(curve.Stress(-0.0001), 0.0);  // a compression curve leaves concrete without tension
  EXPECT_DOUBLE_EQ(curve.Stress(0.01), 20e6);
  EXPECT_DOUBLE_EQ(curve.CompressionLimit(), 0.001);

  Util::JsonDocument json;  // a saved document has the same curve
  document.toJson(json, json.GetAllocator(), false);
  EXPECT_EQ(*CVelmoData(json).getMaterials(), *document.getMaterials());
}

TEST(MaterialCurveImporter, SidesGivenOneAfterTheOtherMakeOneCurve) {
  const std::string compression = "0 0\r\n0.001 20\r\n0.001 18\r\n0.003 18\r\n";  // with a step
  const std::string tension = "0 0\r\n-0.0001 -2\r\n";
  const struct {
    MatType type;
    LoadSign first;
    double tensionAt;  // [Pa] at 0.0001
  } kCases[] = {
      {MatType::concrete, kCompression, -2e6},
      {MatType::concrete, kTension, 0.0},  // whole curve: the tension before goes
      {MatType::steel, kCompression, -2e6},
      {MatType::reinforcement, kTension, -2e6},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(static_cast<int>(c.type));
    CVelmoData document = PlainDocument();
    if (document.getMaterials()->NumGrades(c.type) == 0) document.getMaterials()->Add(CMat(c.type));
    for (const LoadSign sign : {c.first, c.first == kTension ? kCompression : kTension}) {
      EXPECT_EQ(Import(document, c.type, sign, sign == kTension ? tension : compression), "");
    }
    const auto& curve = First(document, c.type).Curve(LoadState::ULS);
    EXPECT_DOUBLE_EQ(curve.Stress(0.0005), 10e6);
    EXPECT_DOUBLE_EQ(curve.Stress(0.002), 18e6);
    EXPECT_DOUBLE_EQ(curve.Stress(-0.0001), c.tensionAt);
  }
}

TEST(MaterialCurveImporter, WhatIsNoMaterialChangesNothing) {
  const struct {
    MatType type;
    int grade;
    const char* error;
  } kCases[] = {{MatType::none, 0, "Invalid material type"},
                {static_cast<MatType>(3), 0, "Invalid material type"},
                {MatType::concrete, -1, "Invalid material grade"},
                {MatType::concrete, 1000, "Invalid material grade"}};
  for (const auto& c : kCases) {
    CVelmoData document = PlainDocument();
    const Data::Materials before = *document.getMaterials();
    std::string error;
    EXPECT_FALSE(
        MaterialCurveImporter(document, c.type, c.grade, LoadState::SLS, kCompression, error)
            .ImportPointsFromText("0 0\r\n0.001 20\r\n"));
    EXPECT_EQ(error, c.error);
    EXPECT_EQ(*document.getMaterials(), before);
  }
}

TEST(MaterialCurveImporter, ReadsFilesWithEitherEndOfLine) {
  const auto folder = std::filesystem::temp_directory_path() / "velmo curve ü";
  std::filesystem::create_directories(folder);
  for (const std::string text : {"\xEF\xBB\xBF"
                                 "0,0\r\n0.001,20\r\n",
                                 "0,0\n0.001,20", ""}) {
    std::ofstream(folder / "curve.txt", std::ios::binary) << text;
    CVelmoData document = PlainDocument();
    std::string error;
    MaterialCurveImporter importer(document, MatType::concrete, 0, LoadState::ULS, kCompression,
                                   error);
    EXPECT_EQ(importer.ImportPointsFromFile(folder / "curve.txt"), !text.empty());
    EXPECT_EQ(error, text.empty() ? "No valid points found" : "");
    for (const auto& path : {folder, folder / "no such file"}) {
      EXPECT_FALSE(importer.ImportPointsFromFile(path));
      EXPECT_EQ(error, "No valid points found");
    }
  }
  std::filesystem::remove_all(folder);
}

TEST(MaterialCurveImporter, FilterLeavesOnlyPointsOfACurveInOrder) {
  CMat steel(MatType::steel);
  Data::CTableT<double> table(2);
  for (const auto& [strain, stress] : {Vec2<double>{0.01, 4e8},
                                       {-0.01, 3e8},
                                       {0.0, 1e6},
                                       {1e-12, 0.0},
                                       {0.0, 0.0},
                                       {NAN, 1.0},
                                       {-0.02, -4e8}}) {
    table.AddRow({strain, stress});
  }
  steel.SetExplicitPoints(LoadState::ULS, kTension, table);
  MaterialCurveImporter::FilterExplicitPoints(steel, LoadState::ULS);
  EXPECT_EQ(PointsOf(steel), (std::vector<Vec2<double>>{{-0.02, -400}, {0, 0}, {0.01, 400}}));
  EXPECT_EQ(steel.Model(LoadState::ULS, kTension), CurveKind::explicitPoints);
}

}  // namespace
}  // namespace Orlix
