#include "host/run_metadata.h"

#include <fmt/format.h>

#include "tslm5/contracts/codes.h"

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

void WriteColumns(const RunSession& session, IDataSet& data_set, const CellSurvey& survey) {
  IConnection& connection = session.Connection();
  connection.Execute("DELETE FROM DataSetColumn");
  connection.Execute("DELETE FROM OriginalDataLabels WHERE SetId = 1");
  const bool has_labels = data_set.HasLabels();
  const std::vector<std::string> labels = LabelsOf(data_set);
  for (std::size_t column = 0; column < labels.size(); ++column) {
    const std::string name = fmt::format("d{}", column);
    const bool is_response = column + 1 == labels.size();
    connection.Execute(
        fmt::format("INSERT INTO DataSetColumn VALUES (NULL, {}, '{}', {}, 0, {}, 0, {})", column,
                    name, SqlText(has_labels ? labels[column] : name),
                    survey.missing_by_column[column], is_response ? 1 : 0));
    connection.Execute(
        fmt::format("INSERT INTO OriginalDataLabels (Label, ColumnIndex, SetId) VALUES ({}, {}, 1)",
                    SqlText(labels[column]), column));
  }
}

void ForgetFormerSet(const RunSession& session, std::int32_t type) {
  DeleteFrom(session, "DataSetLabels", fmt::format("SetId = {}", type));
  DeleteFrom(session, "DataSetStatistics", fmt::format("DataSetId = {}", type));
  DeleteFrom(session, "DataSetClassStatistics", fmt::format("DataSetId = {}", type));
  if (type != data_set_type::kTraining) return;
  for (const char* table : {"DataSetColumnCategories", "MissingMappings",
                            "DataSetStatisticsForCode", "DataSetStatisticsForMissing"}) {
    DeleteFrom(session, table, "1");
  }
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
