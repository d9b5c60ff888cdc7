#ifndef TSLM5_DATASETLITE_DATA_SET_LOADING_H_
#define TSLM5_DATASETLITE_DATA_SET_LOADING_H_

#include <cstdint>
#include <string_view>

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
  /// extra set that would need the very table of `data_set_type`. False also after a cancelled
  /// `BeforeDataLoad`. The set has been emptied by then (meant), and by the time of any error:
  /// 41019 when a listener stopped the fill, or what reading or storing raises. The fill itself is
  /// one transaction.
  bool SetData(IUnknown* source, std::int32_t data_set_type);

 private:
  bool Fill(IDataSet& source, IExtraSet* extra);
  Ref<TableLite> NewTable() const;
  void Finish(IParseEventArgs& arguments, std::string_view message);

  DataSetLiteState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_DATA_SET_LOADING_H_
