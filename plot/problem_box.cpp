#include "plot/problem_box.h"

#include <vector>

namespace Orlix::Plot {

void DrawProblemBox(Canvas& canvas, const Box& box, const std::string& text) {
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

}  // namespace Orlix::Plot
