// Ten thousand edits through the facade, side by side with a plain model that remembers for every
// task what its results were computed from.

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "app/VelmoApp.h"
#include "app/test/PlainModel.h"
#include "model/oxutil/StringFrom.h"
#include "model/oxutil/json.h"
#include "model/vldata/json/sections_json.h"

namespace Orlix {
namespace {

using Data::Velmo9::AnalysisTask;
using Data::Velmo9::VelmoSection;

constexpr int kOperations = 10'000;
Util::JsonDocument Parsed(const std::string& text) {
  Util::JsonDocument json;
  std::string error;
  EXPECT_TRUE(Util::ParseJson(text, json, error)) << error << text;
  return json;
}

// NaN is the same as NaN.
bool IsSame(const Vec3<double>& a, const Vec3<double>& b) {
  const auto same = [](double x, double y) { return x == y || (std::isnan(x) && std::isnan(y)); };
  return same(a.x, b.x) && same(a.y, b.y) && same(a.z, b.z);
}

// The results of a case in a few numbers.
std::vector<Vec3<double>> ResultsOf(const AnalysisTask& task, int iCase) {
  const auto uls = task.ULSResult(iCase, false);
  const auto sls = task.SLSResult(iCase, false, true, false);
  return {{uls.LoadUtilisation(), uls.DeformationUtilisation(), uls.MomentRatio()},
          uls.Load().Vector(),
          uls.Deformation().Vector(),
          sls.Response().uncracked.Deformation().Vector(),
          sls.Response().cracked.Load().Vector(),
          {sls.CrackingUtilisation(), sls.Response().zeta, 0.0}};
}

class RandomEdits : public testing::Test {
 protected:
  // A number below n, the same on every platform.
  int Below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
  bool OneIn(int n) { return Below(n) == 0; }
  int AnySection() { return Below(static_cast<int>(sections_.size())); }
  PlainSection& Plain(int iSec) { return sections_[static_cast<std::size_t>(iSec)]; }
  int NumTasks(int iSec) { return static_cast<int>(Plain(iSec).tasks.size()); }
  PlainTask& Plain(int iSec, int iTask) {
    return Plain(iSec).tasks[static_cast<std::size_t>(iTask)];
  }

  // All that decides the results of a task besides its cases.
  std::string Basis(int iSec, int iTask) {
    const PlainTask& task = Plain(iSec, iTask);
    std::string text = materials_ + std::to_string(Plain(iSec).width) + (task.uls ? "u" : "") +
                       (task.sls ? "s" : "") + (task.isLoad ? "l" : "d") +
                       (task.firstAlone ? "1" : "2") + (task.from == kNone ? "" : "preloaded");
    if (const PlainTask* reference = Preloading(Plain(iSec), iTask)) {
      text += " by " + StringFrom(reference->cases[static_cast<std::size_t>(task.fromCase - 1)]) +
              " of (" + Basis(iSec, Position(Plain(iSec), reference->id)) + ")";
    }
    return text;
  }

  void ForgetOutdated() {
    const auto& table = *app_.pData()->getMaterials();
    const auto& concrete = table.Grade(MatType::concrete, table.Find(MatType::concrete, L"C30/37"));
    materials_ = app_.pData()->CodePointer()->annex + StringFrom(concrete.DesignStrength()) + " " +
                 StringFrom(concrete.Curve(LoadState::ULS).Stress(0.001)) + " ";
    for (int s = 0; s < static_cast<int>(sections_.size()); ++s) {
      for (int t = 0; t < NumTasks(s); ++t) {
        if (Plain(s, t).solvedFor != Basis(s, t)) Plain(s, t).solvedFor.clear();
      }
    }
  }

  // Makes some of a task another; what preloads it comes from the tasks of a section.
  void Vary(PlainTask& task, const PlainSection& section) {
    const int what = Below(5);
    if (what == 0) task.uls = !OneIn(4), task.sls = OneIn(2);
    if (what == 1) task.isLoad = !task.isLoad;
    if (what == 2) task.firstAlone = !task.firstAlone;
    if (what == 3) task.cases.assign(static_cast<std::size_t>(Below(4)), 0.25 * Below(9) - 1.5);
    if (what < 4) return;
    task.from = OneIn(4) ? kNone : section.tasks[random_() % section.tasks.size()].id;
    task.fromCase = 1 + Below(2);
  }

  // The task for the facade, with the results that another has.
  AnalysisTask TaskWith(const PlainTask& plain, int iSec, const AnalysisTask& other) {
    AnalysisTask task = TaskLike(Plain(iSec), plain);
    task.SetResults(other.Results());
    return task;
  }

