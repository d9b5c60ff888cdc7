#include "host/preparation/run_metadata.h"

#include <fmt/format.h>

namespace tslm5::host {
namespace {

void DeleteFrom(const RunSession& session, std::string_view table, std::string_view where) {
  if (!session.Connection().TableExists(table)) return;
  session.Connection().Execute(fmt::format("DELETE FROM {} WHERE {}", table, where));
}

}  // namespace

std::vector<std::string> LabelsOf(IDataSet& data_set) {
  std::vector<std::string> labels;
  const std::int32_t columns = data_set.Columns();
  labels.reserve(static_cast<std::size_t>(columns));
  for (std::int32_t column = 0; column < columns; ++column) {
    labels.push_back(data_set.GetLabel(column));
  }
  return labels;
}

void WriteColumns(const RunSession& session, const std::vector<ColumnNote>& columns,
                  bool has_labels) {
  IConnection& connection = session.Connection();
  connection.Execute("DELETE FROM DataSetColumn");
  connection.Execute("DELETE FROM OriginalDataLabels WHERE SetId = 1");
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const ColumnNote& column = columns[i];
    const std::string name = fmt::format("d{}", i);
    connection.Execute(
        fmt::format("INSERT INTO DataSetColumn VALUES (NULL, {}, '{}', {}, {}, {}, 0, {})", i, name,
                    SqlText(has_labels ? column.label : name), column.is_nominal ? 1 : 0,
                    column.missing, i + 1 == columns.size() ? 1 : 0));
    connection.Execute(
        fmt::format("INSERT INTO OriginalDataLabels (Label, ColumnIndex, SetId) VALUES ({}, {}, 1)",
                    SqlText(column.label), i));
  }
}

void ForgetStatistics(const RunSession& session, std::int32_t type) {
  DeleteFrom(session, "DataSetStatistics", fmt::format("DataSetId = {}", type));
  DeleteFrom(session, "DataSetClassStatistics", fmt::format("DataSetId = {}", type));
}

void ForgetFormerSet(const RunSession& session, std::int32_t type) {
  DeleteFrom(session, "DataSetLabels", fmt::format("SetId = {}", type));
  ForgetStatistics(session, type);
}

std::string SqlText(std::string_view text) {
  std::string sql = "'";
  for (const char c : text) {
    if (c == '\'') sql += '\'';
    sql += c;
  }
  return sql + "'";
}

}  // namespace tslm5::host
