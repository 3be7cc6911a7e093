#pragma once

#include <cassert>
#include <cstddef>
#include <stdexcept>
#include <vector>

namespace Orlix::Data {

/// A table of values with a fixed number of columns, grown row by row.
template <class T>
class CTableT {
 public:
  /// @throws std::invalid_argument for a table without columns.
  explicit CTableT(std::size_t columns) : columns_(columns) {
    if (columns == 0) throw std::invalid_argument("a table needs at least one column");
  }

  /// Appends a row. @throws std::invalid_argument when its length is not the number of columns.
  void AddRow(const std::vector<T>& row) {
    if (row.size() != columns_) throw std::invalid_argument("a row has the wrong length");
    cells_.insert(cells_.end(), row.begin(), row.end());
  }
  void Clear() { cells_.clear(); }

  std::size_t Rows() const { return cells_.size() / columns_; }
  std::size_t Columns() const { return columns_; }
  const T& operator()(std::size_t row, std::size_t column) const {
    assert(row < Rows() && column < columns_);
    return cells_[row * columns_ + column];
  }

  friend bool operator==(const CTableT&, const CTableT&) = default;

 private:
  std::size_t columns_;
  std::vector<T> cells_;
};

}  // namespace Orlix::Data
