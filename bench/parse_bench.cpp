// Parsing a delimited file into an in-memory set, beside its floor: the same file read whole and
// every field converted by from_chars into a std::vector of doubles. The two take turns, so that a
// machine's moods hit both; "ratio" is the median over the turns of the parse's processor time by
// the floor's.
//   parse_bench --benchmark_filter=Ratio   the figures of the README
//   parse_bench --benchmark_filter=Words   a file with three columns of words, and the plain parse
//                                          of one with numbers alone as its floor
//   parse_bench --benchmark_filter=Memory  peak memory of a parse; run it alone
#include <benchmark/benchmark.h>
#include <sys/resource.h>

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
#include "tslm5/contracts/nominal_data_set.h"
#include "turns.h"

namespace tslm5::bench {
namespace {

std::vector<double> ParseBare(const std::string& path, std::size_t cells) {
  std::string bytes(std::filesystem::file_size(path), '\0');
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (file == nullptr || std::fread(bytes.data(), 1, bytes.size(), file) != bytes.size()) {
    throw std::runtime_error("read");
  }
  std::fclose(file);
  std::vector<double> values;
  values.reserve(cells);
  const char* const end = bytes.data() + bytes.size();
  for (const char* p = bytes.data(); p != end;) {
    double value = 0.0;
    p = std::from_chars(p, end, value).ptr + 1;  // past the "," or the line feed
    values.push_back(value);
  }
  return values;
}

Ref<IDataSet> ParseSet(const std::string& path) {
  Ref<IDataSet> set = CreateObject<IDataSet>(class_id::kInMemorySet);
  set->Parse(path, separator_code::kComma, false, data_set_type::kTraining,
             layout_code::kRecordsInRows);
  return set;
}

Ref<INominalDataSet> ParseWords(const std::string& path) {
  Ref<INominalDataSet> set = CreateObject<INominalDataSet>(class_id::kInMemorySet);
  set->Parse(path, separator_code::kComma, false, data_set_type::kTraining,
             layout_code::kRecordsInRows, problem_category::kClassification, nullptr);
  return set;
}

std::size_t Cells(const benchmark::State& state) {
  return static_cast<std::size_t>(state.range(0) * state.range(1));
}

void RequireEqual(IDataSet& set, const std::vector<double>& values) {
  const auto columns = static_cast<std::size_t>(set.Columns());
  for (std::size_t i = 0; i < values.size(); ++i) {
    const double cell =
        set.GetItem(static_cast<std::int32_t>(i % columns), static_cast<std::int32_t>(i / columns));
    if (cell != values[i]) throw std::runtime_error("cell " + std::to_string(i));
  }
}

void Floor(benchmark::State& state) {
  const std::string& path = NumberFile(state.range(0), state.range(1));
  for (auto _ : state) benchmark::DoNotOptimize(ParseBare(path, Cells(state)));
}

void Parse(benchmark::State& state) {
  const std::string& path = NumberFile(state.range(0), state.range(1));
  for (auto _ : state) benchmark::DoNotOptimize(ParseSet(path));
}

void Ratio(benchmark::State& state) {
  const std::string& path = NumberFile(state.range(0), state.range(1));
  RequireEqual(*ParseSet(path), ParseBare(path, Cells(state)));
  TakeTurns(
      state, [&] { return ParseBare(path, Cells(state)); }, [&] { return ParseSet(path); });
}

/// The nominal parse of words beside the plain parse of numbers, of the same shape: 2 is the limit.
void Words(benchmark::State& state) {
  const std::string& numbers = NumberFile(state.range(0), state.range(1));
  const std::string& words = WordFile(state.range(0), state.range(1));
  TakeTurns(
      state, [&] { return ParseSet(numbers); }, [&] { return ParseWords(words); });
}

/// What the process needed at most, less the file and the array: "over_mb" may be 64.
void Memory(benchmark::State& state) {
  const std::string& path = NumberFile(state.range(0), state.range(1));
  for (auto _ : state) benchmark::DoNotOptimize(ParseSet(path));
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const double mebibyte = 1048576.0;
  const double peak = static_cast<double>(usage.ru_maxrss) * 1024.0 / mebibyte;
  const double file = static_cast<double>(std::filesystem::file_size(path)) / mebibyte;
  const double array = static_cast<double>(state.range(0) * state.range(1)) * 8.0 / mebibyte;
  state.counters["file_mb"] = file;
  state.counters["array_mb"] = array;
  state.counters["over_mb"] = peak - file - array;
}

BENCHMARK(Floor)->Args({1'000'000, 10})->Unit(benchmark::kMillisecond);
BENCHMARK(Parse)->Args({1'000'000, 10})->Unit(benchmark::kMillisecond);
BENCHMARK(Ratio)->Args({1'000'000, 10})->Args({100'000, 100})->Args({5'000'000, 2})->Iterations(11);
BENCHMARK(Words)->Args({1'000'000, 10})->Iterations(11);
BENCHMARK(Memory)->Args({1'000'000, 10})->Iterations(1);

}  // namespace
}  // namespace tslm5::bench
