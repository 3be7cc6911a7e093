#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace Orlix::Cli {

/// A table of text in columns of equal width, with a heading line and a line of units.
class TextTable {
 public:
  enum class Align { left, right };

  void AddColumn(std::string heading, std::string unit, Align align = Align::right);
  /// @pre as many cells as there are columns.
  void AddRow(std::vector<std::string> cells);
  /// Whether there are no rows.
  bool IsEmpty() const { return rows_.empty(); }
  /// The unit line is left out when no column has a unit.
  void Print(std::ostream& out) const;

 private:
  struct Column {
    std::string heading;
    std::string unit;
    Align align;
  };
  std::vector<Column> columns_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace Orlix::Cli
