#pragma once

#include <cmath>
#include <string>
#include <vector>

#include "model/vldata/document/CVelmoData.h"

namespace Orlix {

// What a front end believes to be in a document, in plain records; a task is known by an identity
// and not by its number, and says itself what its results were computed from.

inline constexpr int kNone = -1;     // as what a task is preloaded by
inline constexpr int kDeleted = -2;  // the task that it was preloaded by

struct PlainTask {
  int id{};
  bool uls{true};
  bool sls{};
  bool isLoad{true};
  bool firstAlone{};  // includes the first component alone
  int from{kNone};    // identity of the task that preloads it
  int fromCase{1};
  std::vector<double> cases{};        // axial force [MN] or strain [‰]
  std::string solvedFor{};            // what the results were computed from; empty: no results
  std::vector<double> solvedCases{};  // with them
};

struct PlainSection {
  int width{};  // [dm]
  std::vector<PlainTask> tasks;
};

inline Vec3<double> InputOf(const PlainTask& task, double number) {
  // Off the axis, so that every component of a plane tells one case from another.
  if (task.isLoad) return {number * 1e6, number * 3e4, number * -2e4};
  return {number * 1e-3, number * 2e-3, number * -1e-3};
}

inline int Position(const PlainSection& section, int id) {
  for (std::size_t i = 0; i < section.tasks.size(); ++i) {
    if (section.tasks[i].id == id) return static_cast<int>(i);
  }
  return -1;
}

inline bool IsSolved(const PlainTask& task, int iCase) {
  const auto i = static_cast<std::size_t>(iCase);
  return (task.uls || task.sls) && !task.solvedFor.empty() && i < task.solvedCases.size() &&
         i < task.cases.size() && task.solvedCases[i] == task.cases[i];
}

// The case that preloads a task when there is one with results.
inline const PlainTask* Preloading(const PlainSection& section, int iTask) {
  const PlainTask& task = section.tasks[static_cast<std::size_t>(iTask)];
  const int at = Position(section, task.from);
  if (at < 0 || at >= iTask) return nullptr;
  const PlainTask& reference = section.tasks[static_cast<std::size_t>(at)];
  return IsSolved(reference, task.fromCase - 1) ? &reference : nullptr;
}

inline Data::Velmo9::AnalysisTask TaskLike(const PlainSection& section, const PlainTask& plain) {
  Data::Velmo9::AnalysisTask task;
  task.SetLimitStates(plain.uls, plain.sls);
  task.SetAction(plain.isLoad ? LoadAction::load : LoadAction::deformation);
  if (plain.firstAlone) task.SetIncludedComponents({0});
  if (plain.from != kNone) {
    task.SetPreloadFrom(
        Data::Velmo9::PreloadReference{Position(section, plain.from) + 1, plain.fromCase});
  }
  for (const double number : plain.cases) task.addCase({"", InputOf(plain, number)});
  return task;
}

// A rectangle with two bars and a topping.
inline Data::Velmo9::VelmoSection SectionLike(const PlainSection& plain,
                                              const Data::Materials& materials) {
  const int concrete = materials.Find(MatType::concrete, L"C30/37");
  const int steel = materials.Find(MatType::reinforcement, L"B500B");
  const auto rectangle = [](double width, double depth, double z) {
    return Data::CSecGeom(Data::ShapeKind::rectangle, {.width = width, .depth = depth}, {0.0, z});
  };
  Data::Velmo9::VelmoSection section;
  section.Components().emplace_back(MatType::concrete, concrete,
                                    rectangle(plain.width * 0.1, 0.5, 0.0));
  section.Components().emplace_back(MatType::concrete, concrete, rectangle(0.2, 0.1, 0.3));
  section.Components().front().Concrete().SetReinforcement(
      {{{{0.05, 0.2}, 0.02, 3e-4, steel}, {{-0.05, -0.2}, 0.025, 5e-4, steel}}});
  for (const PlainTask& task : plain.tasks) section.AddTask(TaskLike(plain, task));
  return section;
}

}  // namespace Orlix
