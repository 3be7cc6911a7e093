#include "model/vlsol/cracks/cracks.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <tuple>
#include <utility>
#include <variant>

#include "model/vlsol/cracks/surface_cracks.h"
#include "model/vlsol/cracks/tie_cracks.h"

namespace Orlix::VlSol {
namespace {

using Data::Velmo9::CCrack;
using Data::Velmo9::SlsCaseSolution;

// The rule, by its kind.
struct Finder {
  const CrackState& state;
  double longShare;
  CrackSink& sink;

  void operator()(const Data::Design::En1992::CrackWidthParameters& rule) const {
    FindTieCracks(rule, state, longShare, sink);
  }
  void operator()(const Data::Design::Bs8110::CrackWidthParameters& rule) const {
    FindSurfaceCracks(rule, state, sink);
  }
};

class Widest : public CrackSink {
 public:
  void Add(const CCrack& crack) override { width_ = std::max(width_, crack.width); }
  double Threshold() const override { return width_; }

 private:
  double width_{};
};

// What cracks are ordered by; without a width by what the formula would give beyond its range.
std::pair<double, double> Size(const CCrack& crack) {
  return {crack.width, std::isfinite(crack.width) ? 0.0 : crack.spacing * crack.strain};
}

// Keeps the widest crack of each bar and face.
class Collection : public CrackSink {
 public:
  void Add(const CCrack& crack) override {
    const auto same = std::find_if(cracks_.begin(), cracks_.end(), [&](const CCrack& c) {
      return c.face == crack.face && c.bar == crack.bar;
    });
    if (same == cracks_.end()) {
      cracks_.push_back(crack);
    } else if (Size(crack) > Size(*same)) {
      *same = crack;
    }
  }
  std::vector<CCrack> Sorted() && {
    // Faces with the same bars, and parts of a face, have the same width but for round-off.
    const auto key = [](const CCrack& c) {
      const auto [width, size] = Size(c);
      return std::tuple(-static_cast<float>(width), -static_cast<float>(size), c.face, c.bar);
    };
    std::sort(cracks_.begin(), cracks_.end(),
              [key](const CCrack& a, const CCrack& b) { return key(a) < key(b); });
    return std::move(cracks_);
  }

 private:
  std::vector<CCrack> cracks_;
};

bool HasPlane(const SlsCaseSolution& solution) {
  return solution.solved && IsFinite(solution.crackPlane);
}

bool IsCracked(const SlsCaseSolution& solution) { return solution.crackingUtilisation > 1.0; }

}  // namespace

CrackModel::CrackModel(const Data::Design::CrackWidthRule& rule,
                       std::vector<CrackComponent> components, double longShare)
    : rule_(rule), components_(std::move(components)), longShare_(longShare) {}

std::shared_ptr<const CrackModel> CrackModel::Of(
    const Data::CVelmoData& document, const Data::Velmo9::VelmoSection& section, int iTask,
    const Data::Velmo9::DetailedIntegrationResult::ComponentMap& cracked) {
  const auto& rule = document.concreteCode().Data().crackWidth;
  if (!rule || !section.hasConcreteComponent(iTask)) return nullptr;
  return std::make_shared<const CrackModel>(*rule,
                                            CrackComponent::Of(document, section, iTask, cracked),
                                            section.Task(iTask).Creep().LongShare());
}

void CrackModel::Find(const CrackComponent& component, const SlsCaseSolution& solution,
                      CrackSink& sink) const {
  const CrackState state(component, Data::Velmo9::Deformation(solution.crackPlane));
  if (!state.IsInTension()) return;
  if (component.neverCracks) {
    CCrack crack;
    crack.position = state.MostStrained();
    crack.remark = Data::Velmo9::CrackRemark::noCrackedState;
    sink.Add(crack);
  } else {
    std::visit(Finder{state, longShare_, sink}, rule_);
  }
}

double CrackModel::LargestWidth(const SlsCaseSolution& solution) const {
  if (!HasPlane(solution)) return std::numeric_limits<double>::infinity();
  Widest widest;
  if (IsCracked(solution)) {
    for (const CrackComponent& component : components_) Find(component, solution, widest);
  }
  return widest.Threshold();
}

std::map<int, std::vector<CCrack>> CrackModel::Cracks(const SlsCaseSolution& solution) const {
  std::map<int, std::vector<CCrack>> cracks;
  if (!HasPlane(solution) || !IsCracked(solution)) return cracks;
  for (const CrackComponent& component : components_) {
    Collection collection;
    Find(component, solution, collection);
    std::vector<CCrack> found = std::move(collection).Sorted();
    if (!found.empty()) cracks.emplace(component.index, std::move(found));
  }
  return cracks;
}

TaskCracks::TaskCracks(const Data::CVelmoData& document, const Data::Velmo9::VelmoSection& section,
                       int iTask)
    : task_(section.Task(iTask)) {
  const auto& results = task_.Results();
  if (!task_.ComputesSLS() || !results || results->crackedComponents == nullptr) return;
  model_ = CrackModel::Of(document, section, iTask, *results->crackedComponents);
}

std::map<int, std::vector<CCrack>> TaskCracks::OfCase(int iCase) const {
  if (model_ == nullptr || !task_.IsCaseAnalysed(iCase)) return {};
  return model_->Cracks(task_.Results()->sls[static_cast<std::size_t>(iCase)]);
}

}  // namespace Orlix::VlSol
