#include "model/vldata/test/test_documents.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace Orlix::Data {

Util::JsonDocument ParseText(std::string_view text) {
  Util::JsonDocument json;
  std::string error;
  EXPECT_TRUE(Util::ParseJson(text, json, error)) << error;
  return json;
}

CVelmoData ReadDocument(std::string_view text) {
  Util::JsonDocument json = ParseText(text);
  return CVelmoData(json);
}

std::string WriteDocument(const CVelmoData& document) {
  Util::JsonDocument json;
  document.toJson(json, json.GetAllocator(), true);
  return Util::PrettyJson(json);
}

std::string FileText(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string ProblemText(const CVelmoData& document) {
  std::string text;
  for (const ReadProblem& p : document.ReadProblems()) {
    text += p.path + ": " + p.found + ", " + p.expected + "\n";
  }
  return text;
}

CSecGeom Rectangle(double width, double depth, Vec2<double> centre) {
  return CSecGeom(ShapeKind::rectangle, {.width = width, .depth = depth}, centre);
}

CVelmoData BlockDocument(std::initializer_list<Vec2<double>> bars) {
  CVelmoData document;
  const Materials& materials = *document.getMaterials();
  CSecComp block(MatType::concrete, materials.Find(MatType::concrete, L"C30/37"),
                 Rectangle(0.4, 0.6));
  const int grade = materials.Find(MatType::reinforcement, L"B500B");
  Reinforcement reinforcement;
  for (const Vec2<double>& place : bars) {
    reinforcement.bars.emplace_back(place, 0.02, 3.14e-4, grade);
  }
  block.Concrete().SetReinforcement(reinforcement);
  document.AddSection().Components().push_back(block);
  return document;
}

}  // namespace Orlix::Data
