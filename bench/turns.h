#ifndef TSLM5_BENCH_TURNS_H_
#define TSLM5_BENCH_TURNS_H_

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <ctime>
#include <vector>

namespace tslm5::bench {

/// Of all threads of the process.
inline double ProcessorSeconds() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

inline double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

/// Lets two pieces of work take turns, so that a machine's moods hit both, and counts their
/// processor time: `floor_ms` and `work_ms` are medians, `ratio` is the median over the turns.
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

}  // namespace tslm5::bench

#endif  // TSLM5_BENCH_TURNS_H_
