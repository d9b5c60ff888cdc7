#ifndef TSLM5_STATISTICS_COLUMN_BATCHES_H_
#define TSLM5_STATISTICS_COLUMN_BATCHES_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tslm5/engine/connection.h"

namespace tslm5::DataRecordStatistics {

/// Computes five figures a column of a table, several columns in one query.
class ColumnBatches {
 public:
  /// A column and its figures, in the order of the query: minimum, maximum, average, median, and
  /// the fifth one, deviation or count. A figure that is no finite number is -9999.
  struct Figures {
    std::int32_t column = 0;
    double minimum = 0.0;
    double maximum = 0.0;
    double average = 0.0;
    double median = 0.0;
    double fifth = 0.0;
  };

  /// `fragment` is the select list of one column, with "<XX>" for its index; `condition` is empty
  /// or starts with " WHERE "; a query takes `batch_size` + 1 columns of the `variables`.
  ColumnBatches(std::string_view fragment, std::string_view table_name, std::string_view condition,
                std::int32_t variables, std::int32_t batch_size)
      : fragment_(fragment),
        table_name_(table_name),
        condition_(condition),
        variables_(variables),
        step_(batch_size + 1),
        start_(-step_) {}

  /// Runs the next query; false when every column has had its turn.
  bool Next(IConnection& connection);

  /// The first column of the batch.
  std::int32_t Start() const { return start_; }
  const std::vector<Figures>& Columns() const { return columns_; }

 private:
  std::string Query() const;

  std::string_view fragment_;
  std::string_view table_name_;
  std::string condition_;
  std::int32_t variables_;
  std::int32_t step_;
  std::int32_t start_;
  std::vector<Figures> columns_;
};

}  // namespace tslm5::DataRecordStatistics

#endif  // TSLM5_STATISTICS_COLUMN_BATCHES_H_
