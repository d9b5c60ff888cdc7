#ifndef TSLM5_INMEMORY_RECORD_CONVERTER_H_
#define TSLM5_INMEMORY_RECORD_CONVERTER_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "inmemory/delimiter_cursor.h"

namespace tslm5 {

/// Converts the lines of a text into records of numbers, one after the other. A line that is
/// nothing out of the ordinary is converted where it stands; any other one step by step, with the
/// errors of `ParseErrors`. Both ways give the same numbers.
class RecordConverter {
 public:
  /// `text` has no empty line and no run of separators. `separator` (empty: one field a line) must
  /// outlive the reader. `columns` is the number of fields that every line must have.
  RecordConverter(std::string_view text, std::string_view separator, std::int32_t columns,
                  char decimal);

  /// Converts the next line, which must be there, into `cells` (`columns` of them) and returns its
  /// last field, good until the next call.
  std::string_view Next(double* cells);

 private:
  bool ReadPlainLine(double* cells, std::string_view& last_field);
  std::string_view ReadAnyLine(double* cells);

  std::string_view separator_;
  char separator_character_;
  std::int32_t columns_;
  char decimal_;
  DelimiterCursor delimiters_;
  const char* at_;  // start of the next line
  const char* last_;
  std::int64_t line_number_ = 0;
  std::string line_;
};

}  // namespace tslm5

#endif  // TSLM5_INMEMORY_RECORD_CONVERTER_H_
