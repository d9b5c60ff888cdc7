#ifndef TSLM5_DATASETLITE_STATISTICS_CACHE_H_
#define TSLM5_DATASETLITE_STATISTICS_CACHE_H_

#include <cstdint>
#include <string_view>
#include <vector>

#include "tslm5/engine/connection.h"
#include "tslm5/platform/dictionary.h"

namespace tslm5 {

/// What a `DataSetLite` remembers of its statistics tables. It is read when a figure is first asked
/// for after the set was attached, and anew by `CalculateStatistics`; a change of the data empties
/// it, and it stays empty until one of the two happens again.
class StatisticsCache {
 public:
  /// The figures of one response class, by "d" + column index.
  struct ClassFigures {
    Dictionary centroids;
    Dictionary medoids;
    Dictionary record_counts;
  };

  /// Forgets everything; the next question reads the tables (the set was attached).
  void ExpectTables() { *this = StatisticsCache(); }
  /// Forgets everything; the tables no longer fit the data.
  void Empty() {
    *this = StatisticsCache();
    is_read_ = true;
  }
  /// Reads the tables of `data_set_id`, unless that was done or they no longer fit the data.
  void EnsureRead(IConnection& connection, std::int32_t data_set_id);

  /// The tables were there and read; they may have held nothing for this set.
  bool HasGlobal() const { return has_global_; }
  bool HasClasses() const { return has_classes_; }

  static Variant Key(std::int32_t column);
  /// The entry of a column, empty when there is none.
  static Variant Figure(const Dictionary& figures, std::int32_t column) {
    return figures.Item(Key(column));
  }

  const Dictionary& Centroids() const { return centroids_; }
  const Dictionary& Medoids() const { return medoids_; }
  const Dictionary& Minima() const { return minima_; }
  const Dictionary& Maxima() const { return maxima_; }
  const Dictionary& Deviations() const { return deviations_; }
  /// Class 0 or 1, in ascending order of the class values.
  const ClassFigures& Class(std::int32_t index) const { return index == 0 ? first_ : second_; }
  /// Every class value met, also those of a third class and on.
  const std::vector<double>& ClassValues() const { return class_values_; }

 private:
  void ReadGlobal(IConnection& connection, std::string_view set_id);
  void ReadClasses(IConnection& connection, std::string_view set_id);

  bool is_read_ = false;
  bool has_global_ = false;
  bool has_classes_ = false;
  Dictionary centroids_;
  Dictionary medoids_;
  Dictionary minima_;
  Dictionary maxima_;
  Dictionary deviations_;
  ClassFigures first_;
  ClassFigures second_;
  std::vector<double> class_values_;
};

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_STATISTICS_CACHE_H_
