#include "plot/section_picture.h"

#include <vector>

#include "plot/Canvas.h"
#include "plot/PlanDrawing.h"
#include "plot/ProfileDrawing.h"
#include "plot/SectionView.h"
#include "plot/SheetFrame.h"
#include "plot/problem_box.h"
#include "plot/section_text.h"

namespace Orlix::Plot {

namespace {

constexpr double kPlanWidth = 136.0;  // of a sheet with strains and stresses [mm]

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
    DrawProblemBox(canvas, beside, view.problem);
  }
  SheetFrame::Draw(canvas, title, text.Columns(), remark);
  return canvas.Finish();
}

}  // namespace Orlix::Plot
