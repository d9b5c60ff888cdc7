#include "storage/row_writer.h"

#include <algorithm>
#include <cmath>

#include "storage/run_statements.h"

namespace tslm5 {

RowWriter::RowWriter(IConnection& connection, std::string_view table_name, bool decimal_is_comma)
    : connection_(connection),
      inserter_(Query<INumberInserter>(&connection)),
      head_(InsertRowHead(table_name)),
      line_(decimal_is_comma),
      text_(table_name, decimal_is_comma) {
  if (const Ref<IRecordAppending> appending = Query<IRecordAppending>(&connection)) {
    appender_ = appending->OpenAppender(table_name);
  }
  if (appender_) columns_ = static_cast<std::size_t>(appender_->Columns());
}

bool RowWriter::Append(std::span<const double> numbers, std::int32_t row) {
  if (!appender_ || numbers.size() != columns_) return false;
  if (std::any_of(numbers.begin(), numbers.end(), [](double x) { return std::isinf(x); })) {
    return false;
  }
  appender_->AppendNumbers(numbers, row);
  return true;
}

void RowWriter::InsertNumbers(std::span<const double> numbers, std::int32_t row) {
  if (Append(numbers, row)) return;
  if (inserter_ && inserter_->InsertNumbers(head_, numbers, row)) return;
  text_.BeginNumbers();
  for (const double number : numbers) text_.AddNumber(number);
  connection_.Execute(text_.EndNumbers(row));
}

std::int32_t RowWriter::InsertLine(std::string_view line, std::int32_t row) {
  if (appender_ && line_.Read(line) && Append(line_.Numbers(), row)) {
    return static_cast<std::int32_t>(columns_);
  }
  connection_.Execute(text_.FromLine(line, row));
  return text_.Fields();
}

}  // namespace tslm5
