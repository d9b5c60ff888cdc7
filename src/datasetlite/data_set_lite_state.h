#ifndef TSLM5_DATASETLITE_DATA_SET_LITE_STATE_H_
#define TSLM5_DATASETLITE_DATA_SET_LITE_STATE_H_

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "contracts/property_bag.h"
#include "datasetlite/statistics_cache.h"
#include "storage/table_lite.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/data_set_events.h"
#include "tslm5/engine/connection.h"
#include "tslm5/platform/connection_point.h"
#include "tslm5/platform/ref.h"

namespace tslm5 {

/// What a run's column records say of its columns, by column index.
struct ColumnFlags {
  std::map<std::int32_t, bool> is_categorical;
  std::map<std::int32_t, bool> has_missing;
};

/// What the facets of one `DataSetLite` share, with the defaults of a new one.
struct DataSetLiteState {
  PropertyBag properties;

  std::string independent_vars_prefix = "d";
  std::string dependent_var_name = "y";
  std::int32_t data_set_type = 0;
  std::int32_t problem_category = 0;

  bool has_labels = true;
  std::vector<std::string> labels;  // no character of code 5 in them

  Ref<IUnknown> run;           // the connection service
  Ref<TableLite> table;        // the set's own data table
  Ref<TableLite> extra_table;  // the time-series testing table, when there is one

  bool is_dirty = false;
  bool is_ready = false;
  std::int32_t cached_columns = -1;  // -1: not asked yet
  std::int32_t current_row = -1;     // -1: the iterator was not reset yet

  StatisticsCache statistics;
  std::map<std::int32_t, bool> is_categorical;  // by column index
  std::map<std::int32_t, bool> has_missing;     // by column index
  bool wrote_column_records = false;            // by `Save`, out of the labels

  SinkList<IDataSetLiteEvents> sinks;
  IDataSet* sender = nullptr;  // the set's own face, for events

  void Take(ColumnFlags flags) noexcept {
    is_categorical.swap(flags.is_categorical);
    has_missing.swap(flags.has_missing);
  }
  std::int32_t Rows() const { return table ? table->Rows() : 0; }
};

/// The connection of the set's run; raises 41001 when it has none.
Ref<IConnection> ConnectionOf(const DataSetLiteState& state);

/// The categorical flags and the missing counts of a run's columns; both are empty when the run has
/// no column records. The last record of a column wins.
ColumnFlags ReadColumnFlags(IConnection& connection);
/// Reads them anew for a set; an error leaves it those that it has.
void LoadColumnFlags(DataSetLiteState& state);

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_DATA_SET_LITE_STATE_H_
