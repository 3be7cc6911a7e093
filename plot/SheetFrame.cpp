#include "plot/SheetFrame.h"

#include <algorithm>
#include <cstddef>

#include "plot/drawing_text.h"
#include "plot/marks.h"

namespace Orlix::Plot {

namespace {

constexpr Pen kFramePen{0.5};
constexpr Pen kRulePen{0.25};
constexpr double kPadding = 2.0;

void DrawLines(Canvas& canvas, const Box& cell, const TitleBlock::Lines& lines) {
  constexpr double kLabelWidth = 18.0;
  constexpr double kPitch = 4.8;
  const TextStyle label{2.0, Align::left, false, false, 0.3};
  double y = cell.top + 4.6;
  for (const auto& [name, text] : lines) {
    canvas.Text({cell.left + kPadding, y}, name, label);
    const double left = cell.left + kPadding + kLabelWidth;
    const TextStyle style{2.7};
    canvas.Text({left, y}, canvas.Fitted(text, cell.right - kPadding - left, style), style);
    y += kPitch;
  }
}

void DrawStatus(Canvas& canvas, const Box& cell, const TitleBlock& title) {
  canvas.Text({cell.left + kPadding, cell.top + 4.6}, title.utilisationName,
              {2.0, Align::left, false, false, 0.3});
  TextStyle big{6.5, Align::left, true};
  const std::string status = title.status;
  const TextStyle statusStyle{4.5, Align::right, true};
  const double room = cell.Width() - 3 * kPadding - canvas.TextWidth(status, statusStyle);
  while (big.size > 2.5 && canvas.TextWidth(title.utilisation, big) > room) big.size -= 0.5;
  canvas.Text({cell.left + kPadding, cell.top + 13.5}, canvas.Fitted(title.utilisation, room, big),
              big);
  canvas.Text({cell.right - kPadding, cell.top + 13.5}, status, statusStyle);
}

void DrawTitle(Canvas& canvas, const TitleBlock& title) {
  const Box& box = SheetFrame::kTitle;
  const double first = box.left + 124.0;
  const double second = box.left + 222.0;
  for (const double x : {first, second}) canvas.Line({x, box.top}, {x, box.bottom}, kRulePen);
  DrawLines(canvas, {box.left, box.top, first, box.bottom}, title.names);
  DrawLines(canvas, {first, box.top, second, box.bottom}, title.conditions);
  const Box last{second, box.top, box.right, box.bottom};
  if (!title.utilisation.empty()) DrawStatus(canvas, last, title);
  canvas.Text({last.right - kPadding, last.bottom - kPadding}, "VelmoLogic",
              {2.2, Align::right, false, false, 0.3});
}

// The rows of a column; a row of one cell has the whole width.
void DrawRows(Canvas& canvas, const Box& box, const InfoColumn& column, double y, double pitch) {
  const TextStyle style{2.2};
  std::size_t cells = 1;
  double labels = 0.0;  // width of the first cells
  for (const auto& row : column.rows) {
    if (row.size() < 2) continue;
    cells = std::max(cells, row.size());
    labels = std::max(labels, canvas.TextWidth(row.front(), style));
  }
  labels = std::min(labels + 0.5, 0.6 * box.Width());
  for (const auto& row : column.rows) {
    if (row.empty()) continue;
    const double firstWidth = row.size() < 2 ? box.Width() : labels;
    canvas.Text({box.left, y}, canvas.Fitted(row.front(), firstWidth, style), style);
    const double width = (box.Width() - labels) / static_cast<double>(cells - (cells > 1 ? 1 : 0));
    // The last cells of a column stand below each other; the first of a short row has more room.
    for (std::size_t i = 1; i < row.size(); ++i) {
      const double right = box.right - width * static_cast<double>(row.size() - 1 - i);
      const double room = i == 1 ? right - box.left - labels : width;
      const TextStyle number{style.size, Align::right};
      canvas.Text({right, y}, FittedNumber(canvas, row[i], room - 1.0, number), number);
    }
    y += pitch;
  }
}

void DrawColumn(Canvas& canvas, const Box& box, const InfoColumn& column) {
  constexpr double kPitch = 3.35;
  constexpr double kKeyWidth = 8.0;
  double y = box.top + 3.8;
  const TextStyle heading{2.3, Align::left, true};
  canvas.Text({box.left, y}, canvas.Fitted(column.heading, box.Width(), heading), heading);
  y += kPitch + 0.3;
  DrawRows(canvas, box, column, y, kPitch);
  y += kPitch * static_cast<double>(column.rows.size());
  for (const auto& [sign, text] : column.key) {
    const TextStyle style{2.2};
    const double left = box.left + kKeyWidth + 1.5;
    DrawKeySign(canvas, {box.left, y - 2.1, box.left + kKeyWidth, y + 0.4}, sign);
    canvas.Text({left, y}, canvas.Fitted(text, box.right - left, style), style);
    y += kPitch;
  }
}

}  // namespace

void SheetFrame::Draw(Canvas& canvas, const TitleBlock& title,
                      const std::vector<InfoColumn>& columns, const std::string& remark) {
  canvas.Rectangle(kSheet, kFramePen);
  canvas.Line({kTitle.left, kTitle.top}, {kTitle.right, kTitle.top}, kFramePen);
  canvas.Line({kInfo.left, kInfo.top}, {kInfo.right, kInfo.top}, kRulePen);
  DrawTitle(canvas, title);
  const TextStyle style{2.2};
  const std::string line = remark.empty() ? kSignRule : kSignRule + ("  " + remark);
  canvas.Text({kMain.left + kPadding, kMain.bottom - 1.8},
              canvas.Fitted(line, kMain.Width() - 2 * kPadding, style), style);
  double x = kInfo.left;
  for (const InfoColumn& column : columns) {
    const Box box{x, kInfo.top, x + column.width, kInfo.bottom};
    if (x > kInfo.left) canvas.Line({x, box.top}, {x, box.bottom}, kRulePen);
    DrawColumn(canvas, {box.left + kPadding, box.top, box.right - kPadding, box.bottom}, column);
    x += column.width;
  }
}

}  // namespace Orlix::Plot