  void AddSection() {
    sections_.push_back({2 + Below(3), {}});
    app_.AddSection(SectionLike(sections_.back(), *app_.pData()->getMaterials()));
  }

  void AddTask(int iSec) {
    if (OneIn(2)) {
      app_.addTask(iSec);
      Plain(iSec).tasks.push_back({.id = nextId_++});
      return;
    }
    const int from = AnySection();
    if (NumTasks(from) == 0) return;
    const int iTask = Below(NumTasks(from));
    PlainTask copy = Plain(from, iTask);
    copy.id = nextId_++;
    if (from != iSec) copy.from = kNone;  // numbers of tasks mean those of another section there
    app_.addTask(iSec, TaskWith(copy, iSec, app_.pData()->Section(from).Task(iTask)));
    Plain(iSec).tasks.push_back(copy);
  }

  void DeleteTask(int iSec, int iTask) {
    app_.deleteTask(iSec, iTask);
    const int id = Plain(iSec, iTask).id;
    Plain(iSec).tasks.erase(Plain(iSec).tasks.begin() + iTask);
    for (PlainTask& task : Plain(iSec).tasks) {
      if (task.from == id) task.from = kDeleted;
    }
  }

  void SetSection(int iSec) {
    PlainSection& section = Plain(iSec);
    if (OneIn(2)) section.width = 2 + Below(3);
    if (!section.tasks.empty() && OneIn(3)) section.tasks.pop_back();
    for (PlainTask& task : section.tasks) {
      if (task.from >= 0 && Position(section, task.from) < 0) task.from = kDeleted;
    }
    Util::JsonDocument json;
    const auto& materials = *app_.pData()->getMaterials();
    app_.setSection(iSec,
                    SectionToJson(SectionLike(section, materials), materials, json.GetAllocator()));
    EXPECT_TRUE(app_.pData()->ReadProblems().empty());
  }

  void Solve(int iSec, int iTask) {
    app_.SolveTask(app_.pData()->getSection(iSec), iTask);
    PlainTask& task = Plain(iSec, iTask);
    task.solvedFor.clear();
    const PlainTask* reference = Preloading(Plain(iSec), iTask);
    if (task.from != kNone && (task.uls || task.sls) &&
        (reference == nullptr || (task.uls && !reference->uls) || (task.sls && !reference->sls))) {
      return;
    }
    task.solvedFor = Basis(iSec, iTask);
    task.solvedCases = task.cases;
  }

  void ChangeMaterials() {
    const auto& materials = *app_.pData()->getMaterials();
    const int grade = materials.Find(MatType::concrete, L"C30/37");
    std::string text = OneIn(2) ? "0,0\r\n1,20\r\n3,25" : "0,0\r\n1,22\r\n3,25";  // ‰, MPa
    std::string message;
    switch (Below(4)) {
      case 0:
        return app_.setCodes(
            Parsed(OneIn(2) ? R"({"annex": "UK"})" : R"({"annex": "recommended"})"));
      case 1:
        return app_.setGrade(Parsed(R"({"type": "concrete", "name": "C30/37", "gamma": 1.)" +
                                    std::to_string(3 + Below(3)) + "}"));
      case 2:
        return app_.resetGrade(MatType::concrete, grade);
      default:
        EXPECT_TRUE(app_.setExplicitCurve(MatType::concrete, grade, LoadState::ULS,
                                          LoadSign::compression, text, message))
            << message;
    }
  }

  void Edit() {
    if (sections_.empty() || (sections_.size() < 4 && OneIn(40))) return AddSection();
    const int s = AnySection();
    if (NumTasks(s) == 0 || (NumTasks(s) < 6 && OneIn(10))) return AddTask(s);
    const int t = Below(NumTasks(s));
    PlainTask& task = Plain(s, t);
    switch (Below(20)) {
      case 0:
        return DeleteTask(s, t);
      case 1:
        return SetSection(s);
      case 2:
        if (OneIn(2)) return ChangeMaterials();
        if (!OneIn(3)) return;
        sections_.erase(sections_.begin() + s);
        return app_.deleteSection(s);
      case 3:
      case 4:
      case 5: {
        PlainTask other = task;
        Vary(other, Plain(s));
        app_.updateTask(s, t, TaskWith(other, s, app_.pData()->Section(s).Task(t)));
        task = other;
        return;
      }
      case 6:
      case 7:
      case 8:
      case 9:
      case 10:
      case 11:
      case 12: {
        const int c = Below(4);
        while (static_cast<int>(task.cases.size()) <= c) task.cases.push_back(0.0);
        task.cases[static_cast<std::size_t>(c)] = 0.25 * Below(9) - 1.5;
        return app_.setCaseInput(s, t, c, InputOf(task, task.cases[static_cast<std::size_t>(c)]));
      }
      default:
        return OneIn(2) ? Solve(s, t) : void();
    }
  }

