#include "cli/TextTable.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <ostream>
#include <utility>

#include "cli/printable.h"

namespace Orlix::Cli {

namespace {

// Characters, not bytes: units such as ‰ and mm² are longer in UTF-8.
std::size_t Width(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
  }));
}

}  // namespace

void TextTable::AddColumn(std::string heading, std::string unit, Align align) {
  columns_.push_back({std::move(heading), std::move(unit), align});
}

void TextTable::AddRow(std::vector<std::string> cells) {
  assert(cells.size() == columns_.size());
  for (std::string& cell : cells) cell = Printable(std::move(cell));
  rows_.push_back(std::move(cells));
}

void TextTable::Print(std::ostream& out) const {
  std::vector<std::vector<std::string>> lines(2);
  bool hasUnits{};
  for (const Column& column : columns_) {
    lines[0].push_back(column.heading);
    lines[1].push_back(column.unit);
    hasUnits = hasUnits || !column.unit.empty();
  }
  if (!hasUnits) lines.pop_back();
  lines.insert(lines.end(), rows_.begin(), rows_.end());

  std::vector<std::size_t> widths(columns_.size());
  for (const auto& line : lines) {
    for (std::size_t i = 0; i < line.size(); ++i) widths[i] = std::max(widths[i], Width(line[i]));
  }
  for (const auto& line : lines) {
    std::string text;
    for (std::size_t i = 0; i < line.size(); ++i) {
      const std::string padding(widths[i] - Width(line[i]), ' ');
      if (i > 0) text += "  ";
      text += columns_[i].align == Align::left ? line[i] + padding : padding + line[i];
    }
    text.erase(text.find_last_not_of(' ') + 1);
    out << text << '\n';
  }
}

}  // namespace Orlix::Cli
