// The data check, beside its floor: the same file read whole and every field converted by
// from_chars, split at the separators.
#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "bench_file.h"
#include "tslm5/component/create_object.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/event_handlers.h"
#include "tslm5/platform/connection_point.h"

namespace tslm5::bench {
namespace {

constexpr std::int64_t kRows = 1'000'000;
constexpr std::int64_t kColumns = 10;

void Floor(benchmark::State& state) {
  const std::string& path = NumberFile(kRows, kColumns);
  for (auto _ : state) {
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
    benchmark::DoNotOptimize(sum);
  }
}

void Check(benchmark::State& state) {
  const std::string& path = NumberFile(kRows, kColumns);
  const Ref<IDataSet> set = CreateObject<IDataSet>(class_id::kDataSetLite);
  const Ref<EventHandlers> handlers = MakeObject<EventHandlers>();
  std::int64_t heard = 0;
  handlers->on_load_feedback = [&heard](IParseEventArgs&) { ++heard; };
  Query<IConnectionPoint>(set)->Advise(handlers.get());
  for (auto _ : state) {
    std::int32_t separator = separator_code::kComma;
    std::string message;
    if (!set->IsValidDataSet(path, false, separator, message)) throw std::runtime_error(message);
  }
  benchmark::DoNotOptimize(heard);
}

BENCHMARK(Floor)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(Check)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace tslm5::bench
