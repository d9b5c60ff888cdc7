#include "host/preparation/field_table.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/program/shown_text.h"

namespace tslm5::host {

std::string FieldTable::LabelOf(std::size_t column) const {
  return labels.empty() ? fmt::format("d{}", column) : labels[column];
}

std::string FieldTable::PlaceOf(std::size_t record, std::size_t column) const {
  return fmt::format("{} {}, column {} ({})", place_word, places[record], file_columns[column] + 1,
                     Cut(LabelOf(column)));
}

void MoveToEnd(FieldTable& table, std::size_t column) {
  const auto place = static_cast<std::ptrdiff_t>(column);
  const auto rotate = [place](auto from, auto end) {
    std::rotate(from + place, from + place + 1, end);
  };
  rotate(table.file_columns.begin(), table.file_columns.end());
  if (!table.labels.empty()) rotate(table.labels.begin(), table.labels.end());
  const auto width = static_cast<std::ptrdiff_t>(table.columns);
  for (auto record = table.fields.begin(); record != table.fields.end(); record += width) {
    rotate(record, record + width);
  }
}

}  // namespace tslm5::host
