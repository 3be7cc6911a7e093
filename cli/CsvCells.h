#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Orlix::Cli {

/// The cells of CSV text, one after the other. A cell may stand in quotation marks, then two of
/// them are one and separators and line ends are part of it; spaces around a cell do not count.
/// Total for any bytes. Lines end with LF, CR LF or CR; lines without anything but separators and
/// spaces are passed over.
class CsvCells {
 public:
  /// @param text  must outlive the cells
  CsvCells(std::string_view text, char separator) : rest_(text), separator_(separator) {}

  /// Goes to the next line that has a cell with text; false at the end of the text.
  bool NextLine();
  /// Takes the next cell of the line; false when there is none left.
  bool NextCell();

  /// The cell taken last; valid until the next one is.
  std::string_view Cell() const { return cell_; }
  /// Whether it ended as it should: a quotation mark was closed and nothing came behind it.
  bool IsWellFormed() const { return isWellFormed_; }
  /// Line it began in, and its number in the line; both from one.
  std::size_t Line() const { return line_; }
  std::size_t Column() const { return column_; }

 private:
  void TakeQuoted();
  void TakePlain();
  void TakeLineEnd();
  bool AtLineEnd() const { return rest_.empty() || rest_.front() == '\n' || rest_.front() == '\r'; }

  std::string_view rest_;
  char separator_;
  std::string_view cell_;
  std::string unquoted_;
  bool isWellFormed_{true};
  bool hasMore_{};  // a cell, maybe an empty one, is left in the line
  std::size_t lineAfter_{1};
  std::size_t line_{};
  std::size_t column_{};
};

}  // namespace Orlix::Cli
