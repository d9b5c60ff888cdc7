#include "engine/record_block.h"

#include <cmath>
#include <limits>

#include "engine/sqlite_value.h"
#include "tslm5/platform/number_text.h"

namespace tslm5 {
namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

}  // namespace

void RecordBlock::Append(sqlite3_stmt* statement, const Layout& layout) {
  const std::size_t record = keys_.size();
  const int first = layout.first_field;
  keys_.push_back(layout.key_column >= 0 ? sqlite3_column_int64(statement, layout.key_column)
                                         : static_cast<std::int64_t>(record));
  const int fields = static_cast<int>(is_integer_.size());
  for (int field = 0; field < fields; ++field) {
    const int column = first + field;
    const std::size_t place = Place(record, field);
    const int type = sqlite3_column_type(statement, column);
    if (type == SQLITE_FLOAT || type == SQLITE_INTEGER) {
      numbers_[place] = sqlite3_column_double(statement, column);
      char& is_integer = is_integer_[static_cast<std::size_t>(field)];
      if (record == 0) is_integer = type == SQLITE_INTEGER;
      if (is_integer != (type == SQLITE_INTEGER))
        others_.emplace(place, ColumnValue(statement, column));
    } else {
      numbers_[place] = kNoNumber;
      if (type == SQLITE_TEXT) ParseNumber(ColumnText(statement, column), '.', numbers_[place]);
      if (type != SQLITE_NULL) others_.emplace(place, ColumnValue(statement, column));
    }
  }
}

Variant RecordBlock::Value(std::size_t record, int field) const {
  const std::size_t place = Place(record, field);
  if (!others_.empty()) {
    const auto other = others_.find(place);
    if (other != others_.end()) return other->second;
  }
  const double number = numbers_[place];
  if (std::isnan(number)) return Null{};
  const bool is_integer = is_integer_[static_cast<std::size_t>(field)] != 0;
  if (is_integer && std::abs(number) <= std::numeric_limits<std::int32_t>::max()) {
    return static_cast<std::int32_t>(number);
  }
  return number;
}

void RecordBlock::Put(std::size_t record, int field, double value) {
  const std::size_t place = Place(record, field);
  if (is_integer_[static_cast<std::size_t>(field)] != 0 && !std::isnan(value)) {
    others_.insert_or_assign(place, Variant(value));  // first: it may find no memory
  } else {
    others_.erase(place);
  }
  numbers_[place] = value;
}

}  // namespace tslm5
