#include "cli/case_csv.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <utility>

#include "cli/CsvCells.h"
#include "cli/UnitText.h"
#include "cli/commands.h"
#include "cli/printable.h"
#include "cli/unit_factors.h"
#include "model/oxutil/ParseDouble.h"
#include "model/oxutil/text.h"

namespace Orlix::Cli {

using Data::Velmo9::TaskCase;

namespace {

/// A number of a case.
struct Quantity {
  std::string_view name;
  Dimension dimension;
  double Vec3<double>::*member;
};

using Quantities = std::array<Quantity, 3>;

constexpr Quantities kLoad = {{{"N", Dimension::force, &Vec3<double>::x},
                               {"Myy", Dimension::moment, &Vec3<double>::y},
                               {"Mzz", Dimension::moment, &Vec3<double>::z}}};
constexpr Quantities kPlane = {{{"eps", Dimension::strain, &Vec3<double>::x},
                                {"kyy", Dimension::curvature, &Vec3<double>::y},
                                {"kzz", Dimension::curvature, &Vec3<double>::z}}};
constexpr std::string_view kName = "name";

// The column of the name in the table of columns; those of the numbers are 0 to 2.
constexpr std::size_t kNameColumn = 3;

char SeparatorOf(std::string_view text) {
  const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
  for (const char separator : {',', ';', '\t'}) {
    if (line.find(separator) != std::string_view::npos) return separator;
  }
  return ',';
}

// What a message shows of a cell.
std::string Shown(std::string_view cell) {
  constexpr std::size_t kMost = 40;
  if (cell.empty()) return "nothing";
  const std::string text = Printable(ValidUtf8(cell.substr(0, kMost)));
  return "\"" + text + (cell.size() > kMost ? "..." : "") + "\"";
}

class Reader {
 public:
  Reader(std::string_view text, const std::string& from, LoadAction action,
         const Data::CUnit& units)
      : from_(from),
        wanted_(action == LoadAction::load ? kLoad : kPlane),
        other_(action == LoadAction::load ? kPlane : kLoad),
        isLoad_(action == LoadAction::load),
        cells_(text, SeparatorOf(text)) {
    const UnitText names(units);
    for (std::size_t i = 0; i < wanted_.size(); ++i) {
      factors_[i] = 1.0 / units.Conversion(wanted_[i].dimension);
      table_.units[i] = names.Unit(wanted_[i].dimension);
    }
  }

  CaseTable Read() {
    ReadHeading();
    if (!cells_.NextLine()) return std::move(table_);
    if (!ReadUnits()) ReadCase();
    while (cells_.NextLine()) ReadCase();
    return std::move(table_);
  }

 private:
  [[noreturn]] void Fail(std::size_t column, const std::string& found,
                         const std::string& expected) const {
    std::string place = from_ + ", line " + std::to_string(cells_.Line());
    if (column > 0) place += ", column " + std::to_string(column);
    if (column > 0 && column <= columns_.size()) {
      const std::size_t meaning = columns_[column - 1];
      place += " (" + std::string(meaning == kNameColumn ? kName : wanted_[meaning].name) + ")";
    }
    throw CommandError(place + ": found " + found + ", expected " + expected);
  }
  [[noreturn]] void FailCell(std::string_view cell, const std::string& expected) const {
    Fail(cells_.Column(), Shown(cell), expected);
  }

  void RequireWellFormed() const {
    if (!cells_.IsWellFormed()) {
      FailCell(cells_.Cell(), "a text in quotation marks with nothing behind them");
    }
  }

  std::string Headings(const Quantities& quantities) const {
    std::string text;
    for (const Quantity& quantity : quantities) text += std::string(quantity.name) + ", ";
    return text + "and name if there are names";
  }

  void ReadHeading() {
    if (!cells_.NextLine()) {
      throw CommandError(from_ + ": is empty; expected a line with the columns " +
                         Headings(wanted_));
    }
    while (cells_.NextCell()) {
      RequireWellFormed();
      columns_.push_back(MeaningOf(cells_.Cell()));
    }
    for (std::size_t i = 0; i < wanted_.size(); ++i) {
      if (std::find(columns_.begin(), columns_.end(), i) != columns_.end()) continue;
      Fail(0, "no column " + std::string(wanted_[i].name), "the columns " + Headings(wanted_));
    }
  }

