#include "model/oxutil/ForEachCase.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <limits>
#include <map>
#include <mutex>
#include <utility>

#ifdef _OPENMP
#include <omp.h>
#endif

namespace Orlix {
namespace {

int NumThreads() {
#ifdef _OPENMP
  return omp_get_max_threads();
#else
  return 1;
#endif
}

bool IsCallingThread() {
#ifdef _OPENMP
  return omp_get_thread_num() == 0;
#else
  return true;
#endif
}

/// The exception of the lowest index; taken in and asked from any thread.
class FirstFailure {
 public:
  /// Calls f() and keeps what it throws.
  template <class F>
  void Watch(std::ptrdiff_t index, F f) {
    try {
      f();
    } catch (...) {
      const std::lock_guard lock(mutex_);
      if (index >= index_) return;
      failure_ = std::current_exception();
      index_ = index;
    }
  }
  /// The index that failed; beyond all when none did.
  std::ptrdiff_t Index() const { return index_; }
  void Rethrow() const {
    if (failure_) std::rethrow_exception(failure_);
  }

 private:
  std::mutex mutex_;
  std::exception_ptr failure_;
  std::atomic<std::ptrdiff_t> index_{std::numeric_limits<std::ptrdiff_t>::max()};
};

/// Pieces that are made in any order and used in that of their indices, by whichever thread finds
/// the next one there: no thread waits for another but where it is far ahead.
class Queue {
 public:
  explicit Queue(const std::function<void(std::string_view)>& use) : use_(use) {}

  FirstFailure& Failure() { return failure_; }

  /// The index of the next piece to make.
  std::ptrdiff_t Next() {
    const std::ptrdiff_t index = next_++;
    std::unique_lock lock(mutex_);
    // The thread that makes the piece to be used next is never held up.
    used_.wait(lock, [&] { return index < numUsed_ + kPiecesAhead * NumThreads(); });
    return index;
  }

  /// Takes a piece over; `piece` becomes some text whose memory can be used again.
  void Put(std::ptrdiff_t index, std::string& piece) {
    std::unique_lock lock(mutex_);
    std::swap(made_[index], piece);
    while (!isUsing_ && !made_.empty() && made_.begin()->first == numUsed_) {
      isUsing_ = true;
      std::swap(made_.begin()->second, piece);
      made_.erase(made_.begin());
      lock.unlock();
      if (failure_.Index() > numUsed_) failure_.Watch(numUsed_, [&] { use_(piece); });
      lock.lock();
      isUsing_ = false;
      ++numUsed_;
      used_.notify_all();
    }
  }

 private:
  static constexpr std::ptrdiff_t kPiecesAhead = 4;  // of each thread

  const std::function<void(std::string_view)>& use_;
  FirstFailure failure_;
  std::atomic<std::ptrdiff_t> next_{0};
  std::mutex mutex_;  // of all below
  std::condition_variable used_;
  std::map<std::ptrdiff_t, std::string> made_;
  std::ptrdiff_t numUsed_{};  // changed by the thread that uses alone
  bool isUsing_{};
};

// Cases in a row for one thread; the rows are dealt out in turn. Enough that neighbours write
// apart, few enough that the threads end together and progress is told a few hundred times a
// second.
std::ptrdiff_t ChunkFor(std::ptrdiff_t count) {
  constexpr std::ptrdiff_t kMost = 128;
  constexpr std::ptrdiff_t kPerThread = 16;
  return std::clamp<std::ptrdiff_t>(count / (kPerThread * NumThreads()), 1, kMost);
}

}  // namespace

bool ForEachCase(std::ptrdiff_t count, const std::function<void(std::ptrdiff_t)>& f,
                 const LoopProgress& progress) {
  if (count <= 0) return true;
  const std::ptrdiff_t chunk = ChunkFor(count);
  const std::ptrdiff_t numChunks = (count + chunk - 1) / chunk;
  FirstFailure failure;
  std::atomic<bool> isStopped{false};
  std::atomic<std::ptrdiff_t> done{0};
#ifdef _OPENMP
#pragma omp parallel for schedule(static, 1) if (count > 1)  // one case needs no team
#endif
  for (std::ptrdiff_t c = 0; c < numChunks; ++c) {
    if (isStopped) continue;
    const std::ptrdiff_t end = std::min(count, (c + 1) * chunk);
    for (std::ptrdiff_t i = c * chunk; i < end; ++i) failure.Watch(i, [&] { f(i); });
    done += end - c * chunk;
    if (!progress || !IsCallingThread()) continue;
    failure.Watch(count, [&] {
      if (!progress(done)) isStopped = true;
    });
    if (failure.Index() == count) isStopped = true;
  }
  failure.Rethrow();
  return !isStopped;
}

void MakeInOrder(std::ptrdiff_t count,
                 const std::function<void(std::ptrdiff_t, std::string&)>& make,
                 const std::function<void(std::string_view)>& use) {
  Queue queue(use);
#ifdef _OPENMP
#pragma omp parallel if (count > 1)
#endif
  {
    std::string piece;
    for (std::ptrdiff_t i = queue.Next(); i < count; i = queue.Next()) {
      piece.clear();
      if (queue.Failure().Index() > i) queue.Failure().Watch(i, [&] { make(i, piece); });
      queue.Put(i, piece);
    }
  }
  queue.Failure().Rethrow();
}

}  // namespace Orlix
