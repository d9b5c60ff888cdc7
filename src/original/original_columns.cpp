#include "original/original_columns.h"

#include "storage/run_statements.h"
#include "storage/sqlite_helpers.h"

namespace tslm5::OriginalColumns {
namespace {

void LoadLabels(OriginalDataState& state, IConnection& connection) {
  const auto columns = static_cast<std::size_t>(state.cells.Columns());
  state.is_relabelled = SqliteHelpers::QueryInteger(connection, run_statement::kCountLabels) > 0;
  state.labels.assign(columns, {});
  state.column_indexes.assign(columns, 0);
  if (!state.is_relabelled) {
    for (std::size_t position = 0; position < columns; ++position) {
      const auto column = static_cast<std::int32_t>(position);
      state.labels[position] = ShortName(state, column);
      state.column_indexes[position] = column;
    }
  }
  // Labels go by their position among the label records, not by their column index (meant).
  const Ref<IDataReader> reader = connection.ExecuteReader(run_statement::kSelectOriginalLabels);
  for (std::size_t position = 0; position < columns && reader->Read(); ++position) {
    state.labels[position] = reader->GetString(0);
    state.column_indexes[position] = reader->GetInteger(1);
  }
}

// A run of a time series has more column records than original columns: those behind are left.
void LoadNominalFlags(OriginalDataState& state, IConnection& connection) {
  const auto columns = static_cast<std::size_t>(state.cells.Columns());
  state.is_nominal.assign(columns, false);
  const Ref<IDataReader> reader = connection.ExecuteReader(run_statement::kSelectNominalFlagList);
  for (std::size_t column = 0; column < columns && reader->Read(); ++column) {
    state.is_nominal[column] = reader->GetInteger(0) != 0;
  }
}

void LoadMissing(OriginalDataState& state, IConnection& connection) {
  const Ref<IDataReader> reader = connection.ExecuteReader(run_statement::kSelectMissingCounts);
  while (reader->Read()) state.has_missing[reader->GetInteger(0)] = reader->GetInteger(1) > 0;
}

}  // namespace

void Load(OriginalDataState& state, IConnection& connection) {
  LoadLabels(state, connection);
  LoadNominalFlags(state, connection);
  LoadMissing(state, connection);
}

std::string ShortName(const OriginalDataState& state, std::int32_t column) {
  if (column == state.cells.Columns() - 1) return "y";
  return std::string("d").append(std::to_string(column));
}

std::string LongLabel(const OriginalDataState& state, std::int32_t column) {
  std::string name = ShortName(state, column);
  if (state.is_relabelled) name.append(":").append(ElementOf(state.labels, column));
  return name;
}

}  // namespace tslm5::OriginalColumns
