#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include "legacy/RecordReader.h"
#include "model/oxdata/materials/CMat.h"
#include "model/oxdata/materials/CTableT.h"

namespace Orlix::Legacy {

/// Gathers the records CURVE and POINT of a grade and gives its material the curves that they
/// describe. Sides without a record stay.
class CurveRecords {
 public:
  /// A side of a curve, whole: CURVE ULS COMPRESSION PARABOLA_RECTANGLE eps_peak=0.002 ...
  void ReadCurve(RecordReader& record);
  /// A point of an explicit side: POINT ULS 0.002 435e6, strain and stress [Pa], tension positive.
  void ReadPoint(RecordReader& record);
  /// Sets the curves, their points cleaned.
  /// @return what is wrong with them, in words; empty: nothing.
  std::string SetTo(Data::Design::CMat& material) const;
  /// Points of both load states.
  std::size_t NumPoints() const { return states_[0].points.Rows() + states_[1].points.Rows(); }

 private:
  struct State {
    std::optional<Data::Design::CurveShape> compression;
    std::optional<Data::Design::CurveShape> tension;
    Data::CTableT<double> points{2};
  };
  State& Of(LoadState state) { return states_[state == LoadState::ULS ? 0 : 1]; }

  std::array<State, 2> states_;
};

}  // namespace Orlix::Legacy
