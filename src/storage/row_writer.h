#ifndef TSLM5_STORAGE_ROW_WRITER_H_
#define TSLM5_STORAGE_ROW_WRITER_H_

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "storage/line_numbers.h"
#include "storage/row_insert_text.h"
#include "tslm5/engine/connection.h"
#include "tslm5/engine/number_inserter.h"
#include "tslm5/engine/record_appender.h"
#include "tslm5/platform/ref.h"

namespace tslm5 {

/// Stores the rows of one fill of a data table, each in the fastest way that the connection offers:
/// appended, inserted as numbers, or as the text of a statement, which decides wherever a row is
/// unusual. To be made before the fill's transaction begins, so that a transaction that is undone
/// takes along what is collected.
class RowWriter {
 public:
  RowWriter(IConnection& connection, std::string_view table_name, bool decimal_is_comma);

  /// A row of numbers: NaN becomes NULL, an infinity raises 6.
  void InsertNumbers(std::span<const double> numbers, std::int32_t row);
  /// A line of blank-separated values; see `RowInsertText::FromLine`. The number of its fields.
  std::int32_t InsertLine(std::string_view line, std::int32_t row);

 private:
  /// False when the text has to decide.
  bool Append(std::span<const double> numbers, std::int32_t row);

  IConnection& connection_;
  Ref<IRecordAppender> appender_;
  std::size_t columns_ = 0;  // of the appender
  Ref<INumberInserter> inserter_;
  std::string head_;
  LineNumbers line_;
  RowInsertText text_;
};

}  // namespace tslm5

#endif  // TSLM5_STORAGE_ROW_WRITER_H_
