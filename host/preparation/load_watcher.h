#ifndef TSLM5_HOST_PREPARATION_LOAD_WATCHER_H_
#define TSLM5_HOST_PREPARATION_LOAD_WATCHER_H_

#include <cstdint>
#include <exception>

#include "host/program/interruption.h"
#include "host/program/progress.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/event_handlers.h"
#include "tslm5/platform/connection_point.h"

namespace tslm5::host {

/// Shows the load's progress and hands Ctrl-C on while it is attached.
class LoadWatcher {
 public:
  LoadWatcher(IDataSet& data_set, Progress& progress)
      : source_(Query<IConnectionPoint>(&data_set)) {
    const auto handlers = MakeObject<EventHandlers>();
    handlers->on_before_data_load = [&progress](IDataSet&, IParseEventArgs& arguments) {
      progress.Begin("Loading", arguments.Rows());
      if (Interrupted()) arguments.put_Cancel(true);
    };
    handlers->on_record_parsed = [&progress](IRecordParsedEventArgs& arguments) {
      progress.At(arguments.Current());
      if (Interrupted()) arguments.put_Cancel(true);
    };
    cookie_ = source_->Advise(handlers.get());
  }
  LoadWatcher(const LoadWatcher&) = delete;
  LoadWatcher& operator=(const LoadWatcher&) = delete;
  ~LoadWatcher() {
    try {
      source_->Unadvise(cookie_);
    } catch (const std::exception&) {  // only while an event is fired, and none is
    }
  }

 private:
  Ref<IConnectionPoint> source_;
  std::int32_t cookie_ = 0;
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_LOAD_WATCHER_H_
