#include "datasetlite/run_labels.h"

#include <string>

#include "storage/run_statements.h"
#include "storage/transaction.h"
#include "support/label_test.h"
#include "support/text_split.h"

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

}  // namespace

void Load(DataSetLiteState& state) {
  const Ref<IConnection> connection = ConnectionOf(state);
  std::vector<std::string> labels;
  if (connection->TableExists("DataSetColumn") &&
      ReadCount(*connection, run_statement::kCountLabels) != 0) {
    labels = ReadOriginalLabels(*connection);
  }
  state.has_labels = !labels.empty();
  state.labels = std::move(labels);
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
  const std::string set_id = std::to_string(state.data_set_type);
  Transaction transaction(*connection);
  connection->Execute(FillStatement(run_statement::kDeleteLabels, {{"<SET_ID>", set_id}}));
  for (std::size_t column = 0; column < state.labels.size(); ++column) {
    connection->Execute(FillStatement(run_statement::kInsertLabel,
                                      {{"<SET_ID>", set_id},
                                       {"<COLUMN>", std::to_string(column)},
                                       {"<LABEL>", Doubled(PlainLabel(state.labels[column]))}}));
  }
  transaction.Commit();
}

}  // namespace tslm5::RunLabels
