#ifndef TSLM5_TESTS_STATISTICS_STATISTICS_RUN_H_
#define TSLM5_TESTS_STATISTICS_STATISTICS_RUN_H_

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/recording_run.h"
#include "storage/run_tables.h"
#include "tslm5/contracts/feedback.h"
#include "tslm5/engine/open_run.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// A run in memory with a table of given records, and the statements sent to it.
class StatisticsRun {
 public:
  StatisticsRun() {
    RunOptions options;
    options.in_memory = true;
    run_ = MakeObject<RecordingRun>(OpenRun("", options));
    CreateRunTables(Connection());
    Log().Clear();
  }

  IConnection& Connection() {
    connection_ = Query<IConnection>(run_->GetConnection().ToObject());
    return *connection_;
  }
  StatementLog& Log() { return run_->Log(); }

  /// Makes `table` with `columns` data columns and the records given as SQL value lists, keys 1, 2…
  void MakeTable(std::string_view table, int columns, const std::vector<std::string>& records) {
    std::string create = "CREATE TABLE " + std::string(table) + " (";
    for (int i = 0; i < columns; ++i) create += "d" + std::to_string(i) + " FLOAT, ";
    Connection().Execute(create + "row INTEGER PRIMARY KEY);");
    int key = 0;
    for (const std::string& record : records) {
      Connection().Execute("INSERT INTO " + std::string(table) + " VALUES (" + record + ", " +
                           std::to_string(++key) + ");");
    }
    Log().Clear();
  }

  /// The records of a query, each with its fields joined by "|", NULL as "NULL".
  std::vector<std::string> Read(std::string_view sql) {
    std::vector<std::string> records;
    const Ref<IDataReader> reader = Connection().ExecuteReader(sql);
    while (reader->Read()) {
      std::string record;
      for (std::int32_t i = 0; i < reader->FieldCount(); ++i) {
        if (i > 0) record += '|';
        record += reader->IsNull(i) ? "NULL" : reader->GetString(i);
      }
      records.push_back(record);
    }
    return records;
  }

  std::vector<std::string> ColumnRows() {
    return Read(
        "SELECT DataSetId, ColumnIndex, Centroid, Medoid, Minimum, Maximum,"
        " StandardDeviation FROM DataSetStatistics ORDER BY Id");
  }
  std::vector<std::string> ClassRows() {
    return Read(
        "SELECT DataSetId, ColumnId, Class, Centroid, Medoid, Minimum, Maximum, RecordCount"
        " FROM DataSetClassStatistics ORDER BY Id");
  }

 private:
  Ref<RecordingRun> run_;
  Ref<IConnection> connection_;
};

/// A feedback object that notes its calls and stops when it is told to.
class NotingFeedback final : public CountedObject<IFeedback> {
 public:
  std::string_view TypeName() override { return "NotingFeedback"; }

  bool ReportProgress(std::int32_t pPosition, std::string_view pText) override {
    calls.push_back(std::to_string(pPosition) + " " + std::string(pText));
    ++reports;
    return stop_at_report == 0 || reports < stop_at_report;
  }
  bool ContinueFlag() override {
    ++questions;
    return stop_at_question == 0 || questions < stop_at_question;
  }
  void Finish() override { calls.emplace_back("finish"); }
  void Start() override { calls.emplace_back("start"); }
  void SetMaximum(std::int32_t pMaximum) override {
    calls.push_back("maximum " + std::to_string(pMaximum));
  }

  std::vector<std::string> calls;
  int reports = 0;
  int questions = 0;
  int stop_at_report = 0;  // 1 for the first; 0 never
  int stop_at_question = 0;

 private:
  ~NotingFeedback() override = default;
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_STATISTICS_STATISTICS_RUN_H_
