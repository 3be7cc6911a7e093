#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/VelmoApp.h"
#include "model/oxdata/materials/CMatCurveParam.h"
#include "model/oxnumeric/polygon_overlay.h"
#include "plot/section_picture.h"
#include "results/CaseRecords.h"

namespace Orlix::Plot {

/// A bar as it is drawn. Strain, stress [Pa] and force [N] are NaN where none is shown, tension
/// positive.
struct BarView {
  Vec2<double> position;  ///< (y, z) [m]
  double radius{};        ///< [m], of a circle of the bar's area where it has no diameter
  std::string number;     ///< from 1; "2.5" where several components have bars
  bool isPrestressed{};
  double strain{};
  double stress{};
  double force{};
};

/// A component as it is drawn.
struct ComponentView {
  std::string tag;  ///< "A", "B", ... in the section's order
  std::string name;
  std::string material;  ///< "concrete C30/37"
  MatType type{MatType::none};
  bool isIncluded{};  ///< in the task; of valid outlines
  /// What later components leave of the outlines; as they are given where it is not included.
  std::vector<Numeric::OwnedPolygon> polygons;
  double diameter{};      ///< of a round outline [m], of which `polygons` has chords; 0: none
  Vec2<double> centre{};  ///< of it
  std::vector<BarView> bars;
  /// Strains of all stages together; meaningful with a state.
  Data::Velmo9::Deformation plane;
  Data::Design::CMatCurveParam curve;
};

/// Extremes of the strains [-] and stresses [Pa] of one kind of points; nothing: there are none.
using Extremes = std::optional<Data::Velmo9::StressStrain>;

/// The strains and stresses that a picture shows.
struct StateView {
  SectionState state{SectionState::underLoad};
  std::string name;                 ///< "cracked state"
  Data::Velmo9::Deformation plane;  ///< as reported: of this stage alone
  NeutralAxisData axis;             ///< of that plane
  bool isStaged{};                  ///< strains of an earlier stage come on top
  bool hasStresses{};
  Extremes concrete;
  Extremes bars;
  Extremes others;  ///< of structural steel and FRP
};

/// A section and, where it is drawn with a case, what of the case is drawn.
struct SectionView {
  std::vector<ComponentView> components;
  Vec2<double> centroid{};  ///< of the gross concrete [m]; NaN: there is none
  std::optional<StateView> state;
  /// Why a case has no strains to show, in words; empty: it has, or there is no case.
  std::string problem;
  /// Of the case, with all outputs; default ones without a case.
  Data::Velmo9::CaseULSDetails uls;
  Data::Velmo9::CaseSLSDetails sls;
};

/// The larger of width and height of the outlines [m]; at least 1e-12.
double SizeOf(const SectionView& view);

/// Compressive strain at which the rectangular block of a component's concrete begins; 0: none.
double BlockStart(const ComponentView& component);

/// Whether a state is one of the ultimate limit state.
bool IsUltimate(SectionState state);

/// What is drawn of a section; parameters and exceptions as `SectionPicture`.
SectionView ViewOf(const VelmoApp& app, int iSec, const std::optional<PictureCase>& ofCase);

}  // namespace Orlix::Plot
