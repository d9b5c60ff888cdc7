#include "datasetlite/run_labels.h"

#include <string>

#include "datasetlite/column_records.h"
#include "storage/run_statements.h"
#include "support/label_test.h"
#include "support/text_split.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/engine/transaction.h"

namespace tslm5::RunLabels {
namespace {

constexpr std::string_view kLabelField = "OriginalLabel";

std::int32_t ReadCount(IConnection& connection, std::string_view statement) {
  const Ref<IDataReader> reader = connection.ExecuteReader(statement);
  return reader->Read() ? reader->GetInteger(0) : 0;
}

std::int32_t FieldIndex(IDataReader& reader, std::string_view name) {
  std::int32_t index = 0;
  while (reader.FieldName(index) != name) ++index;
  return index;
}

std::vector<std::string> ReadOriginalLabels(IConnection& connection) {
  std::vector<std::string> labels;
  labels.reserve(static_cast<std::size_t>(ReadCount(connection, run_statement::kCountColumns)));
  const Ref<IDataReader> reader = connection.ExecuteReader(run_statement::kSelectColumns);
  const std::int32_t field = FieldIndex(*reader, kLabelField);
  while (reader->Read()) labels.push_back(PlainLabel(reader->GetString(field)));
  return labels;
}

std::string Doubled(std::string_view text) {
  std::string doubled;
  for (const char c : text) {
    doubled += c;
    if (c == '\'') doubled += c;
  }
  return doubled;
}

/// Puts the labels of a set in place of its old ones.
void Store(IConnection& connection, std::int32_t type, const std::vector<std::string>& labels) {
  const std::string set_id = std::to_string(type);
  connection.Execute(FillStatement(run_statement::kDeleteLabels, {{"<SET_ID>", set_id}}));
  for (std::size_t column = 0; column < labels.size(); ++column) {
    connection.Execute(FillStatement(run_statement::kInsertLabel,
                                     {{"<SET_ID>", set_id},
                                      {"<COLUMN>", std::to_string(column)},
                                      {"<LABEL>", Doubled(PlainLabel(labels[column]))}}));
  }
}

}  // namespace

std::vector<std::string> Read(IConnection& connection) {
  if (!connection.TableExists("DataSetColumn") ||
      ReadCount(connection, run_statement::kCountLabels) == 0) {
    return {};
  }
  return ReadOriginalLabels(connection);
}

void Load(DataSetLiteState& state) {
  state.labels = Read(*ConnectionOf(state));
  state.has_labels = !state.labels.empty();
}

void Set(DataSetLiteState& state, std::string_view labels) {
  state.labels.clear();
  FieldCursor words(labels, " ");
  for (std::string_view word; words.Next(word);) {
    state.labels.push_back(PlainLabel(std::string(word)));
  }
  state.has_labels = true;
  state.is_dirty = true;
}

void Save(DataSetLiteState& state) {
  const Ref<IConnection> connection = ConnectionOf(state);
  const bool is_training = state.data_set_type == data_set_type::kTraining;
  // Without labels there is something to do only where those of the data of before are stored.
  const bool may_outlive_data = is_training && state.is_dirty;
  if (!state.has_labels && (!may_outlive_data || Read(*connection).empty())) return;
  const bool renews_records = is_training && ColumnRecords::AreOfLabels(*connection);
  if (!state.has_labels && !renews_records) return;

  const std::vector<std::string> labels =
      state.has_labels ? state.labels : std::vector<std::string>();
  Transaction transaction(*connection);
  Store(*connection, state.data_set_type, labels);
  const bool has_records = renews_records && ColumnRecords::Renew(*connection, labels.size());
  transaction.Commit([&] { state.wrote_column_records = has_records; });
}

}  // namespace tslm5::RunLabels
