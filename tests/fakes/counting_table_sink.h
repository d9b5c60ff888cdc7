#ifndef TSLM5_TESTS_FAKES_COUNTING_TABLE_SINK_H_
#define TSLM5_TESTS_FAKES_COUNTING_TABLE_SINK_H_

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "storage/table_events.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// A listener of a table's `RecordParsed` that notes what each event carried.
class CountingTableSink final : public CountedObject<ITableEvents> {
 public:
  /// Asks to stop at the event of this number, counted from 1; never with 0.
  explicit CountingTableSink(std::size_t cancel_at = 0) : cancel_at_(cancel_at) {}

  /// Runs in each event, after it was noted.
  std::function<void(IRecordParsedEventArgs&)> handler;

  /// `Current`, `Columns` and `Error` of each event, in the order of the events.
  std::vector<std::int32_t> currents;
  std::vector<std::int32_t> columns;
  std::vector<std::int32_t> errors;

  std::string_view TypeName() override { return "CountingTableSink"; }

  void RecordParsed(IRecordParsedEventArgs* pEvArgs) override {
    currents.push_back(pEvArgs->Current());
    columns.push_back(pEvArgs->Columns());
    errors.push_back(pEvArgs->Error());
    if (currents.size() == cancel_at_) pEvArgs->put_Cancel(true);
    if (handler) handler(*pEvArgs);
  }

 private:
  ~CountingTableSink() override = default;

  std::size_t cancel_at_;
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_FAKES_COUNTING_TABLE_SINK_H_
