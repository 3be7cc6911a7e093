#include "plot/section_picture.h"

#include <vector>

#include "plot/Canvas.h"
#include "plot/PlanDrawing.h"
#include "plot/ProfileDrawing.h"
#include "plot/SectionView.h"
#include "plot/SheetFrame.h"
#include "plot/section_text.h"

namespace Orlix::Plot {

namespace {

constexpr double kPlanWidth = 136.0;  // of a sheet with strains and stresses [mm]

// Why there are no strains, where they would stand.
void DrawProblem(Canvas& canvas, const Box& box, const std::string& text) {
  const TextStyle style{3.2, Align::left, true};
  const double width = box.Width() - 24.0;
  std::vector<std::string> lines(1);
  std::string word;
  for (const char c : text + " ") {
    if (c != ' ') {
      word += c;
      continue;
    }
    const std::string longer = lines.back().empty() ? word : lines.back() + " " + word;
    if (!lines.back().empty() && canvas.TextWidth(longer, style) > width) {
      lines.push_back(word);
    } else {
      lines.back() = longer;
    }
    word.clear();
  }
  constexpr double kPitch = 5.5;
  const double height = kPitch * static_cast<double>(lines.size()) + 6.0;
  const double top = box.Centre().y - height / 2.0;
  canvas.Rectangle({box.left + 6.0, top, box.right - 6.0, top + height}, {0.6});
  double y = top + 7.0;
  for (const std::string& line : lines) {
    canvas.Text({box.left + 12.0, y}, line, style);
    y += kPitch;
  }
}

}  // namespace

std::string SectionPicture(const VelmoApp& app, int iSec, const std::optional<PictureCase>& ofCase,
                           const PictureOptions& options) {
  const SectionView view = ViewOf(app, iSec, ofCase);
  const Data::CUnit& units = app.pData()->Units();
  const Box& main = SheetFrame::kMain;
  const double split = ofCase ? main.left + kPlanWidth : main.right;
  const PlanDrawing plan(view, units,
                         {main.left, main.top, split, main.bottom - SheetFrame::kRuleHeight});
  const SectionText text(app, iSec, ofCase, view);
  Canvas canvas(options);
  const TitleBlock title = text.Title(ScaleText(plan.ScaleDenominator()));
  canvas.SetTitle(title.names.at(1).second);
  std::string remark;
  if (!plan.Draw(canvas)) remark += "Some bars have no room for their number. ";
  if (plan.HasEnlargedBars()) remark += "Bars drawn larger than they are.";
  const Box beside{split, main.top, main.right, main.bottom - SheetFrame::kRuleHeight};
  if (view.state) {
    ProfileDrawing(view, units, plan.Place(), beside).Draw(canvas);
  } else if (ofCase) {
    DrawProblem(canvas, beside, view.problem);
  }
  SheetFrame::Draw(canvas, title, text.Columns(), remark);
  return canvas.Finish();
}

}  // namespace Orlix::Plot