  std::size_t MeaningOf(std::string_view heading) const {
    std::size_t meaning = kNameColumn;
    if (heading != kName) {
      const auto isNamed = [&](const Quantity& quantity) { return quantity.name == heading; };
      if (std::any_of(other_.begin(), other_.end(), isNamed)) {
        FailCell(heading, "the columns " + Headings(wanted_) + ": the cases of the task are " +
                              (isLoad_ ? "loads" : "deformations"));
      }
      const auto found = std::find_if(wanted_.begin(), wanted_.end(), isNamed);
      if (found == wanted_.end()) FailCell(heading, "one of the columns " + Headings(wanted_));
      meaning = static_cast<std::size_t>(found - wanted_.begin());
    }
    if (std::find(columns_.begin(), columns_.end(), meaning) != columns_.end()) {
      FailCell(heading, "each column once");
    }
    return meaning;
  }

  // Takes the next cell of the line for a column.
  void TakeCell(std::size_t column) {
    if (!cells_.NextCell()) {
      Fail(0, std::to_string(column) + (column == 1 ? " cell" : " cells"),
           std::to_string(columns_.size()));
    }
    RequireWellFormed();
  }

  void RequireLineEnd() {
    while (cells_.NextCell()) {
      if (!cells_.Cell().empty()) {
        FailCell(cells_.Cell(), "no more than " + std::to_string(columns_.size()) + " cells");
      }
    }
  }

  // Reads a line of units; false, and the line is still to be read, when it has a number.
  bool ReadUnits() {
    const CsvCells before = cells_;
    bool isUnits = true;
    for (std::size_t i = 0; i < columns_.size() && isUnits && cells_.NextCell(); ++i) {
      isUnits = columns_[i] == kNameColumn || !ParseDouble(cells_.Cell());
    }
    cells_ = before;
    if (!isUnits) return false;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      TakeCell(i);
      const std::string_view cell = cells_.Cell();
      if (columns_[i] == kNameColumn || cell.empty()) continue;
      const Quantity& quantity = wanted_[columns_[i]];
      const auto factor = FactorToSi(cell, quantity.dimension);
      if (!factor) FailCell(cell, "a number, or in the second line a unit of " + Words(quantity));
      factors_[columns_[i]] = *factor;
      table_.units[columns_[i]] = std::string(cell);
    }
    RequireLineEnd();
    return true;
  }

  static std::string Words(const Quantity& quantity) {
    switch (quantity.dimension) {
      case Dimension::force:
        return "force such as kN";
      case Dimension::moment:
        return "moment such as kNm";
      case Dimension::strain:
        return "strain such as ‰";
      default:
        return "curvature such as 1/m";
    }
  }

  void ReadCase() {
    if (table_.cases.size() == static_cast<std::size_t>(std::numeric_limits<int>::max())) {
      Fail(0, "another case", "at most " + std::to_string(table_.cases.size()));
    }
    TaskCase& taskCase = table_.cases.emplace_back();
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      TakeCell(i);
      if (columns_[i] == kNameColumn) {
        if (ValidUtf8(cells_.Cell()) != cells_.Cell()) FailCell(cells_.Cell(), "UTF-8 text");
        taskCase.name = cells_.Cell();
      } else {
        taskCase.input.*wanted_[columns_[i]].member = Number(factors_[columns_[i]]);
      }
    }
    RequireLineEnd();
  }

  double Number(double factor) const {
    const std::optional<double> number = ParseDouble(cells_.Cell());
    if (!number || !std::isfinite(*number * factor)) FailCell(cells_.Cell(), "a number");
    return *number * factor;
  }

  const std::string& from_;
  const Quantities& wanted_;
  const Quantities& other_;
  bool isLoad_;
  CsvCells cells_;
  std::vector<std::size_t> columns_;  // by their place: the index of the number, or kNameColumn
  std::array<double, 3> factors_{};
  CaseTable table_;
};

}  // namespace

CaseTable ReadCases(std::string_view text, const std::string& from, LoadAction action,
                    const Data::CUnit& units) {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) {
    throw CommandError(from + ": is UTF-16 text; save it as UTF-8");
  }
  return Reader(text, from, action, units).Read();
}

}  // namespace Orlix::Cli
