// Opening the original data of a run, beside its floor: the same rows read as text through a
// prepared SELECT.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstring>
#include <fstream>
#include <stdexcept>
#include <string>

#include "bench_file.h"
#include "tslm5/component/create_object.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/deployment_data_set.h"
#include "tslm5/contracts/run_schema.h"
#include "tslm5/engine/open_run.h"

namespace tslm5::bench {
namespace {

constexpr std::int64_t kRows = 1'000'000;
constexpr int kColumns = 10;

constexpr const char* kAllRecords = "SELECT * FROM OriginalData";
constexpr const char* kTrainingRecords =
    "SELECT od.* FROM OriginalData od INNER JOIN TrainingSet ts ON od.row = ts.row ORDER BY "
    "ts.rowid";

void Require(int code) {
  if (code != SQLITE_OK && code != SQLITE_DONE) throw std::runtime_error(sqlite3_errstr(code));
}

class Database {
 public:
  explicit Database(const std::string& path) { Require(sqlite3_open(path.c_str(), &handle_)); }
  ~Database() { sqlite3_close(handle_); }
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  void Run(const std::string& sql) const {
    Require(sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr));
  }
  sqlite3_stmt* Prepare(const std::string& sql) const {
    sqlite3_stmt* statement = nullptr;
    Require(sqlite3_prepare_v2(handle_, sql.c_str(), -1, &statement, nullptr));
    return statement;
  }

 private:
  sqlite3* handle_ = nullptr;
};

/// Makes one of the two tables, which hold the same fields, as texts or as numbers.
void FillTable(const Database& database, const std::string& name, const std::string& type) {
  std::string columns;
  std::string marks;
  for (int column = 0; column < kColumns; ++column) {
    columns += "d" + std::to_string(column) + " " + type + ", ";
    marks += "?, ";
  }
  database.Run("CREATE TABLE " + name + " (" + columns + "row INTEGER PRIMARY KEY)");
  sqlite3_stmt* insert = database.Prepare("INSERT INTO " + name + " VALUES (" + marks + "?)");
  std::ifstream file(NumberFile(kRows, kColumns));
  std::int64_t row = 0;
  for (std::string line; std::getline(file, line);) {
    const char* field = line.c_str();
    for (int column = 1; column <= kColumns; ++column) {
      const std::size_t size = std::strcspn(field, ",");
      sqlite3_bind_text(insert, column, field, static_cast<int>(size), SQLITE_STATIC);
      field += size + 1;
    }
    sqlite3_bind_int64(insert, kColumns + 1, ++row);
    Require(sqlite3_step(insert));
    sqlite3_reset(insert);
  }
  sqlite3_finalize(insert);
}

/// The path of a run with a million original records, all of them for training.
const std::string& RunFile() {
  static const ScratchFolder folder;
  static const std::string path = [] {
    std::string made = folder.File("run.db");
    RunOptions options;
    options.mode = RunOptions::Mode::kReadWriteCreate;
    CreateObject<IRunSchema>(class_id::kRunSchema)->CreateSchema(OpenRun(made, options).get());
    const Database database(made);
    database.Run("BEGIN");
    database.Run("DROP TABLE OriginalData");
    FillTable(database, "OriginalData", "TEXT");
    FillTable(database, "TrainingSet", "FLOAT");
    database.Run("COMMIT");
    return made;
  }();
  return path;
}

void ReadTexts(benchmark::State& state, const char* sql) {
  const std::string& path = RunFile();
  std::size_t characters = 0;
  for (auto _ : state) {
    const Database database(path);
    sqlite3_stmt* statement = database.Prepare(sql);
    while (sqlite3_step(statement) == SQLITE_ROW) {
      for (int column = 0; column <= kColumns; ++column) {
        benchmark::DoNotOptimize(sqlite3_column_text(statement, column));
        characters += static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
      }
    }
    sqlite3_finalize(statement);
  }
  benchmark::DoNotOptimize(characters);
}

void Open(benchmark::State& state, std::int32_t set_type) {
  const std::string& path = RunFile();
  for (auto _ : state) {
    RunOptions options;
    options.mode = RunOptions::Mode::kReadOnly;
    const Ref<IConnectionService> run = OpenRun(path, options);
    const auto view = CreateObject<IDeploymentDataSet>(class_id::kOriginalDataSet);
    view->Open(Variant(run), set_type, false);
    if (view->Rows() != kRows || view->GetItem(kColumns - 1, kRows - 1).empty()) {
      throw std::runtime_error("records are missing");
    }
  }
}

BENCHMARK_CAPTURE(ReadTexts, AllRecords, kAllRecords)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(Open, AllRecords, data_set_type::kUnknown)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(ReadTexts, TrainingRecords, kTrainingRecords)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(Open, TrainingRecords, data_set_type::kTraining)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
}  // namespace tslm5::bench
