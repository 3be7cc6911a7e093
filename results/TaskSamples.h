#pragma once

#include <mutex>
#include <optional>
#include <vector>

#include "model/oxnumeric/Vec.h"
#include "model/oxutil/OrlixString.h"
#include "model/vldata/document/CVelmoData.h"

namespace Orlix {

/// Where strains and stresses of a task are sampled: what all its cases have in common. Refers to
/// the document and the section, which must outlive it and stay as they are.
struct TaskSamples {
  struct Bar {
    const Data::CBar* bar{};
    const Data::Design::CMatRebar* steel{};
    double ulsPreStrain{};  ///< `BarPreStrain` at the ultimate limit state
    double slsPreStrain{};  ///< the same at the serviceability limit state
  };
  struct Component {
    int index{};
    OrlixString<wchar_t> grade;
    OrlixString<wchar_t> materialType;   ///< "concrete", "steel" or "FRP"
    std::vector<Vec2<double>> vertices;  ///< of all outlines (y, z) [m]
    bool hasConcrete{};                  ///< the only ones that may have bars
    std::vector<Bar> bars;               ///< in the component's order
    std::optional<Data::Velmo9::ComponentPreload> preload;
  };

  TaskSamples(const Data::CVelmoData& document, const Data::Velmo9::VelmoSection& section,
              const Data::Velmo9::AnalysisTask& task);

  std::vector<Component> components;  ///< those the task includes, in index order
};

/// The samples of a task, looked up when some thread first asks for them: a task without results
/// may have grades that are not there.
class LazyTaskSamples {
 public:
  LazyTaskSamples(const Data::CVelmoData& document, const Data::Velmo9::VelmoSection& section,
                  const Data::Velmo9::AnalysisTask& task)
      : document_(document), section_(section), task_(task) {}

  const TaskSamples& Get() const;

 private:
  const Data::CVelmoData& document_;
  const Data::Velmo9::VelmoSection& section_;
  const Data::Velmo9::AnalysisTask& task_;
  mutable std::once_flag once_;
  mutable std::optional<TaskSamples> samples_;
};

}  // namespace Orlix
