#include "inmemory/in_memory_state.h"

#include <algorithm>
#include <utility>

#include "tslm5/contracts/codes.h"

namespace tslm5 {

double InMemoryState::Cell(std::int32_t row, std::int32_t column) const {
  if (!data) RaiseSubscriptOutOfRange();
  return data->Get(row, column);
}

void InMemoryState::SetType(std::int32_t type) {
  data_set_type = type;
  switch (type) {
    case data_set_type::kTraining:
      name = "Training";
      break;
    case data_set_type::kTesting:
      name = "Testing";
      break;
    case data_set_type::kTimeSeriesTesting:
      name = "Time Series";
      break;
    default:
      break;
  }
}

void InMemoryState::SetProperty(std::string_view key, std::string_view value) {
  properties.Put(key, value);
  is_dirty = true;
}

void InMemoryState::ResetProperties() {
  properties.Clear();
  is_dirty = true;
}

void InMemoryState::MakeDefaultLabels() {
  std::vector<std::string> made;
  const std::int32_t columns = Columns();
  made.reserve(static_cast<std::size_t>(std::max(columns, 1)));
  for (std::int32_t column = 0; column < columns - 1; ++column) {
    made.push_back(independent_vars_prefix + std::to_string(column));
  }
  made.push_back(columns == 1 ? "Time Series" : dependent_var_name);
  labels = std::move(made);
}

void InMemoryState::EndExtraSet() {
  extra_set = CellArray();
  extra_set_exists = false;
}

void InMemoryState::Reset() {
  labels.clear();
  data.reset();
  EndExtraSet();
  ResetProperties();
  iterator_position = -1;
  has_labels = false;
  separator = -1;
  data_set_type = data_set_type::kUnknown;
  is_dirty = false;
  name.clear();
  is_ready = false;
}

}  // namespace tslm5
