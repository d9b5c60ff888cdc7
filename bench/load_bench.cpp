// Loading a delimited file into a run, beside its floor: the same file read whole, every field
// converted by from_chars, and bound to one prepared INSERT in one transaction.
//   load_bench --benchmark_filter=1000000   the figures of the README; "Memory" measures alone
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <charconv>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench_file.h"
#include "tslm5/component/create_object.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/event_handlers.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/contracts/run_schema.h"
#include "tslm5/engine/open_run.h"
#include "tslm5/platform/connection_point.h"

namespace tslm5::bench {
namespace {

void Check(bool done, const char* what) {
  if (!done) throw std::runtime_error(what);
}

std::string ReadBytes(const std::string& path) {
  std::string bytes(std::filesystem::file_size(path), '\0');
  std::FILE* file = std::fopen(path.c_str(), "rb");
  Check(file != nullptr && std::fread(bytes.data(), 1, bytes.size(), file) == bytes.size(), "read");
  std::fclose(file);
  return bytes;
}

void LoadBare(const std::string& path, const std::string& database_path, std::int64_t columns) {
  const std::string bytes = ReadBytes(path);
  sqlite3* database = nullptr;
  Check(sqlite3_open(database_path.c_str(), &database) == SQLITE_OK, "open");
  std::string create = "CREATE TABLE TrainingSet (";
  std::string insert = "INSERT INTO TrainingSet VALUES (";
  for (std::int64_t i = 0; i < columns; ++i) {
    create += "d" + std::to_string(i) + " FLOAT, ";
    insert += "?,";
  }
  create += "row INTEGER PRIMARY KEY);";
  insert += "?)";
  Check(sqlite3_exec(database, "BEGIN", nullptr, nullptr, nullptr) == SQLITE_OK, "begin");
  Check(sqlite3_exec(database, create.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK, "create");
  sqlite3_stmt* statement = nullptr;
  Check(sqlite3_prepare_v2(database, insert.c_str(), -1, &statement, nullptr) == SQLITE_OK, "prep");

  const char* p = bytes.data();
  const char* const end = p + bytes.size();
  for (std::int64_t row = 1; p != end; ++row) {
    for (int column = 1; column <= columns; ++column) {
      double value = 0.0;
      p = std::from_chars(p, end, value).ptr + 1;  // past the "," or the line feed
      sqlite3_bind_double(statement, column, value);
    }
    sqlite3_bind_int64(statement, static_cast<int>(columns) + 1, row);
    Check(sqlite3_step(statement) == SQLITE_DONE, "insert");
    sqlite3_reset(statement);
  }
  sqlite3_finalize(statement);
  Check(sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK, "commit");
  sqlite3_close(database);
}

/// A new run and a set attached to it.
struct LoadedSet {
  explicit LoadedSet(const std::string& run_path) {
    RunOptions options;
    options.mode = RunOptions::Mode::kReadWriteCreate;
    run = OpenRun(run_path, options);
    CreateObject<IRunSchema>(class_id::kRunSchema)->CreateSchema(run.get());
    set = CreateObject<IDataSet>(class_id::kDataSetLite);
    VariantArray parameters(std::vector<Variant>{Variant(run), data_set_type::kTraining});
    Query<IConstructor>(set)->Init(parameters);
  }
  void Parse(const std::string& path) {
    set->Parse(path, separator_code::kComma, false, data_set_type::kTraining,
               layout_code::kRecordsInRows);
  }

  Ref<IConnectionService> run;
  Ref<IDataSet> set;
};

void CountRates(benchmark::State& state) {
  const double rows = static_cast<double>(state.range(0));
  const double cells = rows * static_cast<double>(state.range(1));
  state.counters["per_row"] = benchmark::Counter(
      rows, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
  state.counters["per_cell"] = benchmark::Counter(
      cells, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void Floor(benchmark::State& state) {
  const std::string& file = NumberFile(state.range(0), state.range(1));
  for (auto _ : state) {
    state.PauseTiming();
    const ScratchFolder folder;
    state.ResumeTiming();
    LoadBare(file, folder.File("floor.db"), state.range(1));
    state.PauseTiming();  // the folder's removal
    state.ResumeTiming();
  }
  CountRates(state);
}

void Parse(benchmark::State& state, bool listen) {
  const std::string& file = NumberFile(state.range(0), state.range(1));
  std::int64_t heard = 0;
  for (auto _ : state) {
    state.PauseTiming();
    const ScratchFolder folder;
    state.ResumeTiming();
    {
      LoadedSet loaded(folder.File("run.db"));
      if (listen) {
        const Ref<EventHandlers> handlers = MakeObject<EventHandlers>();
        handlers->on_record_parsed = [&heard](IRecordParsedEventArgs& arguments) {
          heard += arguments.Columns();
        };
        Query<IConnectionPoint>(loaded.set)->Advise(handlers.get());
      }
      loaded.Parse(file);
      Check(loaded.set->Rows() == state.range(0), "rows");
    }
    state.PauseTiming();
    state.ResumeTiming();
  }
  benchmark::DoNotOptimize(heard);
  CountRates(state);
}

void ParseAlone(benchmark::State& state) {
  Parse(state, false);
}
void ParseWithListener(benchmark::State& state) {
  Parse(state, true);
}

void Shapes(benchmark::internal::Benchmark* bench) {
  bench->ArgNames({"rows", "columns"})->Unit(benchmark::kMillisecond)->UseRealTime();
  bench->Args({10'000, 10})->Args({100'000, 10})->Args({1'000'000, 10})->Args({10'000'000, 10});
  bench->Args({500'000, 2})->Args({10'000, 100})->Args({1'000, 1'000})->Args({1'000, 1'900});
}

BENCHMARK(Floor)->Apply(Shapes);
BENCHMARK(ParseAlone)->Apply(Shapes);
BENCHMARK(ParseWithListener)->Apply(Shapes);

}  // namespace
}  // namespace tslm5::bench
