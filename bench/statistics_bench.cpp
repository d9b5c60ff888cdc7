// Statistics of a run's columns, beside two floors: a scan of the table that decodes every column
// with sqlite3_column_double, and moments and median over columns already in memory.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "bench_file.h"
#include "tslm5/component/create_object.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/contracts/run_schema.h"
#include "tslm5/engine/connection.h"
#include "tslm5/engine/open_run.h"

namespace tslm5::bench {
namespace {

/// A run with a loaded training set.
struct Loaded {
  Loaded(std::int64_t rows, std::int64_t columns) {
    RunOptions options;
    options.mode = RunOptions::Mode::kReadWriteCreate;
    run = OpenRun(folder.File("run.db"), options);
    CreateObject<IRunSchema>(class_id::kRunSchema)->CreateSchema(run.get());
    set = CreateObject<IDataSet>(class_id::kDataSetLite);
    Query<IConstructor>(set)->Init(
        VariantArray(std::vector<Variant>{Variant(run), data_set_type::kTraining}));
    set->Parse(NumberFile(rows, columns), separator_code::kComma, false, data_set_type::kTraining,
               layout_code::kRecordsInRows);
  }

  ScratchFolder folder;
  Ref<IConnectionService> run;
  Ref<IDataSet> set;
};

Loaded& TheData(const benchmark::State& state) {
  static std::map<std::pair<std::int64_t, std::int64_t>, std::unique_ptr<Loaded>> all;
  std::unique_ptr<Loaded>& loaded = all[{state.range(0), state.range(1)}];
  if (loaded == nullptr) loaded = std::make_unique<Loaded>(state.range(0), state.range(1));
  return *loaded;
}

void ScanFloor(benchmark::State& state) {
  Loaded& data = TheData(state);
  sqlite3* database = nullptr;
  if (sqlite3_open(data.folder.File("run.db").c_str(), &database) != SQLITE_OK) {
    throw std::runtime_error("open");
  }
  sqlite3_exec(database, "PRAGMA cache_size = -49152", nullptr, nullptr, nullptr);
  for (auto _ : state) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database, "SELECT * FROM TrainingSet", -1, &statement, nullptr);
    double sum = 0.0;
    while (sqlite3_step(statement) == SQLITE_ROW) {
      for (int i = 0; i < state.range(1); ++i) sum += sqlite3_column_double(statement, i);
    }
    sqlite3_finalize(statement);
    benchmark::DoNotOptimize(sum);
  }
  sqlite3_close(database);
}

void MemoryFloor(benchmark::State& state) {
  Loaded& data = TheData(state);
  std::vector<std::vector<double>> columns(static_cast<std::size_t>(state.range(1)));
  for (std::int32_t c = 0; c < state.range(1); ++c) {
    for (std::int32_t r = 0; r < state.range(0); ++r) {
      columns[static_cast<std::size_t>(c)].push_back(data.set->GetItem(c, r));
    }
  }
  for (auto _ : state) {
    double figures = 0.0;
    for (std::vector<double> values : columns) {
      double mean = 0.0;
      double squares = 0.0;
      double count = 0.0;
      for (const double value : values) {
        count += 1.0;
        const double delta = value - mean;
        mean += delta / count;
        squares += delta * (value - mean);
      }
      const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
      std::nth_element(values.begin(), middle, values.end());
      figures += mean + std::sqrt(squares / (count - 1)) + *middle +
                 *std::min_element(values.begin(), values.end()) +
                 *std::max_element(values.begin(), values.end());
    }
    benchmark::DoNotOptimize(figures);
  }
}

/// The column pass alone, as the statistics send it for these shapes: one query over all columns.
void ColumnPass(benchmark::State& state) {
  Loaded& data = TheData(state);
  const Ref<IConnection> connection = Query<IConnection>(data.run->GetConnection().ToObject());
  std::string query = "SELECT ";
  for (std::int64_t i = 0; i < state.range(1); ++i) {
    const std::string d = "d" + std::to_string(i);
    if (i > 0) query += ",";
    query +=
        " min(" + d + "), max(" + d + "), avg(" + d + "), median(" + d + "), stdev(" + d + ") ";
  }
  query += " FROM TrainingSet";
  for (auto _ : state) {
    const Ref<IDataReader> reader = connection->ExecuteReader(query);
    reader->Read();
    benchmark::DoNotOptimize(reader->GetDouble(0));
  }
}

/// Both passes; the response has as many classes as records, so no class figures are computed.
void CalculateStatistics(benchmark::State& state) {
  Loaded& data = TheData(state);
  for (auto _ : state) data.set->CalculateStatistics(nullptr);
}

void Shapes(benchmark::internal::Benchmark* bench) {
  bench->ArgNames({"rows", "columns"})->Unit(benchmark::kMillisecond)->UseRealTime();
  bench->Args({1'000'000, 10})->Args({100'000, 100});
}

BENCHMARK(ScanFloor)->Apply(Shapes);
BENCHMARK(MemoryFloor)->Apply(Shapes);
BENCHMARK(ColumnPass)->Apply(Shapes);
BENCHMARK(CalculateStatistics)->Apply(Shapes);

}  // namespace
}  // namespace tslm5::bench
