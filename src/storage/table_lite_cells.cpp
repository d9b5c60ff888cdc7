// Single cells and rows of a data table.
#include <cmath>

#include "platform/only_errors.h"
#include "storage/run_statements.h"
#include "storage/table_lite.h"
#include "tslm5/platform/error.h"
#include "tslm5/platform/number_text.h"

namespace tslm5 {

std::int32_t TableLite::Columns() {
  return record_set_ ? record_set_->FieldCount() - 1 : 0;
}

std::int32_t TableLite::Rows() {
  return record_set_ ? record_set_->RecordCount() : 0;
}

bool TableLite::IsBinary() {
  return OrEmpty([&] {
    const std::string response = std::to_string(Columns() - 1);
    const Ref<IDataReader> reader = Connection()->ExecuteReader(
        FillStatement(run_statement::kCountClasses, {{"<COLUMN>", response}, {"<TABLE>", Name()}}));
    return reader->Read() && reader->GetInteger(0) == 2;
  });
}

bool TableLite::PutValue(std::int32_t pColumn, std::int32_t pRow, double pValue) {
  if (pColumn < 0 || pColumn >= Columns() || !IsRow(pRow)) return false;
  record_set_->MoveTo(pRow + 1, 0);
  if (record_set_->EndOfFile()) return false;
  if (std::isinf(pValue)) {
    throw Error(error_number::kOverflow, "PutValue", "An infinite number cannot be stored.");
  }
  record_set_->SetField(pColumn, pValue);
  return true;
}

std::string TableLite::GetRow(std::int32_t pRow, std::string_view pSeparator) {
  if (!record_set_ || !IsRow(pRow)) return {};
  record_set_->MoveTo(pRow + 1, 0);
  if (record_set_->EndOfFile()) return {};
  std::string line;
  const std::int32_t columns = Columns();
  for (std::int32_t column = 0; column < columns; ++column) {
    const Variant value = record_set_->GetField(column);
    line += value.IsNull() ? "NULL" : value.ToString();
    line += pSeparator;
  }
  return line;
}

}  // namespace tslm5
