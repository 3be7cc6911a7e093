// A column under two load cases: section, materials, bars and loads from code, results as records.

#include <cstdio>
#include <string>
#include <vector>

#include "app/VelmoApp.h"

int main() {
  using namespace Orlix;

  VelmoApp app;  // a new document: EN 1992-1-1 with its standard grades
  const Data::Materials& materials = *app.pData()->getMaterials();
  const int concrete = materials.Find(MatType::concrete, L"C30/37");
  const int steel = materials.Find(MatType::reinforcement, L"B500B");

  // 400 mm by 500 mm about the origin, 25 mm bars all around at 40 mm cover. Metres everywhere.
  Data::CSecComp column(MatType::concrete, concrete,
                        Data::CSecGeom(Data::ShapeKind::rectangle, {.width = 0.4, .depth = 0.5}));
  Data::Reinforcement reinforcement;
  reinforcement.descriptions.push_back({.text = L"8B25 perimeter cover 40mm", .grade = steel});
  column.Concrete().SetReinforcement(reinforcement);
  Data::CSection geometry;
  geometry.SetName(L"Column");
  geometry.Components().push_back(column);

  Data::Velmo9::VelmoSection& section = app.AddSection(geometry);
  app.generateRebar(section);
  // N, Myy, Mzz in N and Nm about the origin, tension positive.
  section.AddTask().addCase({"wind", {-2.0e6, 2.5e5, 0.0}});
  section.Task(0).addCase({"impact", {-1.5e6, 3.0e5, 2.0e5}});

  std::vector<std::string> problems;
  if (!app.preSolutionChecksPassed(problems, 0, 0)) {
    for (const std::string& problem : problems) std::fprintf(stderr, "%s\n", problem.c_str());
    return 1;
  }
  app.SolveTask(section, 0);
  const Data::Velmo9::UlsOutputOptions everything(true);
  for (int i = 0; i < section.Task(0).NumCases(); ++i) {
    const Data::Velmo9::CaseULSDetails result = app.CaseULSDetails(0, 0, i, everything, false);
    std::printf("%-8s utilisation %.4f %s\n", section.Task(0).Cases()[i].name.c_str(),
                result.loadUtilisation, result.status ? "carried" : "NOT CARRIED");
  }
  return 0;
}
