#ifndef TSLM5_INMEMORY_IN_MEMORY_STATE_H_
#define TSLM5_INMEMORY_IN_MEMORY_STATE_H_

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "contracts/property_bag.h"
#include "inmemory/cell_array.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/data_set_events.h"
#include "tslm5/platform/connection_point.h"

namespace tslm5 {

/// What one `InMemorySet` holds, with the defaults of a new one. A plain value: a copy shares the
/// data, and nothing else.
struct InMemoryContent {
  PropertyBag properties;

  std::int32_t column_count = -1;  // as the last fill counted them; -1: there was none yet
  std::string name;                // follows the type code; `IDataSet::Name` does not read it
  bool has_labels = false;
  std::int32_t separator = 0;  // code of the last parse, -1 after a reset
  std::int32_t data_set_type = 0;
  std::int32_t problem_category = 0;
  std::string independent_vars_prefix = "d";
  std::string dependent_var_name = "y";
  std::vector<std::string> labels;

  std::shared_ptr<CellArray> data;  // a row a record; null when nothing was parsed
  CellArray extra_set;
  bool extra_set_exists = false;

  bool is_ready = false;
  bool is_dirty = false;
  std::int32_t replaced_missing_count = 0;
  std::int32_t iterator_position = -1;  // -1: not reset yet
};

/// What the facets of one `InMemorySet` share.
struct InMemoryState : InMemoryContent {
  SinkList<IInMemorySetEvents> sinks;
  IDataSet* sender = nullptr;  // the set's own face, for events

  std::int32_t Rows() const { return data ? data->Rows() : 0; }
  std::int32_t Columns() const { return column_count == -1 ? 0 : column_count; }
  /// One cell of the data; raises 9 when there is none.
  double Cell(std::int32_t row, std::int32_t column) const;

  /// Stores the type code, and the name that goes with it; a code without one leaves the name.
  void SetType(std::int32_t type);
  void SetProperty(std::string_view key, std::string_view value);
  void ResetProperties();
  /// As many labels as there are columns, made of the names of the variables; the one column of a
  /// series is "Time Series".
  void MakeDefaultLabels();
  /// New data, or none, end the extra set of the old.
  void EndExtraSet();
  /// Empties the set: type 1000, no data. The column count and the problem category stay (meant).
  void Reset();
};

}  // namespace tslm5

#endif  // TSLM5_INMEMORY_IN_MEMORY_STATE_H_
