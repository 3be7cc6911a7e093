#include "model/vlsol/test/case_document.h"

#include <fstream>
#include <stdexcept>
#include <utility>

#include "model/oxutil/json.h"
#include "model/vldata/response/SectionCompiler.h"
#include "model/vlsol/Solver.h"

namespace Orlix::VlSol::Test {

using Data::Design::CMat;
using Data::Velmo9::AnalysisTask;
using Data::Velmo9::UlSResult;
using Data::Velmo9::VelmoSection;

CaseDocument::CaseDocument(bool deductDisplacedConcrete) {
  document_.SetOptions({.deductDisplacedConcrete = deductDisplacedConcrete});
  document_.AddSection();
}

int CaseDocument::AddMaterial(MatType type, const Data::Design::CurveScale& scale,
                              const Data::Design::CurveShape& compression,
                              const Data::Design::CurveShape& tension) {
  CMat material(type);
  const std::wstring name = L"test " + std::to_wstring(document_.getMaterials()->NumGrades(type));
  material.SetName(OrlixString<wchar_t>(name.c_str()));
  material.SetProperties({.f_k = scale.strength, .E = scale.modulus});
  material.SetShape(LoadState::ULS, LoadSign::compression, compression);
  material.SetShape(LoadState::ULS, LoadSign::tension, tension);
  return document_.getMaterials()->Add(material);
}

void CaseDocument::AddComponent(MatType type, int grade, Data::SectionPolygon polygon) {
  document_.getSection(0).Components().emplace_back(
      type, grade, Data::CSecGeom(std::vector{std::move(polygon)}));
}

void CaseDocument::AddBar(int component, Vec2<double> position, double area, int grade,
                          double prestrain) {
  auto& concrete =
      document_.getSection(0).Components()[static_cast<std::size_t>(component)].Concrete();
  Data::Reinforcement reinforcement = concrete.GetReinforcement();
  reinforcement.bars.emplace_back(position, 0.0, area, grade,
                                  Data::Preload{PreloadKind::strain, prestrain});
  concrete.SetReinforcement(std::move(reinforcement));
}

std::vector<UlSResult> CaseDocument::Solve(LoadAction action,
                                           const std::vector<Vec3<double>>& inputs) {
  VelmoSection& section = document_.getSection(0);
  AnalysisTask task;
  task.SetAction(action);
  for (const Vec3<double>& input : inputs) task.addCase({"", input});
  section.Task(0) = task;
  for (const std::string& problem :
       Data::Velmo9::SectionCompiler::Problems(document_, section, 0, LoadState::ULS)) {
    throw std::runtime_error("the section cannot be solved: " + problem);
  }
  Solver::SolveTask(document_, section, 0);
  std::vector<UlSResult> results;
  for (int i = 0; i < task.NumCases(); ++i) {
    results.push_back(section.Task(0).ULSResult(i, false));
  }
  return results;
}

UlSResult CaseDocument::Solve(LoadAction action, const Vec3<double>& input) {
  return Solve(action, std::vector{input}).front();
}

double CaseDocument::Stress(MatType type, int grade, double strain) const {
  return -document_.getMaterials()->Grade(type, grade).Curve(LoadState::ULS).Stress(-strain);
}

void ReadTestData(const std::string& name, Util::JsonDocument& json) {
  std::ifstream file(std::string(VLSOL_TEST_DATA) + "/" + name);
  if (!file) throw std::runtime_error("no test data " + name);
  std::string error;
  if (!Util::ParseJson(file, json, error)) throw std::runtime_error(name + ": " + error);
}

}  // namespace Orlix::VlSol::Test
