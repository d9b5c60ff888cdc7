// The data check, beside its floor: the same file read whole and every field converted by
// from_chars, split at the separators.
//   check_bench --benchmark_filter=Ratio       the figure of the README
//   check_bench --benchmark_filter=CountWords  every finding of a file with words
#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "bench_file.h"
#include "tslm5/component/create_object.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/data_check.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/event_handlers.h"
#include "tslm5/platform/connection_point.h"
#include "turns.h"

namespace tslm5::bench {
namespace {

constexpr std::int64_t kRows = 1'000'000;
constexpr std::int64_t kColumns = 10;

double ReadBare(const std::string& path) {
  std::string bytes(std::filesystem::file_size(path), '\0');
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (file == nullptr || std::fread(bytes.data(), 1, bytes.size(), file) != bytes.size()) {
    throw std::runtime_error("read");
  }
  std::fclose(file);
  const char* const end = bytes.data() + bytes.size();
  double sum = 0.0;
  for (const char* p = bytes.data(); p != end; ++p) {
    double value = 0.0;
    p = std::from_chars(p, end, value).ptr;
    if (*p != ',' && *p != '\n') throw std::runtime_error("field");
    sum += value;
  }
  return sum;
}

/// A set with a listener; `Check` returns how many progress events it has heard so far.
class ListenedSet {
 public:
  ListenedSet() {
    handlers_->on_load_feedback = [this](IParseEventArgs&) { ++heard_; };
    Query<IConnectionPoint>(set_)->Advise(handlers_.get());
  }

  std::int64_t Check(const std::string& path) {
    std::int32_t separator = separator_code::kComma;
    std::string message;
    if (!set_->IsValidDataSet(path, false, separator, message)) throw std::runtime_error(message);
    return heard_;
  }

 private:
  Ref<IDataSet> set_ = CreateObject<IDataSet>(class_id::kDataSetLite);
  Ref<EventHandlers> handlers_ = MakeObject<EventHandlers>();
  std::int64_t heard_ = 0;
};

void Floor(benchmark::State& state) {
  const std::string& path = NumberFile(kRows, kColumns);
  for (auto _ : state) benchmark::DoNotOptimize(ReadBare(path));
}

void Check(benchmark::State& state) {
  const std::string& path = NumberFile(kRows, kColumns);
  ListenedSet set;
  for (auto _ : state) benchmark::DoNotOptimize(set.Check(path));
}

void Ratio(benchmark::State& state) {
  const std::string& path = NumberFile(kRows, kColumns);
  ListenedSet set;
  TakeTurns(
      state, [&] { return ReadBare(path); }, [&] { return set.Check(path); });
}

/// All findings of a file with three columns of words, counted; the floor is that of the numbers.
void CountWords(benchmark::State& state) {
  const std::string& numbers = NumberFile(kRows, kColumns);
  DataCheckOptions options;
  options.path = WordFile(kRows, kColumns);
  options.has_labels = false;
  options.finds_all = true;
  const Ref<IDataCheck> check = CreateObject<IDataCheck>(class_id::kDataCheck);
  TakeTurns(
      state, [&] { return ReadBare(numbers); },
      [&] { return check->Check(options, nullptr).count; });
}

BENCHMARK(Floor)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(Check)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(Ratio)->Iterations(11);
BENCHMARK(CountWords)->Iterations(11);

}  // namespace
}  // namespace tslm5::bench
