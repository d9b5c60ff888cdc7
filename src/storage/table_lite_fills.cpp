// The fills of a data table: each is one transaction, and one that fails or is cancelled leaves
// the table and the row counter as they were.
#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "storage/restore_guard.h"
#include "storage/row_insert_text.h"
#include "storage/run_statements.h"
#include "storage/table_lite.h"
#include "storage/transaction.h"
#include "support/locale.h"
#include "support/text_split.h"
#include "tslm5/engine/number_inserter.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

/// Inserts rows of numbers: ready as they are where the engine takes them so, else as text.
class NumberRows {
 public:
  NumberRows(IConnection& connection, std::string_view table_name)
      : connection_(connection),
        inserter_(Query<INumberInserter>(&connection)),
        head_(InsertRowHead(table_name)),
        text_(table_name, false) {}

  void Insert(std::span<const double> numbers, std::int32_t row) {
    if (inserter_ && inserter_->InsertNumbers(head_, numbers, row)) return;
    text_.BeginNumbers();
    for (const double number : numbers) text_.AddNumber(number);
    connection_.Execute(text_.EndNumbers(row));
  }

 private:
  IConnection& connection_;
  Ref<INumberInserter> inserter_;
  std::string head_;
  RowInsertText text_;
};

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
  RowInsertText text(Name(), DecimalIsComma());
  Transaction transaction(*connection);
  RestoreGuard counter(row_counter_);
  row_counter_ = 1;
  RecordFeedback feedback(sinks_);
  for (std::string_view line; next_line(line);) {
    connection->Execute(text.FromLine(line, row_counter_));
    if (row_counter_ == 1) feedback.SetColumns(text.Fields());
    if (!feedback.Stored(row_counter_ - 1)) return false;
    ++row_counter_;
  }
  transaction.Commit();
  counter.Keep();
  return true;
}

bool TableLite::ParseDataSet(IDataSet& pDataSet) {
  const Ref<TableLite> alive(this);  // a listener may let go of the table
  const Ref<IConnection> connection = Connection();
  try {
    Transaction transaction(*connection);
    RestoreGuard counter(row_counter_);
    if (!CopyRows(*connection, pDataSet)) return false;
    transaction.Commit();
    counter.Keep();
  } catch (const Error& error) {
    if (error.Number() > 0) throw;
    return false;
  }
  return Load(Variant(connection_service_), type_code_);
}

bool TableLite::CopyRows(IConnection& connection, IDataSet& source) {
  NumberRows target(connection, Name());
  const std::int32_t columns = source.Columns();
  const std::int32_t rows = source.Rows();
  RecordFeedback feedback(sinks_);
  feedback.SetColumns(columns);
  std::vector<double> numbers(static_cast<std::size_t>(std::max(columns, 0)));
  for (std::int32_t row = 0; row < rows; ++row) {
    for (std::int32_t column = 0; column < columns; ++column) {
      numbers[static_cast<std::size_t>(column)] = source.GetItem(column, row);
    }
    target.Insert(numbers, row_counter_ + 1);
    if (!feedback.Stored(row_counter_)) return false;
    ++row_counter_;
  }
  return true;
}

void TableLite::ParseNumbers(std::int32_t pRows, std::int32_t pColumns, const FillRow& pFillRow) {
  const Ref<IConnection> connection = Connection();
  NumberRows target(*connection, Name());
  std::vector<double> cells(static_cast<std::size_t>(std::max(pColumns, 0)));
  Transaction transaction(*connection);
  RestoreGuard counter(row_counter_);
  row_counter_ = 1;
  for (std::int32_t row = 0; row < pRows; ++row) {
    pFillRow(row, cells);
    target.Insert(cells, row_counter_);
    ++row_counter_;
  }
  transaction.Commit();
  counter.Keep();
}

void TableLite::ParseDoubleArray(std::span<const double> pValues) {
  const Ref<IConnection> connection = Connection();
  RowInsertText text(Name(), false);
  Transaction transaction(*connection);
  RestoreGuard counter(row_counter_);
  for (const double value : pValues) {
    text.BeginNumbers();
    text.AddNumber(value);
    connection->Execute(text.EndNumbers(row_counter_));
    ++row_counter_;
  }
  transaction.Commit();
  counter.Keep();
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