  void CheckTask(int iSec, int iTask, std::int64_t& numWaiting) {
    const PlainTask& plain = Plain(iSec, iTask);
    const AnalysisTask& task = app_.pData()->Section(iSec).Task(iTask);
    ASSERT_EQ(task.Cases().size(), plain.cases.size());
    ASSERT_EQ(task.PreloadFrom() ? task.PreloadFrom()->task : -1,
              plain.from == kNone ? -1 : Position(Plain(iSec), plain.from) + 1);
    bool isReferenced = false;
    for (int later = iTask + 1; later < NumTasks(iSec); ++later) {
      isReferenced = isReferenced || Plain(iSec, later).from == plain.id;
    }
    ASSERT_EQ(app_.IsTaskReferenced(iSec, iTask), isReferenced);
    for (int c = 0; c < task.NumCases(); ++c) {
      const auto i = static_cast<std::size_t>(c);
      ASSERT_TRUE(IsSame(task.Cases()[i].input, InputOf(plain, plain.cases[i])));
      ASSERT_EQ(task.IsCaseAnalysed(c), IsSolved(plain, c)) << "case " << c;
      const bool waits = (plain.uls || plain.sls) && !IsSolved(plain, c);
      ASSERT_EQ(app_.pData()->Queue().Contains(iSec, iTask, c), waits) << "case " << c;
      numWaiting += waits ? 1 : 0;
    }
  }

  void CheckModel() {
    const Data::CVelmoData& document = *app_.pData();
    ASSERT_EQ(document.Sections().size(), sections_.size());
    std::int64_t numWaiting = 0;
    for (int s = 0; s < document.NumSections(); ++s) {
      ASSERT_EQ(static_cast<int>(document.Section(s).Tasks().size()), NumTasks(s));
      for (int t = 0; t < NumTasks(s); ++t) {
        SCOPED_TRACE("section " + std::to_string(s) + ", task " + std::to_string(t));
        ASSERT_NO_FATAL_FAILURE(CheckTask(s, t, numWaiting));
      }
    }
    ASSERT_EQ(document.Queue().NumCases(), numWaiting);
  }

  // Solves a section from scratch, each task as soon as those that preload it, and compares.
  void CheckResults(int iSec) {
    VelmoApp scratch = app_;
    scratch.pData()->Sections().clear();
    VelmoSection& section =
        scratch.pData()->AddSection(SectionLike(Plain(iSec), *scratch.pData()->getMaterials()));
    for (int t = 0; t < NumTasks(iSec); ++t) {
      scratch.SolveTask(section, t);
      const AnalysisTask& task = app_.pData()->Section(iSec).Task(t);
      for (int c = 0; c < task.NumCases(); ++c) {
        if (!IsSolved(Plain(iSec, t), c)) continue;
        const auto got = ResultsOf(task, c);
        const auto want = ResultsOf(section.Task(t), c);
        for (std::size_t i = 0; i < want.size(); ++i) {
          ASSERT_TRUE(IsSame(got[i], want[i])) << "task " << t << ", case " << c << ", item " << i;
        }
        ++numCompared_;
      }
    }
  }

  std::mt19937 random_{20240607};
  int nextId_{1};
  VelmoApp app_;
  std::vector<PlainSection> sections_;
  std::string materials_;  // what decides results of the one concrete and its code
  int numCompared_{};
};

TEST_F(RandomEdits, NoIndexIsWrongAndNoResultOutlivesWhatItWasComputedFrom) {
  for (int i = 0; i < kOperations; ++i) {
    SCOPED_TRACE("operation " + std::to_string(i));
    Edit();
    ForgetOutdated();
    ASSERT_NO_FATAL_FAILURE(CheckModel());
    if (i % 25 == 0 && !sections_.empty()) {
      ASSERT_NO_FATAL_FAILURE(CheckResults(AnySection()));
      app_ = VelmoApp(app_);  // a copy is the same document
    }
  }
  EXPECT_GT(numCompared_, kOperations / 25);
}

}  // namespace
}  // namespace Orlix
