// Copying an in-memory set into a run, beside its floor: the same doubles bound to one prepared
// INSERT in one transaction.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "bench_file.h"
#include "tslm5/component/create_object.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/engine/open_run.h"

namespace tslm5::bench {
namespace {

constexpr std::int64_t kRows = 1'000'000;
constexpr int kColumns = 10;

IDataSet& Source() {
  static const Ref<IDataSet> source = [] {
    Ref<IDataSet> set = CreateObject<IDataSet>(class_id::kInMemorySet);
    set->Parse(NumberFile(kRows, kColumns), separator_code::kComma, false, data_set_type::kTraining,
               layout_code::kRecordsInRows);
    return set;
  }();
  return *source;
}

void Require(int code) {
  if (code != SQLITE_OK && code != SQLITE_DONE) throw std::runtime_error(sqlite3_errstr(code));
}

void Run(sqlite3* database, const char* sql) {
  Require(sqlite3_exec(database, sql, nullptr, nullptr, nullptr));
}

void BindFloor(benchmark::State& state) {
  std::vector<double> values;
  for (std::int32_t row = 0; row < kRows; ++row) {
    for (std::int32_t column = 0; column < kColumns; ++column) {
      values.push_back(Source().GetItem(column, row));
    }
  }
  for (auto _ : state) {
    const ScratchFolder folder;
    sqlite3* database = nullptr;
    Require(sqlite3_open(folder.File("floor.db").c_str(), &database));
    Run(database, "BEGIN");
    Run(database,
        "CREATE TABLE TrainingSet (d0 FLOAT, d1 FLOAT, d2 FLOAT, d3 FLOAT, d4 FLOAT, d5 FLOAT, d6 "
        "FLOAT, d7 FLOAT, d8 FLOAT, d9 FLOAT, row INTEGER PRIMARY KEY);");
    sqlite3_stmt* statement = nullptr;
    Require(sqlite3_prepare_v2(database, "INSERT INTO TrainingSet VALUES (?,?,?,?,?,?,?,?,?,?,?)",
                               -1, &statement, nullptr));
    const double* value = values.data();
    for (std::int64_t row = 1; row <= kRows; ++row) {
      for (int column = 1; column <= kColumns; ++column) {
        sqlite3_bind_double(statement, column, *value++);
      }
      sqlite3_bind_int64(statement, kColumns + 1, row);
      Require(sqlite3_step(statement));
      sqlite3_reset(statement);
    }
    sqlite3_finalize(statement);
    Run(database, "COMMIT");
    sqlite3_close(database);
  }
}

void SetData(benchmark::State& state) {
  IDataSet& source = Source();
  for (auto _ : state) {
    const ScratchFolder folder;
    RunOptions options;
    options.mode = RunOptions::Mode::kReadWriteCreate;
    const Ref<IConnectionService> run = OpenRun(folder.File("run.db"), options);
    const Ref<IDataSet> set = CreateObject<IDataSet>(class_id::kDataSetLite);
    Query<IConstructor>(set)->Init(
        VariantArray(std::vector<Variant>{Variant(run), data_set_type::kTraining}));
    if (!set->SetData(&source, data_set_type::kTraining)) throw std::runtime_error("refused");
  }
}

BENCHMARK(BindFloor)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(SetData)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace tslm5::bench
