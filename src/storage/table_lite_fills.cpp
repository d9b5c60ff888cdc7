// The fills of a data table: each is one transaction, and one that fails or is cancelled leaves
// the table and the row counter as they were.
#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "storage/restore_guard.h"
#include "storage/row_insert_text.h"
#include "storage/row_writer.h"
#include "storage/table_lite.h"
#include "support/locale.h"
#include "support/text_split.h"
#include "tslm5/engine/transaction.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

bool DecimalIsComma() {
  return CurrentLocale().DecimalSymbol() == ',';
}

}  // namespace

bool TableLite::ParseArray(std::span<const std::string> pLines) {
  std::size_t index = 0;
  return FillFromLines([&index, pLines](std::string_view& line) {
    if (index == pLines.size()) return false;
    line = pLines[index++];
    return true;
  });
}

bool TableLite::ParseText(std::string_view text) {
  return FillFromLines(
      [cursor = LineCursor(text)](std::string_view& line) mutable { return cursor.Next(line); });
}

bool TableLite::FillFromLines(const NextLine& next_line) {
  const Ref<TableLite> alive(this);  // a listener may let go of the table
  const Ref<IConnection> connection = Connection();
  RowWriter writer(*connection, Name(), DecimalIsComma());
  Transaction transaction(*connection);
  RestoreGuard counter(row_counter_);
  row_counter_ = 1;
  RecordFeedback feedback(sinks_);
  for (std::string_view line; next_line(line);) {
    const std::int32_t fields = writer.InsertLine(line, row_counter_);
    if (row_counter_ == 1) feedback.SetColumns(fields);
    if (!feedback.Stored(row_counter_ - 1)) return false;
    ++row_counter_;
  }
  transaction.Commit([&counter] { counter.Keep(); });
  return true;
}

bool TableLite::ParseDataSet(IDataSet& pDataSet) {
  const Ref<TableLite> alive(this);  // a listener may let go of the table
  const Ref<IConnection> connection = Connection();
  try {
    if (!CopyRows(*connection, pDataSet)) return false;
  } catch (const Error& error) {
    if (error.Number() > 0) throw;
    return false;
  }
  return Load(Variant(connection_service_), type_code_);
}

bool TableLite::CopyRows(IConnection& connection, IDataSet& source) {
  RowWriter target(connection, Name(), false);
  Transaction transaction(connection);
  RestoreGuard counter(row_counter_);
  const std::int32_t columns = source.Columns();
  const std::int32_t rows = source.Rows();
  RecordFeedback feedback(sinks_);
  feedback.SetColumns(columns);
  std::vector<double> numbers(static_cast<std::size_t>(std::max(columns, 0)));
  for (std::int32_t row = 0; row < rows; ++row) {
    for (std::int32_t column = 0; column < columns; ++column) {
      numbers[static_cast<std::size_t>(column)] = source.GetItem(column, row);
    }
    target.InsertNumbers(numbers, row_counter_ + 1);
    if (!feedback.Stored(row_counter_)) return false;
    ++row_counter_;
  }
  transaction.Commit([&counter] { counter.Keep(); });
  return true;
}

void TableLite::ParseNumbers(std::int32_t pRows, std::int32_t pColumns, const FillRow& pFillRow) {
  const Ref<IConnection> connection = Connection();
  RowWriter target(*connection, Name(), false);
  std::vector<double> cells(static_cast<std::size_t>(std::max(pColumns, 0)));
  Transaction transaction(*connection);
  RestoreGuard counter(row_counter_);
  row_counter_ = 1;
  for (std::int32_t row = 0; row < pRows; ++row) {
    pFillRow(row, cells);
    target.InsertNumbers(cells, row_counter_);
    ++row_counter_;
  }
  transaction.Commit([&counter] { counter.Keep(); });
}

void TableLite::ParseDoubleArray(std::span<const double> pValues) {
  const Ref<IConnection> connection = Connection();
  RowWriter target(*connection, Name(), false);
  Transaction transaction(*connection);
  RestoreGuard counter(row_counter_);
  for (const double& value : pValues) {
    target.InsertNumbers({&value, 1}, row_counter_);
    ++row_counter_;
  }
  transaction.Commit([&counter] { counter.Keep(); });
}

void TableLite::ParseFields(std::span<const Variant> pFields) {
  RowInsertText text(Name(), false);
  for (const Variant& field : pFields) {
    text.AddNumber(field.IsNull() ? std::numeric_limits<double>::quiet_NaN() : field.ToDouble());
  }
  Connection()->Execute(text.EndNumbers());
  ++row_counter_;
}

}  // namespace tslm5
