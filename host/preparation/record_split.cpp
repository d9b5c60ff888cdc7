#include "host/preparation/record_split.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>
#include <utility>

#include "host/program/failure.h"

namespace tslm5::host {
namespace {

/// A number below `bound`, each as likely as the others. The library's distributions are not the
/// same everywhere; its engine is.
std::uint64_t Draw(std::mt19937_64& engine, std::uint64_t bound) {
  constexpr std::uint64_t kMost = std::numeric_limits<std::uint64_t>::max();
  const std::uint64_t fair_end = kMost - kMost % bound;
  for (;;) {
    const std::uint64_t number = engine();
    if (number < fair_end) return number % bound;
  }
}

}  // namespace

RecordSplit NoSplit(std::size_t records) {
  RecordSplit split;
  split.training.resize(records);
  std::iota(split.training.begin(), split.training.end(), std::size_t{0});
  return split;
}

RecordSplit DrawSplit(std::size_t records, double share, std::uint32_t seed) {
  if (records < 2) {
    Refuse("--testing-share: one record cannot be split into a training and a testing set");
  }
  const auto wanted = static_cast<std::size_t>(std::llround(static_cast<double>(records) * share));
  const std::size_t testing = std::clamp<std::size_t>(wanted, 1, records - 1);

  std::vector<std::size_t> order = NoSplit(records).training;
  std::mt19937_64 engine(seed);
  for (std::size_t last = records - 1; last > 0; --last) {
    std::swap(order[last], order[Draw(engine, last + 1)]);
  }
  RecordSplit split;
  const auto end = order.begin() + static_cast<std::ptrdiff_t>(testing);
  split.testing.assign(order.begin(), end);
  split.training.assign(end, order.end());
  std::sort(split.testing.begin(), split.testing.end());
  std::sort(split.training.begin(), split.training.end());
  return split;
}

}  // namespace tslm5::host
