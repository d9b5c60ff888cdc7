#include "engine/sqlite_reader.h"

#include <cmath>

#include "engine/sqlite_value.h"
#include "platform/only_errors.h"
#include "tslm5/platform/error.h"
#include "tslm5/platform/number_text.h"

namespace tslm5 {

bool SqliteReader::QueryInterface(const Uuid& pId, void** pObject) {
  if (pId != IRecordTexts::kId) return CountedObject::QueryInterface(pId, pObject);
  *pObject = static_cast<IRecordTexts*>(&texts_facet_);
  AddRef();
  return true;
}

bool SqliteReader::Read() try {
  on_record_ = false;
  if (!statement_ || at_end_) return false;
  at_end_ = true;  // also when the step fails: another one would begin anew
  on_record_ = connection_->Guarded([this] {
    connection_->WriteAppended();
    return statement_->Step();
  });
  at_end_ = !on_record_;
  if (at_end_) statement_->Reset();
  return on_record_;
} catch (...) {
  RaiseAsError();
}

sqlite3_stmt* SqliteReader::Record(std::int32_t index) const {
  if (!on_record_) {
    throw Error(error_number::kNoCurrentRecord, "TSLMRep5", "no current record");
  }
  if (index < 0 || index >= sqlite3_column_count(statement_->Handle())) {
    RaiseSubscriptOutOfRange();
  }
  return statement_->Handle();
}

std::int32_t SqliteReader::GetInteger(std::int32_t pIndex) try {
  sqlite3_stmt* record = Record(pIndex);
  if (sqlite3_column_type(record, pIndex) == SQLITE_INTEGER) {
    return IntegerValue(sqlite3_column_int64(record, pIndex)).ToInteger();
  }
  return Variant(GetDouble(pIndex)).ToInteger();
} catch (...) {
  RaiseAsError();
}

double SqliteReader::GetDouble(std::int32_t pIndex) try {
  sqlite3_stmt* record = Record(pIndex);
  double number = 0.0;
  if (sqlite3_column_type(record, pIndex) == SQLITE_TEXT &&
      ParseNumber(ColumnText(record, pIndex), '.', number)) {
    return number;
  }
  return sqlite3_column_double(record, pIndex);
} catch (...) {
  RaiseAsError();
}

std::string SqliteReader::GetString(std::int32_t pIndex) try {
  sqlite3_stmt* record = Record(pIndex);
  if (sqlite3_column_type(record, pIndex) == SQLITE_FLOAT) {
    return NumberText(sqlite3_column_double(record, pIndex));
  }
  return std::string(ColumnText(record, pIndex));
} catch (...) {
  RaiseAsError();
}

void SqliteReader::GetTexts(std::span<std::string_view> texts) {
  const int count = static_cast<int>(texts.size());
  sqlite3_stmt* record = Record(count > 0 ? count - 1 : 0);
  for (int field = 0; field < count; ++field) {
    std::string_view& text = texts[static_cast<std::size_t>(field)];
    // One look-up of the column for its kind, text and size; allowed, as one thread uses the run.
    sqlite3_value* const value = sqlite3_column_value(record, field);
    if (sqlite3_value_type(value) == SQLITE_FLOAT) {
      number_texts_.resize(texts.size() * kNumberTextSize);  // moves only before the first text
      char* first = number_texts_.data() + static_cast<std::size_t>(field) * kNumberTextSize;
      const char* last = WriteNumber(first, sqlite3_value_double(value));
      text = {first, static_cast<std::size_t>(last - first)};
    } else {
      text = ValueText(value);
    }
  }
}

void SqliteReader::Close() {
  statement_.reset();
  on_record_ = false;
}

std::int32_t SqliteReader::FieldCount() {
  return statement_ ? sqlite3_column_count(statement_->Handle()) : 0;
}

std::string SqliteReader::FieldName(std::int32_t pIndex) try {
  if (pIndex < 0 || pIndex >= FieldCount()) RaiseSubscriptOutOfRange();
  const char* const name = sqlite3_column_name(statement_->Handle(), pIndex);
  if (name == nullptr) RaiseOutOfMemory();
  return name;
} catch (...) {
  RaiseAsError();
}

Variant SqliteReader::GetValue(std::int32_t pIndex) {
  return OnlyErrors([&] { return ColumnValue(Record(pIndex), pIndex); });
}

bool SqliteReader::IsNull(std::int32_t pIndex) {
  return OnlyErrors([&] { return sqlite3_column_type(Record(pIndex), pIndex) == SQLITE_NULL; });
}

}  // namespace tslm5
