#ifndef TSLM5_HOST_CHARTS_SERIES_SKETCH_H_
#define TSLM5_HOST_CHARTS_SERIES_SKETCH_H_

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tslm5::host {

/// What one pass through a series keeps of it to draw it as a line: of every run of neighbouring
/// records the lowest and the highest value, so that no peak is lost.
class SeriesSketch {
 public:
  static constexpr std::int64_t kMostRuns = 960;

  struct Run {
    bool has_low_first = true;
    double low = 0.0;
    double high = 0.0;
    bool has_values = false;  ///< a run without values is a gap in the line
  };

  explicit SeriesSketch(std::int64_t records);

  /// Takes in the value of a record. Infinite values are gaps as missing ones are.
  void Add(std::int64_t record, double value);

  std::int64_t Records() const { return records_; }
  const std::vector<Run>& Runs() const { return runs_; }
  bool HasValues() const { return has_values_; }
  /// Of the whole series. REQUIRES: HasValues().
  double Low() const { return low_; }
  double High() const { return high_; }

 private:
  std::int64_t records_;
  std::vector<Run> runs_;
  bool has_values_ = false;
  double low_ = 0.0;
  double high_ = 0.0;
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_CHARTS_SERIES_SKETCH_H_
