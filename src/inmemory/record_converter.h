#ifndef TSLM5_INMEMORY_RECORD_CONVERTER_H_
#define TSLM5_INMEMORY_RECORD_CONVERTER_H_

#include <cstdint>
#include <string_view>

#include "inmemory/delimiter_cursor.h"

namespace tslm5 {

/// Converts the lines of a text into records of numbers, one after the other, where they stand.
class RecordConverter {
 public:
  /// `text` has no empty line, no run of separators, and no blank that is none. `separator` (empty:
  /// one field a line) must outlive the converter. `columns` is the number of fields that every
  /// line must have; a separator at either end of a line is none of them.
  RecordConverter(std::string_view text, std::string_view separator, std::int32_t columns,
                  char decimal);

  /// Converts the next line, which must be there, into `cells` (`columns` of them) and returns its
  /// last field, a view into the text. Raises 41020 for a line of another width and 41011 for a
  /// field that is no number, see `ParseErrors`.
  std::string_view Next(double* cells);

 private:
  bool Convert(double* cells, std::string_view& last_field);
  [[noreturn]] void RefuseLine() const;

  std::string_view separator_;
  char separator_character_;
  std::int32_t columns_;
  char decimal_;
  DelimiterCursor delimiters_;
  const char* at_;  // start of the next line
  const char* last_;
  std::int64_t line_number_ = 0;
};

}  // namespace tslm5

#endif  // TSLM5_INMEMORY_RECORD_CONVERTER_H_
