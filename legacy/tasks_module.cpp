#include "legacy/tasks_module.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "legacy/limits.h"

namespace Orlix::Legacy {
namespace {

using Data::Velmo9::AnalysisTask;
using Data::Velmo9::CreepSettings;
using Data::Velmo9::LoadTerm;
using Data::Velmo9::VelmoSection;

constexpr std::array<std::pair<std::string_view, std::pair<bool, bool>>, 4> kLimitStates = {{
    {"ULS", {true, false}},
    {"SLS", {false, true}},
    {"BOTH", {true, true}},
    {"NONE", {false, false}},
}};

constexpr std::array<std::pair<std::string_view, LoadAction>, 2> kActions = {{
    {"LOAD", LoadAction::load},
    {"DEFORMATION", LoadAction::deformation},
}};

constexpr std::array<std::pair<std::string_view, LoadTerm>, 3> kTerms = {{
    {"SHORT", LoadTerm::shortTerm},
    {"LONG", LoadTerm::longTerm},
    {"INTERMEDIATE", LoadTerm::intermediate},
}};

// Reads tasks, each from its record TASK to the next.
class TasksReader {
 public:
  explicit TasksReader(Context& context) : context_(context), record_(context.Records("TASKS")) {}

  void Read() {
    while (record_.Next()) {
      if (record_.Keyword() == "TASK") {
        Finish();
        Begin();
      } else if (!isOpen_) {
        record_.Problem("stands before the first TASK that can be read");
      } else {
        ReadRecord();
      }
    }
    Finish();
  }

 private:
  void Begin() {
    task_ = {};
    seen_.clear();
    if (context_.MayLackSections()) {
      record_.Text("number of the section");
    } else {
      section_ = record_.Index("number of the section", context_.document.NumSections());
    }
    task_.SetName(record_.Text("name of the task"));
    if (const auto states = record_.Word<std::pair<bool, bool>>("limit states", kLimitStates)) {
      task_.SetLimitStates(states->first, states->second);
    }
    if (const auto action = record_.Word<LoadAction>("kind of the cases", kActions)) {
      task_.SetAction(*action);
    }
    isOpen_ = true;
    if (++numTasks_ > kMaxTasks) {
      record_.Problem("is one task too many: at most " + std::to_string(kMaxTasks));
      isOpen_ = false;
    }
  }

  void ReadRecord() {
    using Reading = void (TasksReader::*)();
    constexpr std::array<std::pair<std::string_view, Reading>, 6> kRecords = {{
        {"CASE", &TasksReader::ReadCase},
        {"COMPONENTS", &TasksReader::ReadIncluded},
        {"CREEP", &TasksReader::ReadCreep},
        {"PHI_FACTORS", &TasksReader::ReadPhi},
        {"PRELOAD", &TasksReader::ReadPreload},
        {"BARS_ADDED_LATER", &TasksReader::ReadLaterBars},
    }};
    const auto known = std::find_if(kRecords.begin(), kRecords.end(), [this](const auto& entry) {
      return entry.first == record_.Keyword();
    });
    if (known == kRecords.end()) {
      record_.ReportUnknown();
    } else if (known->first == "CASE" || record_.IsFirst(seen_)) {
      (this->*known->second)();
    }
  }

  void ReadIncluded() { task_.SetIncludedComponents(ReadComponents()); }

  void ReadCase() {
    Data::Velmo9::TaskCase taskCase;
    taskCase.name = record_.Text("name of the case");
    const bool isLoad = task_.Action() == LoadAction::load;
    taskCase.input.x = record_.Number(isLoad ? "N" : "eps");
    taskCase.input.y = record_.Number(isLoad ? "Myy" : "kyy");
    taskCase.input.z = record_.Number(isLoad ? "Mzz" : "kzz");
    if (record_.IsSound()) task_.addCase(std::move(taskCase));
  }

  // The numbers of components in the fields of a record.
  std::set<int> ReadComponents() {
    std::set<int> components;
    if (section_ < 0) {
      // What the section is has been asked in vain, and nothing can be said of its components.
      while (record_.HasField()) record_.OptionalText();
      return components;
    }
    while (record_.HasField() && record_.IsSound()) {
      const int component = record_.Index("number of a component", NumComponents());
      if (component >= 0 && !components.insert(component).second) {
        record_.Problem("names a component twice");
      }
    }
    return components;
  }

  int NumComponents() const {
    const VelmoSection& section = std::as_const(context_.document).Section(section_);
    return static_cast<int>(section.Components().size());
  }

  void ReadCreep() {
    CreepSettings creep;
    creep.term = record_.Word<LoadTerm>("load term", kTerms).value_or(creep.term);
    creep.creepCoefficient = record_.Number("creep coefficient", Range::notNegative);
    if (creep.term == LoadTerm::intermediate) {
      creep.longTermShare = record_.Number("long-term share", Range::zeroToOne);
    }
    if (record_.IsSound()) task_.SetCreep(creep);
  }

  void ReadPhi() {
    Data::Velmo9::CustomPhi phi;
    phi.compressionStrain = record_.Number("strain in compression");
    phi.tensionStrain = record_.Number("strain in tension");
    phi.phiCompression = record_.Number("phi in compression");
    phi.phiTension = record_.Number("phi in tension");
    if (record_.IsSound()) task_.SetPhiFactors(phi);
  }

  // Whether there are such a task and case is for the checks before a solution to say.
  void ReadPreload() {
    constexpr int kLast = 1000000000;
    Data::Velmo9::PreloadReference from;
    from.task = record_.Index("number of the task", kLast) + 1;
    from.iCase = record_.Index("number of the case", kLast) + 1;
    if (record_.IsSound()) task_.SetPreloadFrom(from);
  }

  void ReadLaterBars() {
    if (!task_.PreloadFrom()) {
      record_.Problem("stands before the PRELOAD of its task");
      return;
    }
    Data::Velmo9::PreloadReference from = *task_.PreloadFrom();
    from.barsAddedLater = ReadComponents();
    task_.SetPreloadFrom(from);
  }

  void Finish() {
    if (isOpen_ && section_ >= 0) context_.document.getSection(section_).AddTask(task_);
    isOpen_ = false;
    section_ = -1;
  }

  Context& context_;
  RecordReader record_;
  bool isOpen_{};
  int section_{-1};
  AnalysisTask task_;
  std::set<std::string, std::less<>> seen_;  // records of the task
  std::size_t numTasks_{};
};

}  // namespace

void ReadTasks(Context& context) { TasksReader(context).Read(); }

}  // namespace Orlix::Legacy
