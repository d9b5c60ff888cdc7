#ifndef TSLM5_HOST_PREPARATION_FIELD_TABLE_H_
#define TSLM5_HOST_PREPARATION_FIELD_TABLE_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tslm5::host {

/// The records of a text as fields. The last column is the response.
struct FieldTable {
  std::vector<std::string_view> fields;  ///< record by record
  std::vector<std::int64_t> places;      ///< where each record is, from 1: its line
  std::string place_word = "line";       ///< what `places` count
  std::size_t columns = 0;
  std::vector<std::size_t> file_columns;  ///< where each column is in the file, from 0
  std::vector<std::string> labels;        ///< empty where there are none
  std::int64_t lines = 0;                 ///< always records + label lines + empty lines
  std::int64_t label_lines = 0;
  std::int64_t empty_lines = 0;
  char decimal = '.';                ///< sign of the numbers
  std::shared_ptr<const void> text;  ///< what the fields are views of, where nobody else keeps it

  std::size_t Records() const { return places.size(); }
  std::string_view Field(std::size_t record, std::size_t column) const {
    return fields[record * columns + column];
  }
  /// The label of a column, or the name that it has without one.
  std::string LabelOf(std::size_t column) const;
  /// "line 4, column 2 (wind)", the column as it stands in the file.
  std::string PlaceOf(std::size_t record, std::size_t column) const;
};

/// Makes a column the last one, and so the response; the others keep their order.
void MoveToEnd(FieldTable& table, std::size_t column);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_FIELD_TABLE_H_
