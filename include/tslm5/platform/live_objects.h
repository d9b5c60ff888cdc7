#ifndef TSLM5_PLATFORM_LIVE_OBJECTS_H_
#define TSLM5_PLATFORM_LIVE_OBJECTS_H_

#include <atomic>
#include <cstdint>
#ifndef NDEBUG
#include <mutex>
#include <set>
#include <string>
#include <vector>
#endif

namespace tslm5 {

/// Counts the living counted objects of one module (each shared library and each program has its
/// own count). Debug builds also keep the list of them, so that a leak can be named. Safe from any
/// thread. `CountedObject` and `FacetOwner` enter and leave by themselves.
class LiveObjects {
 public:
  /// Objects of this module that live now.
  static std::int64_t Count() { return count_.load(std::memory_order_relaxed); }

#ifndef NDEBUG
  /// Enters an object that begins to live; its address is not read.
  static void Add(const void* object) {
    const std::lock_guard lock(mutex_);
    list_.insert(object);  // what cannot be listed is not counted
    count_.fetch_add(1, std::memory_order_relaxed);
  }

  /// Takes out an object that ends.
  static void Remove(const void* object) {
    count_.fetch_sub(1, std::memory_order_relaxed);
    const std::lock_guard lock(mutex_);
    list_.erase(object);
  }

  /// The addresses of the living objects, in no order that means anything; debug builds alone.
  static std::vector<const void*> List() {
    const std::lock_guard lock(mutex_);
    return {list_.begin(), list_.end()};
  }
#else
  static void Add(const void*) {
    count_.fetch_add(1, std::memory_order_relaxed);
  }
  static void Remove(const void*) {
    count_.fetch_sub(1, std::memory_order_relaxed);
  }
#endif

 private:
  inline static std::atomic<std::int64_t> count_{0};
#ifndef NDEBUG
  inline static std::mutex mutex_;
  inline static std::set<const void*> list_;
#endif
};

}  // namespace tslm5

#endif  // TSLM5_PLATFORM_LIVE_OBJECTS_H_
