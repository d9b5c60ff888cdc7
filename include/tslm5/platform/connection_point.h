#ifndef TSLM5_PLATFORM_CONNECTION_POINT_H_
#define TSLM5_PLATFORM_CONNECTION_POINT_H_

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "tslm5/platform/error.h"
#include "tslm5/platform/ref.h"
#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// Where a listener attaches to an object that raises events.
class IConnectionPoint : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000003ULL, 0x8a1f4c0b6d2e7303ULL};

  /// Attaches `pSink`, which must have the object's sink interface (else 13), and returns a cookie
  /// greater than 0. The object holds a reference to the sink until `Unadvise`.
  virtual std::int32_t Advise(IUnknown* pSink) = 0;

  /// Detaches the sink of `pCookie`; an unknown cookie raises 5.
  virtual void Unadvise(std::int32_t pCookie) = 0;

 protected:
  ~IConnectionPoint() = default;
};

/// The sinks of one event source, called in the order in which they were attached.
/// The list is copied on write and firing walks the list as it was when the event was raised: a
/// sink may detach itself or another, attach a new one, or let go of the source. One attached
/// while an event is fired gets the next event; one detached while it is fired still gets this one.
/// What a sink throws passes to the raiser at once; the sinks after it do not see the event.
template <class Sink>
class SinkList {
 public:
  /// Attaches `sink`, holding a reference to its `Sink` face, and returns a cookie greater than 0.
  /// Raises 13 when it has no such face. Cookies are never used again.
  std::int32_t Advise(IUnknown* sink) {
    Ref<Sink> face = Query<Sink>(sink);
    if (!face) RaiseTypeMismatch();
    auto next = Copy();
    next->emplace_back(++last_cookie_, std::move(face));
    list_ = std::move(next);
    return last_cookie_;
  }

  /// Detaches the sink of `cookie`; an unknown cookie raises 5.
  void Unadvise(std::int32_t cookie) {
    auto next = Copy();
    if (std::erase_if(*next, [cookie](const auto& entry) { return entry.first == cookie; }) == 0) {
      throw Error(error_number::kInvalidCall, "Unadvise", "Unknown cookie");
    }
    list_ = std::move(next);
  }

  /// False when nobody listens: then an event need not be prepared at all.
  bool HasSinks() const { return list_ != nullptr && !list_->empty(); }

  /// Calls `operation(sink)` for every sink.
  template <class Operation>
  void Fire(Operation&& operation) const {
    const std::shared_ptr<const List> snapshot = list_;
    if (snapshot == nullptr) return;
    for (const auto& entry : *snapshot) operation(*entry.second);
  }

 private:
  using List = std::vector<std::pair<std::int32_t, Ref<Sink>>>;

  std::shared_ptr<List> Copy() const {
    return list_ == nullptr ? std::make_shared<List>() : std::make_shared<List>(*list_);
  }

  std::shared_ptr<const List> list_;
  std::int32_t last_cookie_ = 0;
};

}  // namespace tslm5

#endif  // TSLM5_PLATFORM_CONNECTION_POINT_H_
