#ifndef TSLM5_TESTS_STORAGE_TEST_RUN_H_
#define TSLM5_TESTS_STORAGE_TEST_RUN_H_

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/recording_run.h"
#include "storage/table_lite.h"
#include "tslm5/engine/open_run.h"

namespace tslm5 {

using Lines = std::vector<std::string>;

/// A run in memory behind a recording connection, and what tests ask of it. The questions
/// themselves go past the recording.
class TestRun {
 public:
  TestRun() : TestRun(OpenRun("", {.in_memory = true})) {}
  explicit TestRun(Ref<IConnectionService> real)
      : real_(std::move(real)), recording_(MakeObject<RecordingRun>(real_)) {}

  /// The run object that tables are given.
  const Ref<RecordingRun>& Service() const { return recording_; }
  /// The run object of the engine, past the recording.
  const Ref<IConnectionService>& Real() const { return real_; }
  StatementLog& Log() const { return recording_->Log(); }
  Ref<IConnection> Connection() const {
    return Query<IConnection>(real_->GetConnection().ToObject());
  }

  /// A table object of this run that was neither created nor loaded.
  Ref<TableLite> Table() const {
    Ref<TableLite> table = MakeObject<TableLite>();
    table->Init2(recording_.get());
    return table;
  }

  /// The same, its table and backup made anew; the log starts after that.
  Ref<TableLite> Table(std::int32_t columns, std::int32_t type = 1) const {
    Ref<TableLite> table = Table();
    table->Create(columns, type, true);
    Log().Clear();
    return table;
  }

  /// The same with a row a line, and its record set open.
  Ref<TableLite> Filled(std::int32_t columns, const Lines& lines, std::int32_t type = 1) const {
    Ref<TableLite> table = Table(columns, type);
    table->ParseArray(lines);
    table->LoadRecordSet();
    Log().Clear();
    return table;
  }

  void Execute(std::string_view sql) const { Connection()->Execute(sql); }

  /// The records of a SELECT, each with its fields joined by "|"; NULL reads "NULL".
  Lines Select(std::string_view sql) const {
    Lines lines;
    const Ref<IConnection> connection = Connection();
    const Ref<IDataReader> reader = connection->ExecuteReader(sql);
    while (reader->Read()) {
      std::string& line = lines.emplace_back();
      for (std::int32_t field = 0; field < reader->FieldCount(); ++field) {
        if (field > 0) line += '|';
        line += reader->IsNull(field) ? "NULL" : reader->GetString(field);
      }
    }
    return lines;
  }

  Lines TableRows(std::string_view table) const {
    return Select("SELECT * FROM " + std::string(table));
  }

  /// The names of a table's columns, in order, joined by ",".
  std::string ColumnNames(std::string_view table) const {
    std::string names;
    for (const std::string& name :
         Select("SELECT name FROM pragma_table_info('" + std::string(table) + "')")) {
      if (!names.empty()) names += ',';
      names += name;
    }
    return names;
  }

  /// Every table and view, with the text that made it.
  Lines Schema() const { return Select("SELECT name, sql FROM sqlite_master ORDER BY name"); }

  /// Whether a transaction was left open.
  bool InTransaction() const {
    const Ref<IConnection> connection = Connection();
    try {
      connection->RollbackTrans();
      return true;
    } catch (const Error&) {
      return false;
    }
  }

 private:
  Ref<IConnectionService> real_;
  Ref<RecordingRun> recording_;
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_STORAGE_TEST_RUN_H_
