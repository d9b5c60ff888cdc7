#include "host/preparation/run_originals.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <string>
#include <vector>

#include "host/preparation/record_reader.h"
#include "host/program/interruption.h"
#include "tslm5/contracts/codes.h"

namespace tslm5::host {
namespace {

constexpr std::size_t kIntegerText = 24;

/// Leaves of the originals those whose keys stand in `kept_table`.
void KeepOriginalsOf(const RunSession& session, std::string_view kept_table, std::int32_t columns) {
  IConnection& connection = session.Connection();
  const std::int32_t present = session.ColumnsOf("OriginalData");
  const bool kept = connection.TableExists(kept_table) && present >= columns;
  if (!kept) return CreateOriginals(connection, columns);
  std::string others = fmt::format("row NOT IN (SELECT row FROM {})", kept_table);
  if (kept_table == "TrainingSet" && connection.TableExists("TrainingSetBackup")) {
    others += " AND row NOT IN (SELECT row FROM TrainingSetBackup)";  // an undo brings them back
  }
  connection.Execute(fmt::format("DELETE FROM OriginalData WHERE {}", others));
  if (present > columns) FitOriginals(session, columns);
}

void AppendQuoted(std::string& sql, std::string_view text) {
  sql += '\'';
  for (const char c : text) {
    if (c == '\'') sql += '\'';
    sql += c;
  }
  sql += '\'';
}

/// `INSERT` of one record's texts.
void InsertOriginals(IConnection& connection, const std::string_view* fields, std::size_t columns,
                     std::int32_t row_key, std::string& sql) {
  char key[kIntegerText];
  sql = "INSERT INTO OriginalData VALUES (";
  for (std::size_t column = 0; column < columns; ++column) {
    AppendQuoted(sql, fields[column]);
    sql += ", ";
  }
  sql.append(key, std::to_chars(key, key + sizeof key, row_key).ptr);
  sql += ");";
  connection.Execute(sql);
}

bool AreConsecutive(const std::vector<std::int32_t>& keys) {
  return keys.back() - keys.front() == static_cast<std::int32_t>(keys.size()) - 1;
}

}  // namespace

void CreateOriginals(IConnection& connection, std::int32_t columns) {
  if (connection.TableExists("OriginalData")) connection.Execute("DROP TABLE OriginalData");
  std::string sql = "CREATE TABLE OriginalData (";
  for (std::int32_t column = 0; column < columns; ++column) {
    sql += fmt::format("d{} TEXT, ", column);
  }
  connection.Execute(sql + "row INTEGER PRIMARY KEY)");
}

void MoveKeys(IConnection& connection, std::string_view table, std::int32_t distance) {
  if (distance == 0) return;
  // By way of negative keys, because a key may be taken until all have moved.
  connection.Execute(fmt::format("UPDATE {} SET row = -(row + ({}))", table, distance));
  connection.Execute(fmt::format("UPDATE {} SET row = -row", table));
}

void FitOriginals(const RunSession& session, std::int32_t columns) {
  IConnection& connection = session.Connection();
  const std::int32_t present = session.ColumnsOf("OriginalData");
  if (present == columns) return;
  connection.Execute("ALTER TABLE OriginalData RENAME TO FormerOriginals");
  CreateOriginals(connection, columns);
  std::string names;
  for (std::int32_t i = 0; i < std::min(present, columns); ++i) names += fmt::format("d{}, ", i);
  connection.Execute(
      fmt::format("INSERT INTO OriginalData ({0}row) SELECT {0}row FROM FormerOriginals", names));
  connection.Execute("DROP TABLE FormerOriginals");
}

std::vector<std::int32_t> ReadRowKeys(IConnection& connection, std::string_view table) {
  std::vector<std::int32_t> keys;
  const Ref<IDataReader> reader =
      connection.ExecuteReader(fmt::format("SELECT row FROM {} ORDER BY row", table));
  while (reader->Read()) keys.push_back(reader->GetInteger(0));
  reader->Close();
  return keys;
}

void SetRowKeys(IConnection& connection, std::string_view table,
                const std::vector<std::int32_t>& keys) {
  if (keys.empty()) return;
  if (AreConsecutive(keys)) return MoveKeys(connection, table, keys.front() - 1);
  connection.Execute("CREATE TABLE RowKeys (position INTEGER PRIMARY KEY, key INTEGER)");
  for (std::size_t i = 0; i < keys.size(); ++i) {
    connection.Execute(fmt::format("INSERT INTO RowKeys VALUES ({}, {});", i + 1, keys[i]));
  }
  connection.Execute(fmt::format(
      "UPDATE {0} SET row = -(SELECT key FROM RowKeys WHERE position = {0}.row)", table));
  connection.Execute(fmt::format("UPDATE {} SET row = -row", table));
  connection.Execute("DROP TABLE RowKeys");
}

std::int32_t ArrangeRowKeys(const RunSession& session, std::int32_t type, std::int32_t records,
                            std::int32_t columns) {
  IConnection& connection = session.Connection();
  if (type == data_set_type::kTesting) {
    const bool trained = connection.TableExists("TrainingSet");
    const std::int32_t before =
        trained ? session.ReadInteger("SELECT MAX(row) FROM TrainingSet") : 0;
    MoveKeys(connection, "TestingSet", before);
    KeepOriginalsOf(session, "TrainingSet", columns);
    return before + 1;
  }
  KeepOriginalsOf(session, "TestingSet", columns);
  if (connection.TableExists("TestingSet")) {
    const std::int32_t first = session.ReadInteger("SELECT MIN(row) FROM TestingSet");
    const std::int32_t distance = records + 1 - first;
    MoveKeys(connection, "OriginalData", distance);
    MoveKeys(connection, "TestingSet", distance);
  }
  return 1;
}

void WriteOriginals(IConnection& connection, const DelimitedText& text, const CellSurvey& survey,
                    std::int32_t first_key, Progress& progress) {
  progress.Begin("Keeping the originals", survey.records);
  RecordReader reader(text);
  std::vector<std::string_view> fields;
  std::string sql;
  for (std::int32_t record = 0; reader.Next(); ++record) {
    StopIfInterrupted();
    SplitLine(reader.Raw(), *text.separator, fields);
    if (fields.size() != survey.columns) SplitAtBlanks(reader.Clean(), fields);
    InsertOriginals(connection, fields.data(), fields.size(), first_key + record, sql);
    progress.At(record);
  }
}

void WriteOriginals(IConnection& connection, const FieldTable& table,
                    const std::vector<std::size_t>& records, const std::vector<std::int32_t>& keys,
                    Progress& progress) {
  progress.Begin("Keeping the originals", static_cast<std::int64_t>(records.size()));
  std::string sql;
  for (std::size_t i = 0; i < records.size(); ++i) {
    StopIfInterrupted();
    InsertOriginals(connection, table.fields.data() + records[i] * table.columns, table.columns,
                    keys[i], sql);
    progress.At(static_cast<std::int64_t>(i));
  }
}

}  // namespace tslm5::host
