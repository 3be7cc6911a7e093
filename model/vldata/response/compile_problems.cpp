#include "model/vldata/response/compile_problems.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <set>
#include <utility>

#include "model/oxnumeric/polygon_validity.h"
#include "model/vldata/response/CompileMessages.h"
#include "model/vldata/response/SectionCompiler.h"

namespace Orlix::Data::Velmo9 {
namespace {

namespace Messages = CompileMessages;

// Beyond this a coordinate [m] is a slip of the units, and its fourth power no number to reckon by.
constexpr double kFurthest = 1e6;

bool IsPlace(Vec2<double> p) {
  return std::abs(p.x) <= kFurthest && std::abs(p.y) <= kFurthest;  // false for NaN
}

bool IsFiniteSegment(const Numeric::CSegment& s) {
  return std::isfinite(s.from) && std::isfinite(s.to) && std::isfinite(s.origin) &&
         std::all_of(s.c.begin(), s.c.end(), [](double c) { return std::isfinite(c); });
}

// The kernel needs limits on both sides of zero strain.
bool IsUsable(const Design::CMatCurveParam& curve) {
  const auto& segments = curve.Segments();
  return !segments.empty() && segments.front().from < 0.0 && segments.back().to > 0.0 &&
         std::all_of(segments.begin(), segments.end(), IsFiniteSegment) &&
         std::isfinite(curve.UniformCompressionLimit());
}

struct Box {
  Vec2<double> low{kFurthest, kFurthest};
  Vec2<double> high{-kFurthest, -kFurthest};

  void Take(Vec2<double> p) {
    low = {std::min(low.x, p.x), std::min(low.y, p.y)};
    high = {std::max(high.x, p.x), std::max(high.y, p.y)};
  }
  bool Meets(const Box& b) const {
    return low.x < b.high.x && b.low.x < high.x && low.y < b.high.y && b.low.y < high.y;
  }
};

// An included component with valid polygons, and its place in the section.
struct Outlines {
  int component{};
  std::vector<SectionPolygon> polygons;
  Box box;
};

Numeric::PolygonView View(const SectionPolygon& p) { return {p.outline, p.holes}; }

std::optional<Vec2<double>> SharedPlace(const Outlines& a, const Outlines& b) {
  if (!a.box.Meets(b.box)) return std::nullopt;
  for (const SectionPolygon& p : a.polygons) {
    for (const SectionPolygon& q : b.polygons) {
      if (Numeric::InteriorsOverlap(View(p), View(q))) {
        return Numeric::OverlapOf(View(p), View(q)).place;
      }
    }
  }
  return std::nullopt;
}

class Checker {
 public:
  Checker(const CVelmoData& document, const VelmoSection& section, int iTask, LoadState state)
      : document_(document),
        section_(section),
        task_(section.Task(iTask)),
        iTask_(iTask),
        state_(state) {}

  std::vector<std::string> Run() {
    const auto& components = section_.Components();
    bool isAnyIncluded = false;
    for (int i = 0; i < static_cast<int>(components.size()); ++i) {
      if (!task_.IncludesComponent(i)) continue;
      isAnyIncluded = true;
      CheckComponent(i, components[static_cast<std::size_t>(i)]);
    }
    if (!isAnyIncluded) problems_.push_back(Messages::NothingIncluded(iTask_));
    CheckOverlaps();
    return std::move(problems_);
  }

 private:
  void CheckComponent(int index, const CSecComp& component) {
    const MatType type = component.MaterialType();
    if (type != MatType::concrete && type != MatType::steel && type != MatType::FRP) {
      problems_.push_back(Messages::NoMaterialType(index));
    } else if (!document_.getMaterials()->IsValidGrade(type, component.MaterialGrade())) {
      problems_.push_back(Messages::NoMaterialGrade(index));
    } else {
      CheckCurve(index, type, component.MaterialGrade());
    }
    CheckOutlines(index, component.Geometry());
    if (!component.ConcreteExist()) return;
    const auto& bars = component.Concrete().Bars();
    for (int i = 0; i < static_cast<int>(bars.size()); ++i) {
      CheckBar(index, i, bars[static_cast<std::size_t>(i)]);
    }
  }

  void CheckCurve(int component, MatType type, int grade) {
    if (!curvesSeen_.insert({type, grade}).second) return;
    const Design::CMat& material = document_.getMaterials()->Grade(type, grade);
    if (!IsUsable(material.Curve(state_))) {
      problems_.push_back(Messages::NoCurve(component, material.Name(), state_));
    }
  }

  void CheckOutlines(int index, const CSecGeom& geometry) {
    if (const std::string problem = geometry.PolygonProblem(); !problem.empty()) {
      problems_.push_back(Messages::NoShape(index, problem));
      return;
    }
    Outlines outlines{index, geometry.Polygons(0.0), {}};
    for (const SectionPolygon& polygon : outlines.polygons) {
      for (const Vec2<double>& vertex : polygon.outline) {
        if (!IsPlace(vertex)) {
          problems_.push_back(Messages::TooFarAway(index));
          return;
        }
        outlines.box.Take(vertex);
      }
    }
    outlines_.push_back(std::move(outlines));
  }

  void CheckBar(int component, int index, const CBar& bar) {
    if (!IsPlace(bar.Position())) problems_.push_back(Messages::NoBarPlace(component, index));
    if (!(bar.Area() > 0.0) || !std::isfinite(bar.Area())) {
      problems_.push_back(Messages::NoBarArea(component, index));
      return;
    }
    if (!document_.getMaterials()->IsValidGrade(MatType::reinforcement, bar.Grade())) {
      problems_.push_back(Messages::NoBarGrade(component, index));
      return;
    }
    CheckCurve(component, MatType::reinforcement, bar.Grade());
    if (!std::isfinite(BarPreStrain(document_, bar, state_))) {
      problems_.push_back(Messages::NoBarPreload(component, index));
    }
  }

  void CheckOverlaps() {
    for (std::size_t j = 1; j < outlines_.size(); ++j) {
      for (std::size_t i = 0; i < j; ++i) {
        if (const auto place = SharedPlace(outlines_[i], outlines_[j])) {
          problems_.push_back(
              Messages::Overlap(outlines_[i].component, outlines_[j].component, *place));
        }
      }
    }
  }

  const CVelmoData& document_;
  const VelmoSection& section_;
  const AnalysisTask& task_;
  int iTask_;
  LoadState state_;
  std::set<std::pair<MatType, int>> curvesSeen_;
  std::vector<Outlines> outlines_;
  std::vector<std::string> problems_;
};

}  // namespace

std::vector<std::string> CompileProblems(const CVelmoData& document, const VelmoSection& section,
                                         int iTask, LoadState state) {
  return Checker(document, section, iTask, state).Run();
}

}  // namespace Orlix::Data::Velmo9
