#ifndef TSLM5_SUPPORT_EMBEDDING_H_
#define TSLM5_SUPPORT_EMBEDDING_H_

#include <cstddef>
#include <cstdint>
#include <optional>

#include "contracts/property_bag.h"

namespace tslm5 {

/// What the properties of a set say of the columns of its embedding: `dimension` inputs, oldest
/// first, and the response behind them, each `delay_time` values after the one before.
struct EmbeddingStep {
  std::int32_t dimension = 0;
  std::int32_t delay_time = 0;

  /// Reads "EmbeddingDimension" and "DelayTime". One that is missing or no number raises 13, one
  /// outside 32 bits 6.
  static EmbeddingStep Of(const PropertyBag& properties);

  /// How many values before the response an input column lies; 0 for the response itself.
  std::int64_t Lag(std::int32_t column) const {
    return (std::int64_t{dimension} - column) * delay_time;
  }
};

/// Which value of a series stands where when the series is embedded: record r holds the value at
/// r + the largest lag as its response, and the values at its lags before that. The values from the
/// first testing sample on are in no record. Rows and columns are 0-based.
class Embedding {
 public:
  /// The embedding of a series of `series_rows` values under a set's properties, or nothing when
  /// there is none: a dimension or a delay below 1, a negative "TestingSamples" (missing: 0), one
  /// of them that is no whole number, or too few values for a single record. Raises what
  /// `EmbeddingStep::Of` raises.
  static std::optional<Embedding> Of(const PropertyBag& properties, std::int32_t series_rows);

  const EmbeddingStep& Step() const { return step_; }
  std::int32_t SeriesRows() const { return series_rows_; }
  std::int32_t Records() const { return records_; }
  /// The inputs and the response.
  std::int32_t Columns() const { return step_.dimension + 1; }
  std::int32_t TestingSamples() const { return testing_samples_; }

  /// Where in the series the cell of a record lies.
  std::size_t SeriesRow(std::int32_t record, std::int32_t column) const {
    return static_cast<std::size_t>(record) +
           static_cast<std::size_t>(column) * static_cast<std::size_t>(step_.delay_time);
  }
  /// Where in the series a testing sample lies. They are `delay_time` apart, and the last one is
  /// the last value of the series.
  std::size_t TestingRow(std::int32_t sample) const {
    return static_cast<std::size_t>(first_testing_row_) +
           static_cast<std::size_t>(sample) * static_cast<std::size_t>(step_.delay_time);
  }

 private:
  Embedding() = default;

  EmbeddingStep step_;
  std::int32_t series_rows_ = 0;
  std::int32_t records_ = 0;
  std::int32_t testing_samples_ = 0;
  std::int32_t first_testing_row_ = 0;
};

}  // namespace tslm5

#endif  // TSLM5_SUPPORT_EMBEDDING_H_
