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
using Data::Velmo9::SLSResult;
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

void CaseDocument::SetServiceCurve(MatType type, int grade,
                                   const Data::Design::CurveShape& compression,
                                   const Data::Design::CurveShape& tension, double f_ct) {
  CMat& material = document_.getMaterials()->Grade(type, grade);
  Data::Design::MaterialProperties properties = material.Properties();
  properties.f_ct = f_ct;
  material.SetProperties(properties);
  material.SetShape(LoadState::SLS, LoadSign::compression, compression);
  material.SetShape(LoadState::SLS, LoadSign::tension, tension);
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

const AnalysisTask& CaseDocument::SolveTask(LoadAction action,
                                            const std::vector<Vec3<double>>& inputs,
                                            LoadState state) {
  VelmoSection& section = document_.getSection(0);
  AnalysisTask& task = section.Task(0);
  task = settings_;
  task.SetLimitStates(state == LoadState::ULS, state == LoadState::SLS);
  task.SetAction(action);
  for (const Vec3<double>& input : inputs) task.addCase({"", input});
  for (const std::string& problem :
       Data::Velmo9::SectionCompiler::Problems(document_, section, 0, state)) {
    throw std::runtime_error("the section cannot be solved: " + problem);
  }
  Solver::SolveTask(document_, section, 0);
  return task;
}

std::vector<UlSResult> CaseDocument::Solve(LoadAction action,
                                           const std::vector<Vec3<double>>& inputs) {
  const AnalysisTask& task = SolveTask(action, inputs, LoadState::ULS);
  std::vector<UlSResult> results;
  for (int i = 0; i < task.NumCases(); ++i) results.push_back(task.ULSResult(i, false));
  return results;
}

std::vector<SLSResult> CaseDocument::SolveSls(LoadAction action,
                                              const std::vector<Vec3<double>>& inputs) {
  const AnalysisTask& task = SolveTask(action, inputs, LoadState::SLS);
  std::vector<SLSResult> results;
  for (int i = 0; i < task.NumCases(); ++i) {
    results.push_back(task.SLSResult(i, true, true, true));
  }
  return results;
}

SLSResult CaseDocument::SolveSls(LoadAction action, const Vec3<double>& input) {
  return SolveSls(action, std::vector{input}).front();
}

Data::CInterpolateStrain CaseDocument::Interpolation(const Vec3<double>& load,
                                                     const SLSResult& result) const {
  return {
      Data::Velmo9::VelmoLoad(load), result.Response(), document_, document_.Section(0), 0, true};
}

UlSResult CaseDocument::Solve(LoadAction action, const Vec3<double>& input) {
  return Solve(action, std::vector{input}).front();
}

double CaseDocument::Stress(MatType type, int grade, double strain, LoadState state) const {
  return -document_.getMaterials()->Grade(type, grade).Curve(state).Stress(-strain);
}

void ReadTestData(const std::string& name, Util::JsonDocument& json) {
  std::ifstream file(std::string(VLSOL_TEST_DATA) + "/" + name);
  if (!file) throw std::runtime_error("no test data " + name);
  std::string error;
  if (!Util::ParseJson(file, json, error)) throw std::runtime_error(name + ": " + error);
}

}  // namespace Orlix::VlSol::Test
