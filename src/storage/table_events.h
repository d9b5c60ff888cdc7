#ifndef TSLM5_STORAGE_TABLE_EVENTS_H_
#define TSLM5_STORAGE_TABLE_EVENTS_H_

#include <cstdint>

#include "contracts/event_args_objects.h"
#include "tslm5/contracts/event_args.h"
#include "tslm5/platform/connection_point.h"
#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// Sink of the table store's one event.
class ITableEvents : public IUnknown {
 public:
  static constexpr Uuid kId{0x54534c4d350000a1ULL, 0x8a1f4c0b6d2e73a1ULL};

  /// Raised after each stored record; `Cancel` is read back when the handlers have run.
  virtual void RecordParsed(IRecordParsedEventArgs* pEvArgs) = 0;

 protected:
  ~ITableEvents() = default;
};

/// Raises `RecordParsed` for the records of one fill, with one argument object for all of them.
/// Without listeners it touches nothing.
class RecordFeedback {
 public:
  explicit RecordFeedback(const SinkList<ITableEvents>& sinks) : sinks_(sinks) {
    if (sinks_.HasSinks()) arguments_ = MakeRecordParsedEventArgs();
  }

  /// The number of columns that every record of the fill has.
  void SetColumns(std::int32_t columns) {
    if (arguments_) arguments_->put_Columns(columns);
  }

  /// Tells of record `current` (0-based); false when a listener asks the fill to stop.
  bool Stored(std::int32_t current) {
    if (!arguments_) return true;
    arguments_->put_Current(current);
    sinks_.Fire([this](ITableEvents& sink) { sink.RecordParsed(arguments_.get()); });
    return !arguments_->Cancel();
  }

 private:
  const SinkList<ITableEvents>& sinks_;
  Ref<IRecordParsedEventArgs> arguments_;
};

}  // namespace tslm5

#endif  // TSLM5_STORAGE_TABLE_EVENTS_H_
