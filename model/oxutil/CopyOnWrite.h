#pragma once

#include <atomic>
#include <memory>
#include <utility>

namespace Orlix {

/// A value that copies share until one of them is changed. Copies may be read, changed and
/// destroyed in different threads; one object may not be changed while it is used.
template <class T>
class CopyOnWrite {
 public:
  /// Holds T{}.
  CopyOnWrite() = default;
  explicit CopyOnWrite(T value) : value_(std::make_shared<T>(std::move(value))) {}

  const T& Get() const {
    static const T kDefault{};
    return value_ ? *value_ : kDefault;
  }

  /// The value for changes that no copy sees; copied first when it is shared.
  T& Own() {
    if (!value_) {
      value_ = std::make_shared<T>();
    } else if (value_.use_count() > 1) {
      value_ = std::make_shared<T>(*value_);
    } else {
      // The last copy that shared the value may have been read in another thread until now.
      std::atomic_thread_fence(std::memory_order_acquire);
    }
    return *value_;
  }

  /// Whether both are copies of one value of which neither has changed since.
  bool IsSharedWith(const CopyOnWrite& other) const { return value_ && value_ == other.value_; }

 private:
  std::shared_ptr<T> value_;
};

}  // namespace Orlix
