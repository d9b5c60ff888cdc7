#include "datasetlite/record_access.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "datasetlite/extra_table.h"
#include "platform/only_errors.h"
#include "storage/run_statements.h"
#include "support/locale.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/engine/transaction.h"
#include "tslm5/platform/error.h"
#include "tslm5/platform/number_text.h"

namespace tslm5 {
namespace RecordAccess {
namespace {

/// The first field of the first record, or empty when there is no record.
Variant FirstValue(IConnection& connection, std::string_view statement) {
  const Ref<IDataReader> reader = connection.ExecuteReader(statement);
  return reader->Read() ? reader->GetValue(0) : Variant();
}

Variant ColumnName(IConnection& connection, std::int32_t column) {
  if (column == -1) return FirstValue(connection, run_statement::kSelectResponseName);
  return FirstValue(connection, FillStatement(run_statement::kSelectColumnName,
                                              {{"<COLUMN>", std::to_string(column)}}));
}

/// Whether the run has a table of original texts, but no such column in it: its application stores
/// no texts.
bool LacksTexts(IConnection& connection, std::string_view name) {
  if (!connection.TableExists("OriginalData")) return false;
  const Ref<IDataReader> reader = connection.ExecuteReader(run_statement::kProbeOriginal);
  for (std::int32_t field = 0; field < reader->FieldCount(); ++field) {
    if (reader->FieldName(field) == name) return false;
  }
  return true;
}

Variant ValueOfRecord(IConnection& connection, const std::string& name, std::int32_t record_id) {
  try {
    return FirstValue(connection,
                      FillStatement(run_statement::kSelectOriginalValue,
                                    {{"<NAME>", name}, {"<ROW>", std::to_string(record_id)}}));
  } catch (const Error&) {
    if (LacksTexts(connection, name)) return {};
    throw;
  }
}

/// Forgets the table and its labels; type and properties stay.
void Empty(DataSetLiteState& state) noexcept {
  state.table.Reset();
  state.extra_table.Reset();
  state.labels.clear();
  state.is_ready = false;
  state.cached_columns = -1;
  state.statistics.Empty();
}

bool IsSeries(DataSetLiteState& state) {
  return state.problem_category == problem_category::kTimeSeries && Columns(state) == 1;
}

}  // namespace

std::int32_t Columns(DataSetLiteState& state) {
  state.cached_columns = state.table ? state.table->Columns() : 0;
  return state.cached_columns;
}

void RaiseInvalidCell() {
  throw Error(error_number::kInvalidData, "GetItem", "Invalid Row or Column");
}

std::string ItemText(DataSetLiteState& state, std::int32_t column, std::int32_t row) {
  return OrEmpty([&]() -> std::string {
    const double value = Item(state, column, row);
    if (std::isnan(value)) return {};
    std::string text = NumberText(value);
    std::replace(text.begin(), text.end(), '.', CurrentLocale().DecimalSymbol());
    return text;
  });
}

std::int32_t OriginalIndex(DataSetLiteState& state, std::int32_t row) {
  // Asked anew each time: another set of the run may have made the table with other columns.
  const std::int32_t key_column = Columns(state);
  double key = 0.0;
  const bool is_there = state.table && state.table->GetValue(key_column, row, key);
  if (!is_there || !(key >= std::numeric_limits<std::int32_t>::min() &&
                     key <= std::numeric_limits<std::int32_t>::max())) {
    throw Error(error_number::kInvalidData, "GetRowNumber", "Invalid Row");
  }
  return Variant(key).ToInteger();
}

Variant OriginalValueOfRecord(DataSetLiteState& state, std::int32_t record_id,
                              std::int32_t column) {
  const Ref<IConnection> connection = ConnectionOf(state);
  const Variant name = ColumnName(*connection, column);
  if (name.IsEmpty()) return {};
  return ValueOfRecord(*connection, name.ToString(), record_id);
}

Variant OriginalValue(DataSetLiteState& state, std::int32_t row, std::int32_t column) {
  const Ref<IConnection> connection = ConnectionOf(state);
  const Variant name = ColumnName(*connection, column);
  if (name.IsEmpty()) return {};
  return ValueOfRecord(*connection, name.ToString(), OriginalIndex(state, row));
}

std::string Label(DataSetLiteState& state, std::int32_t column) {
  std::string label;
  if (state.has_labels) {
    const auto index = static_cast<std::size_t>(column);
    if (column >= 0 && index < state.labels.size()) label = state.labels[index];
  } else {
    label = column == Columns(state) - 1 ? state.dependent_var_name
                                         : state.independent_vars_prefix + std::to_string(column);
  }
  return label == "TimeSeries" && IsSeries(state) ? "Time Series" : label;
}

std::string LongLabel(DataSetLiteState& state, std::int32_t column) {
  std::string label = Label(state, column);
  if (!state.has_labels || IsSeries(state)) return label;
  const std::string name = column == Columns(state) - 1
                               ? state.dependent_var_name
                               : state.independent_vars_prefix + std::to_string(column);
  return name + ":" + label;
}

void Clear(DataSetLiteState& state) {
  if (!state.table && !state.extra_table) return Empty(state);
  const Ref<IConnection> connection = ConnectionOf(state);
  Transaction transaction(*connection);
  const std::string_view name = state.table ? state.table->Name() : std::string_view();
  if (!name.empty() && connection->TableExists(name)) {
    connection->Execute(FillStatement(run_statement::kDropTable, {{"<TABLE>", name}}));
  }
  ExtraTable::DropWithData(state, *connection);
  transaction.Commit([&state] {
    state.is_dirty = true;
    Empty(state);
  });
}

}  // namespace RecordAccess

bool IteratorFacet::GetCurrentSample(Array<double>& pArray) try {
  if (state_.current_row == -1) throw Error(error_number::kIteratorNotReset);
  const std::int32_t columns = state_.cached_columns;
  if (columns > 0 && pArray.Size() < static_cast<std::size_t>(columns)) {
    pArray.Elements().resize(static_cast<std::size_t>(columns));
  }
  for (std::int32_t j = 0; j < columns; ++j) {
    double value = 0.0;
    if (!state_.table || !state_.table->GetValue(state_.current_row, j, value)) return false;
    pArray[pArray.LowerBound() + j] = value;
  }
  ++state_.current_row;
  return true;
} catch (...) {
  RaiseAsError();
}

}  // namespace tslm5
