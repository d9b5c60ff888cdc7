#ifndef TSLM5_HOST_CHARTS_VALUE_SKETCH_H_
#define TSLM5_HOST_CHARTS_VALUE_SKETCH_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace tslm5::host {

/// The classes that counts are kept for apart from each other.
inline constexpr std::size_t kSketchClasses = 6;

/// Counts, one a class.
using ClassCounts = std::array<std::int32_t, kSketchClasses>;

/// What one pass through a column keeps of its values, however many they are: figures, and counts
/// in bins whose width is a power of ten.
class ValueSketch {
 public:
  /// The bins are made wider when there would be more.
  static constexpr std::int64_t kMostBins = 1024;

  /// Takes in a value of a record of the class `slot`. Not a number is a missing value.
  /// REQUIRES: slot < kSketchClasses.
  void Add(double value, std::size_t slot);
  /// From here on every count stands under class 0.
  void MergeClasses();

  std::int64_t Values() const { return values_; }
  std::int64_t Missing() const { return missing_; }
  std::optional<double> Mean() const;
  std::optional<double> Minimum() const;
  std::optional<double> Maximum() const;
  /// Of a sample: n - 1.
  std::optional<double> Deviation() const;
  /// Whether every value is a whole number.
  bool IsWhole() const { return is_whole_; }

  /// Bin i holds the finite values of [(FirstBin() + i) * 10^Power(), the next one's begin).
  const std::vector<ClassCounts>& Bins() const { return bins_; }
  std::int64_t FirstBin() const { return first_bin_; }
  int Power() const { return power_; }

 private:
  void Count(double value, std::size_t slot);
  void WidenTo(int power);

  std::int64_t values_ = 0;
  std::int64_t missing_ = 0;
  double mean_ = 0.0;
  double squares_ = 0.0;  // of the distances from the mean
  double minimum_ = 0.0;
  double maximum_ = 0.0;
  bool is_whole_ = true;

  std::vector<ClassCounts> bins_;
  std::int64_t first_bin_ = 0;
  int power_ = 0;
};

/// `number` * 10^`power`, rounded once for powers of common size.
double TimesPowerOfTen(double number, int power);

/// `number` / `divisor`, rounded down. REQUIRES: divisor > 0.
std::int64_t FloorDivide(std::int64_t number, std::int64_t divisor);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_CHARTS_VALUE_SKETCH_H_
