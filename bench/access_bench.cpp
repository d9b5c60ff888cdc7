// Reading single cells of a loaded table, beside its floor: the same loop over a plain array of
// doubles behind one virtual call.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>
#include <random>
#include <vector>

#include "bench_file.h"
#include "plain_cells.h"
#include "tslm5/component/create_object.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/engine/open_run.h"

namespace tslm5::bench {
namespace {

constexpr std::int32_t kRows = 1'000'000;
constexpr std::int32_t kColumns = 10;

struct Loaded {
  Loaded() {
    RunOptions options;
    options.mode = RunOptions::Mode::kReadWriteCreate;
    run = OpenRun(folder.File("run.db"), options);
    set = CreateObject<IDataSet>(class_id::kDataSetLite);
    Query<IConstructor>(set)->Init(
        VariantArray(std::vector<Variant>{Variant(run), data_set_type::kTraining}));
    set->Parse(NumberFile(kRows, kColumns), separator_code::kComma, false, data_set_type::kTraining,
               layout_code::kRecordsInRows);
    std::vector<double> values;
    values.reserve(static_cast<std::size_t>(kRows) * kColumns);
    for (std::int32_t row = 0; row < kRows; ++row) {
      for (std::int32_t column = 0; column < kColumns; ++column) {
        values.push_back(set->GetItem(column, row));
      }
    }
    plain = MakePlainCells(std::move(values), kColumns);
  }

  ScratchFolder folder;
  Ref<IConnectionService> run;
  Ref<IDataSet> set;
  std::unique_ptr<PlainCells> plain;
};

Loaded& TheData() {
  static Loaded loaded;
  return loaded;
}

template <class Source>
void Sequential(benchmark::State& state, Source& source) {
  for (auto _ : state) {
    double sum = 0.0;
    for (std::int32_t row = 0; row < kRows; ++row) {
      for (std::int32_t column = 0; column < kColumns; ++column) {
        sum += source.GetItem(column, row);
      }
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * kRows * kColumns);
}

template <class Source>
void Random(benchmark::State& state, Source& source) {
  std::mt19937_64 random(1);
  std::vector<std::int32_t> rows(1 << 20);
  for (std::int32_t& row : rows) row = static_cast<std::int32_t>(random() % kRows);
  for (auto _ : state) {
    double sum = 0.0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
      sum += source.GetItem(static_cast<std::int32_t>(i % kColumns), rows[i]);
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(rows.size()));
}

void SequentialFloor(benchmark::State& state) {
  Sequential(state, *TheData().plain);
}
void SequentialGetItem(benchmark::State& state) {
  Sequential(state, *TheData().set);
}
void RandomFloor(benchmark::State& state) {
  Random(state, *TheData().plain);
}
void RandomGetItem(benchmark::State& state) {
  Random(state, *TheData().set);
}

/// A table just opened: every block is fetched from the database on the way.
void FirstPass(benchmark::State& state) {
  Loaded& data = TheData();
  for (auto _ : state) {
    state.PauseTiming();
    const Ref<IDataSet> set = CreateObject<IDataSet>(class_id::kDataSetLite);
    Query<IPersistable>(set)->Load(Variant(data.run), data_set_type::kTraining);
    state.ResumeTiming();
    double sum = 0.0;
    for (std::int32_t row = 0; row < kRows; ++row) {
      for (std::int32_t column = 0; column < kColumns; ++column) sum += set->GetItem(column, row);
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * kRows * kColumns);
}

BENCHMARK(SequentialFloor)->Unit(benchmark::kMillisecond);
BENCHMARK(SequentialGetItem)->Unit(benchmark::kMillisecond);
BENCHMARK(RandomFloor)->Unit(benchmark::kMillisecond);
BENCHMARK(RandomGetItem)->Unit(benchmark::kMillisecond);
BENCHMARK(FirstPass)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tslm5::bench
