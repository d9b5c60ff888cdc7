// Embedding a series in its run, beside its floor: the same rows bound to one prepared INSERT in
// one transaction. In memory the floor is a loop that writes the same cells to a plain array.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "bench_file.h"
#include "tslm5/component/create_object.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/in_memory_set.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/engine/open_run.h"

namespace tslm5::bench {
namespace {

constexpr std::int32_t kValues = 1'000'000;
constexpr int kDimension = 10;
constexpr int kColumns = kDimension + 1;

void Require(int code) {
  if (code != SQLITE_OK && code != SQLITE_DONE) throw std::runtime_error(sqlite3_errstr(code));
}

void Run(sqlite3* database, const char* sql) {
  Require(sqlite3_exec(database, sql, nullptr, nullptr, nullptr));
}

Ref<IInMemorySet> MakeSource() {
  const Ref<IDataSet> set = CreateObject<IDataSet>(class_id::kInMemorySet);
  set->Parse(NumberFile(kValues, 1), separator_code::kNone, false, data_set_type::kTraining,
             layout_code::kRecordsInRows);
  set->SetProperty(std::to_string(kDimension), "EmbeddingDimension");
  set->SetProperty("1", "DelayTime");
  return Query<IInMemorySet>(set);
}

IInMemorySet& Source() {
  static const Ref<IInMemorySet> source = MakeSource();
  return *source;
}

std::vector<double> Values() {
  const Ref<IDataSet> source = Query<IDataSet>(&Source());
  std::vector<double> values;
  for (std::int32_t row = 0; row < kValues; ++row) values.push_back(source->GetItem(0, row));
  return values;
}

/// A run that holds the series in its training table, as both sides find it.
void WriteSeries(const std::string& path) {
  RunOptions options;
  options.mode = RunOptions::Mode::kReadWriteCreate;
  const Ref<IConnectionService> run = OpenRun(path, options);
  const Ref<IDataSet> set = CreateObject<IDataSet>(class_id::kDataSetLite);
  Query<IConstructor>(set)->Init(
      VariantArray(std::vector<Variant>{Variant(run), data_set_type::kTraining}));
  if (!set->SetData(&Source(), data_set_type::kTraining)) throw std::runtime_error("refused");
}

void BindFloor(benchmark::State& state) {
  const std::vector<double> values = Values();
  for (auto _ : state) {
    state.PauseTiming();
    const ScratchFolder folder;
    WriteSeries(folder.File("floor.db"));
    sqlite3* database = nullptr;
    Require(sqlite3_open(folder.File("floor.db").c_str(), &database));
    Run(database, "PRAGMA cache_size = -49152");  // as the engine has it
    state.ResumeTiming();
    Run(database, "BEGIN");
    Run(database, "DROP TABLE TrainingSet");
    Run(database,
        "CREATE TABLE TrainingSet (d0 FLOAT, d1 FLOAT, d2 FLOAT, d3 FLOAT, d4 FLOAT, d5 FLOAT, d6 "
        "FLOAT, d7 FLOAT, d8 FLOAT, d9 FLOAT, d10 FLOAT, row INTEGER PRIMARY KEY);");
    sqlite3_stmt* statement = nullptr;
    Require(sqlite3_prepare_v2(database, "INSERT INTO TrainingSet VALUES (?,?,?,?,?,?,?,?,?,?,?,?)",
                               -1, &statement, nullptr));
    for (std::size_t row = 0; row + kDimension < values.size(); ++row) {
      for (int column = 0; column < kColumns; ++column) {
        sqlite3_bind_double(statement, column + 1, values[row + static_cast<std::size_t>(column)]);
      }
      sqlite3_bind_int64(statement, kColumns + 1, static_cast<std::int64_t>(row) + 1);
      Require(sqlite3_step(statement));
      sqlite3_reset(statement);
    }
    sqlite3_finalize(statement);
    Run(database, "COMMIT");
    state.PauseTiming();
    sqlite3_close(database);
    state.ResumeTiming();
  }
}

void Embed(benchmark::State& state) {
  Source();
  for (auto _ : state) {
    state.PauseTiming();
    const ScratchFolder folder;
    WriteSeries(folder.File("run.db"));
    const Ref<IConnectionService> run = OpenRun(folder.File("run.db"), RunOptions());
    const Ref<IDataSet> set = CreateObject<IDataSet>(class_id::kDataSetLite);
    Query<IPersistable>(set)->Load(Variant(run), data_set_type::kTraining);
    set->SetProperty(std::to_string(kDimension), "EmbeddingDimension");
    set->SetProperty("1", "DelayTime");
    state.ResumeTiming();
    if (!set->FormatDataAs(0)) throw std::runtime_error("refused");
  }
}

void PlainLoopInMemory(benchmark::State& state) {
  const std::vector<double> values = Values();
  for (auto _ : state) {
    std::vector<double> cells;
    cells.reserve(values.size() * kColumns);
    for (std::size_t row = 0; row + kDimension < values.size(); ++row) {
      for (std::size_t column = 0; column < kColumns; ++column) {
        cells.push_back(values[row + column]);
      }
    }
    benchmark::DoNotOptimize(cells.data());
  }
}

void EmbedInMemory(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    const Ref<IDataSet> set = Source().Clone();
    state.ResumeTiming();
    if (!set->FormatDataAs(0)) throw std::runtime_error("refused");
  }
}

BENCHMARK(BindFloor)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(Embed)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(PlainLoopInMemory)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(EmbedInMemory)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace tslm5::bench
