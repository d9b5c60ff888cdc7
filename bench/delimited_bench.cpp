// Reading a delimited file by blocks of fields, beside its floor: the same file read whole and
// every field converted by from_chars into a std::vector of doubles. The two take turns, so that a
// machine's moods hit both; "ratio" is the median over the turns of the reader's processor time by
// the floor's.
//   Read      fields with their classes and values
//   Profiled  the same with a text profile of every column
//   Words     a file with three columns of words, beside the floor of the file of numbers alone
//   Index     the places of separators and line ends alone, of a file in memory
#include <benchmark/benchmark.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench_file.h"
#include "delimited/delimited_reader.h"
#include "delimited/text_profile.h"

namespace tslm5::bench {
namespace {

std::string ReadWhole(const std::string& path) {
  std::string bytes(std::filesystem::file_size(path), '\0');
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (file == nullptr || std::fread(bytes.data(), 1, bytes.size(), file) != bytes.size()) {
    throw std::runtime_error("cannot read " + path);
  }
  std::fclose(file);
  return bytes;
}

double SumBare(const std::string& path, std::size_t cells) {
  const std::string bytes = ReadWhole(path);
  std::vector<double> values;
  values.reserve(cells);
  const char* const end = bytes.data() + bytes.size();
  for (const char* p = bytes.data(); p != end;) {
    double value = 0.0;
    p = std::from_chars(p, end, value).ptr + 1;  // past the "," or the line feed
    values.push_back(value);
  }
  double sum = 0.0;
  for (const double value : values) sum += value;
  return sum;
}

double SumRead(const std::string& path, bool with_profile) {
  delimited::DelimitedReader reader(delimited::OpenSource(path));
  delimited::FieldBlock block;
  delimited::TextProfile profile;
  double sum = 0.0;
  while (reader.Next(block)) {
    if (with_profile) profile.Add(block);
    for (std::size_t record = 0; record < block.Records(); ++record) {
      const delimited::Field* const fields = block.Record(record);
      for (std::size_t i = 0; i < block.Columns(); ++i) {
        if (fields[i].field_class == delimited::FieldClass::kNumber) sum += fields[i].value;
      }
    }
  }
  if (with_profile && profile.Columns().empty()) throw std::runtime_error("no profile");
  return sum;
}

double ProcessorSeconds() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

template <class Floor, class Work>
void TakeTurns(benchmark::State& state, Floor floor, Work work) {
  std::vector<double> floors;
  std::vector<double> works;
  std::vector<double> ratios;
  for (auto _ : state) {
    const double start = ProcessorSeconds();
    benchmark::DoNotOptimize(floor());
    const double middle = ProcessorSeconds();
    benchmark::DoNotOptimize(work());
    const double end = ProcessorSeconds();
    floors.push_back(middle - start);
    works.push_back(end - middle);
    ratios.push_back(works.back() / floors.back());
  }
  state.counters["floor_ms"] = 1e3 * Median(floors);
  state.counters["work_ms"] = 1e3 * Median(works);
  state.counters["ratio"] = Median(ratios);
}

std::size_t Cells(const benchmark::State& state) {
  return static_cast<std::size_t>(state.range(0) * state.range(1));
}

void Read(benchmark::State& state) {
  const std::string& path = NumberFile(state.range(0), state.range(1));
  if (SumRead(path, false) != SumBare(path, Cells(state))) throw std::runtime_error("other sums");
  TakeTurns(
      state, [&] { return SumBare(path, Cells(state)); }, [&] { return SumRead(path, false); });
}

void Profiled(benchmark::State& state) {
  const std::string& path = NumberFile(state.range(0), state.range(1));
  TakeTurns(
      state, [&] { return SumBare(path, Cells(state)); }, [&] { return SumRead(path, true); });
}

void Words(benchmark::State& state) {
  const std::string& numbers = NumberFile(state.range(0), state.range(1));
  const std::string& words = WordFile(state.range(0), state.range(1));
  TakeTurns(
      state, [&] { return SumBare(numbers, Cells(state)); }, [&] { return SumRead(words, true); });
}

void Index(benchmark::State& state) {
  const std::string& path = NumberFile(state.range(0), state.range(1));
  const std::string text = ReadWhole(path) + std::string(delimited::kReadableBehind, '\0');
  const std::size_t size = text.size() - delimited::kReadableBehind;
  const auto way = static_cast<delimited::MaskWay>(state.range(2));
  constexpr std::size_t kStep = 262144;
  delimited::DelimiterIndex index({}, way);
  TakeTurns(
      state, [&] { return SumBare(path, Cells(state)); },
      [&] {
        std::size_t count = 0;
        for (std::size_t from = 0; from < size; from += kStep) {
          index.Clear();
          index.AddFast(text.data() + from, 0, std::min(kStep, size - from));
          count += index.Count();
        }
        return count;
      });
}

BENCHMARK(Read)->Args({1'000'000, 10})->Args({100'000, 100})->Args({5'000'000, 2})->Iterations(11);
BENCHMARK(Profiled)->Args({1'000'000, 10})->Iterations(11);
BENCHMARK(Words)->Args({1'000'000, 10})->Iterations(11);
BENCHMARK(Index)
    ->Args({1'000'000, 10, 0})
    ->Args({1'000'000, 10, 1})
    ->Args({1'000'000, 10, 2})
    ->Iterations(11);

}  // namespace
}  // namespace tslm5::bench
