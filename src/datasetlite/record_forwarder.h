#ifndef TSLM5_DATASETLITE_RECORD_FORWARDER_H_
#define TSLM5_DATASETLITE_RECORD_FORWARDER_H_

#include <cstdint>

#include "storage/table_lite.h"
#include "tslm5/contracts/data_set_events.h"
#include "tslm5/platform/connection_point.h"

namespace tslm5 {

/// While it stands, hands a table's `RecordParsed` on to a dataset's listeners, the argument object
/// unchanged. Without listeners it attaches nothing, so that a fill costs no event.
class ScopedRecordForwarder {
 public:
  ScopedRecordForwarder(TableLite& table, const SinkList<IDataSetLiteEvents>& sinks);
  ~ScopedRecordForwarder();
  ScopedRecordForwarder(const ScopedRecordForwarder&) = delete;
  ScopedRecordForwarder& operator=(const ScopedRecordForwarder&) = delete;

 private:
  TableLite& table_;
  std::int32_t cookie_ = 0;
};

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_RECORD_FORWARDER_H_
