// The panel of bars and steel of ProfileDrawing, with its table.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "plot/LabelPlacer.h"
#include "plot/ProfileDrawing.h"
#include "plot/bar_table.h"
#include "plot/drawing_text.h"
#include "plot/marks.h"

namespace Orlix::Plot {

void ProfileDrawing::DrawSteel(Canvas& canvas, const Box& box) const {
  const double factor = units_.Conversion(Dimension::stress);
  double least = 0.0;
  double most = 0.0;
  for (const Extremes& extremes : {view_.state->bars, view_.state->others}) {
    if (!extremes) continue;
    least = std::min(least, extremes->minStress);
    most = std::max(most, extremes->maxStress);
  }
  const Panel panel = PanelOf(box, least, most);
  DrawPanel(canvas, panel, "Bars and steel [" + UnitTextOf(Dimension::stress, units_) + "]",
            factor);
  if (panel.scale == 0.0) return;
  for (const ComponentView& component : view_.components) {
    if (!component.isIncluded || component.type == MatType::concrete ||
        component.polygons.empty() || !IsAlong(component))
      continue;
    DrawBlock(canvas, panel, StressCurve(component, panel), 90.0);
  }
  for (const ComponentView& component : view_.components) {
    for (const BarView& bar : component.bars) {
      if (!std::isfinite(bar.stress)) continue;
      const Spot end{panel.X(bar.stress), Y(DistanceOf(bar.position))};
      canvas.Line({panel.zero, end.y}, end, {0.2});
      DrawBar(canvas, end, 0.55, bar.stress <= 0.0, false);
    }
  }
  DrawBarTable(canvas, panel, {box.right + 1.0, box.top, box_.right - 2.0, box.bottom});
}

void ProfileDrawing::DrawBarTable(Canvas& canvas, const Panel& panel, const Box& box) const {
  constexpr double kPitch = 2.7;
  constexpr double kSize = 1.9;
  const TextStyle style{kSize};
  const TextStyle right{kSize, Align::right};
  const double top = std::max(box_.top + kHeading + 5.0, box.top - 6.0);
  const double bottom = std::min(box_.bottom - 6.0, box.bottom + 6.0);
  const auto most = std::max<std::size_t>(4, static_cast<std::size_t>((bottom - top) / kPitch));
  const std::vector<BarGroup> all = GroupedBars(view_, across_, 0.2 / scale_);
  const std::vector<BarGroup> groups = ThinnedOut(all, most);
  if (groups.empty()) return;
  std::vector<double> wanted;
  for (const BarGroup& group : groups) wanted.push_back(Y(group.distance));
  const std::vector<double> levels = SpreadLabels(wanted, kPitch, top, bottom);

  const double forces = box.right;
  const double stresses = forces - 9.5;
  const double names = box.left + 2.0;
  const double heading = levels.front() - 2.6;
  canvas.Text({names, heading}, "bar", {kSize, Align::left, true});
  canvas.Text({stresses, heading}, "σ", {kSize, Align::right, true});
  canvas.Text({forces, heading}, "F [" + UnitTextOf(Dimension::force, units_) + "]",
              {kSize, Align::right, true});
  const Pen leader{0.08, 0.5};
  for (std::size_t i = 0; i < groups.size(); ++i) {
    const BarGroup& group = groups[i];
    const Spot edge{panel.box.right, wanted[i]};
    canvas.Line({std::max(panel.X(group.stress), panel.zero) + 0.7, wanted[i]}, edge, leader);
    canvas.Line(edge, {names - 0.4, levels[i]}, leader);
    const double y = levels[i] + 0.7;
    const std::string stress = NumberText(group.stress * units_.Conversion(Dimension::stress), 3);
    const double room = stresses - canvas.TextWidth(stress, style) - 0.8 - names;
    std::string name = JoinedNumbers(group.numbers);
    if (canvas.TextWidth(name, style) > room) {
      name = canvas.Fitted(std::to_string(group.numbers.size()) + " bars", room, style);
    }
    canvas.Text({names, y}, name, style);
    canvas.Text({stresses, y}, stress, right);
    canvas.Text({forces, y}, NumberText(group.force * units_.Conversion(Dimension::force), 3),
                right);
  }
  if (groups.size() < all.size()) {
    canvas.Text({forces, levels.back() + 4.0}, "some levels left out", right);
  }
}

}  // namespace Orlix::Plot
