#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string_view>

namespace Orlix {

/// Immutable text that keeps up to 15 characters in place and longer ones on the heap, so that
/// records with a grade name each are copied without allocating. Compiled for `char` and `wchar_t`.
template <class C>
class OrlixString {
 public:
  OrlixString() noexcept;
  /// Copies text up to its terminating zero; a null pointer is the empty text.
  OrlixString(const C* text);  // NOLINT(google-explicit-constructor)
  explicit OrlixString(std::basic_string_view<C> text);
  OrlixString(const OrlixString& other);
  /// Leaves `other` empty, as does the move assignment.
  OrlixString(OrlixString&& other) noexcept;
  OrlixString& operator=(const OrlixString& other);
  OrlixString& operator=(OrlixString&& other) noexcept;
  virtual ~OrlixString();

  /// @return the characters with a terminating zero; valid until this object is assigned or
  /// destroyed.
  operator const C*() const noexcept { return Data(); }  // NOLINT(google-explicit-constructor)
  std::basic_string_view<C> View() const noexcept { return {Data(), size_}; }
  bool empty() const noexcept { return size_ == 0; }

  friend bool operator==(const OrlixString& a, const OrlixString& b) noexcept {
    return a.View() == b.View();
  }
  friend bool operator==(const OrlixString& a, const C* b) { return a.View() == b; }

 private:
  static constexpr std::size_t kInPlace = 15;

  const C* Data() const noexcept { return heap_ ? heap_.get() : inPlace_.data(); }

  std::size_t size_{};
  std::unique_ptr<C[]> heap_;  ///< set only for more than kInPlace characters
  std::array<C, kInPlace + 1> inPlace_{};
};

extern template class OrlixString<char>;
extern template class OrlixString<wchar_t>;

}  // namespace Orlix
