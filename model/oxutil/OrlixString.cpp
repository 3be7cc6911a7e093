#include "model/oxutil/OrlixString.h"

#include <algorithm>
#include <utility>

namespace Orlix {

template <class C>
OrlixString<C>::OrlixString() noexcept = default;

template <class C>
OrlixString<C>::OrlixString(const C* text)
    : OrlixString(text ? std::basic_string_view<C>(text) : std::basic_string_view<C>()) {}

template <class C>
OrlixString<C>::OrlixString(std::basic_string_view<C> text) : size_(text.size()) {
  C* data = inPlace_.data();
  if (size_ > kInPlace) {
    heap_ =
        std::make_unique<C[]>(size_ + 1);  // value-initialised, so the terminating zero is there
    data = heap_.get();
  }
  std::copy(text.begin(), text.end(), data);
}

template <class C>
OrlixString<C>::OrlixString(const OrlixString& other) : OrlixString(other.View()) {}

template <class C>
OrlixString<C>::OrlixString(OrlixString&& other) noexcept
    : size_(std::exchange(other.size_, 0)),
      heap_(std::move(other.heap_)),
      inPlace_(std::exchange(other.inPlace_, {})) {}

template <class C>
OrlixString<C>& OrlixString<C>::operator=(const OrlixString& other) {
  return *this = OrlixString(other);
}

template <class C>
OrlixString<C>& OrlixString<C>::operator=(OrlixString&& other) noexcept {
  if (this == &other) return *this;
  size_ = std::exchange(other.size_, 0);
  heap_ = std::move(other.heap_);
  inPlace_ = std::exchange(other.inPlace_, {});
  return *this;
}

template <class C>
OrlixString<C>::~OrlixString() = default;

template class OrlixString<char>;
template class OrlixString<wchar_t>;

}  // namespace Orlix
