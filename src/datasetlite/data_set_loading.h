#ifndef TSLM5_DATASETLITE_DATA_SET_LOADING_H_
#define TSLM5_DATASETLITE_DATA_SET_LOADING_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "datasetlite/data_set_lite_state.h"
#include "tslm5/contracts/event_args.h"
#include "tslm5/contracts/extra_set.h"

namespace tslm5 {

/// Fills a `DataSetLite` from an in-memory set: `IDataSet::SetData`. The source's records go to the
/// set's own table, its extra set (the testing part of a time series) to the extra table.
class DataSetLoading {
 public:
  explicit DataSetLoading(DataSetLiteState& state) : state_(state) {}

  /// False, and nothing changed, when the source is no `InMemorySet`, holds no records, or has an
  /// extra set that would need the very table of `data_set_type`. Raises, and nothing is changed,
  /// 41001 without a run or for a type without a table, and 41011 for more columns than a table
  /// takes. Then the set is emptied, and a handler of `BeforeDataLoad` finds it so. Where it
  /// cancels, the result is false and the set stays empty (meant). Any other way out is an error:
  /// 41019 when a listener stopped the fill, or what handlers, reading or storing raise; the rows
  /// of before and all that goes with them are back by then, but the set is dirty and not ready.
  bool SetData(IUnknown* source, std::int32_t data_set_type);

 private:
  /// What a fill has made, to be taken over once it is committed.
  struct Filled {
    Ref<TableLite> table;
    Ref<TableLite> extra_table;
    std::int32_t columns = 0;
    bool has_labels = false;
    std::vector<std::string> labels;
  };

  void Empty(IDataSet& source, std::int32_t data_set_type);
  Filled Fill(IDataSet& source, IExtraSet* extra);
  void TakeOver(Filled filled) noexcept;
  void Conclude(IParseEventArgs& arguments);
  Ref<TableLite> NewTable() const;
  void Finish(IParseEventArgs& arguments, std::string_view message);

  DataSetLiteState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_DATA_SET_LOADING_H_
