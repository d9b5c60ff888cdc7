#ifndef TSLM5_INMEMORY_RECORD_WALKER_H_
#define TSLM5_INMEMORY_RECORD_WALKER_H_

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "delimited/exact_number.h"
#include "inmemory/delimiter_cursor.h"
#include "tslm5/platform/number_text.h"

namespace tslm5 {

/// Walks over the fields of a text, line after line, where they stand.
class RecordWalker {
 public:
  /// `text` has no empty line, no run of separators, and no blank that is none. `separator` is
  /// empty for one field a line. `columns` is the number of fields that every line must have; a
  /// separator at either end of a line is none of them.
  RecordWalker(std::string_view text, std::string_view separator, std::int32_t columns)
      : separator_(separator.empty() ? '\n' : separator[0]),
        columns_(columns),
        delimiters_(text, separator_),
        at_(text.data()),
        last_(text.data() + text.size()) {}

  /// Hands the fields of the next line, which must be there, to `take(column, first, last)`, which
  /// says whether to go on; the last one goes to `last_field` too, a view into the text. A line
  /// that ends with a separator in the place of its last field has an empty one there. False for a
  /// field that was not taken and for a line of another width: the walk ends there.
  template <class Take>
  bool Next(std::string_view& last_field, Take take) {
    ++line_number_;
    const char* field = at_;
    if (*field == separator_) field = delimiters_.Next() + 1;
    for (std::int32_t column = 0;; ++column) {
      const char* end = delimiters_.Next();
      if (!take(column, field, end)) return false;
      const bool ends_line = end == last_ || *end == '\n';
      if (column == columns_ - 1) {
        last_field = {field, static_cast<std::size_t>(end - field)};
        if (!ends_line) {  // a separator, which must be the last of the line
          const char* const behind = end + 1;
          end = delimiters_.Next();
          if (end != behind || (end != last_ && *end != '\n')) return false;
        }
        at_ = end == last_ ? last_ : end + 1;
        return true;
      }
      if (ends_line) return false;
      field = end + 1;
    }
  }

  /// The line where the walk ended, or the next one.
  std::string_view Line() const {
    const std::string_view rest(at_, static_cast<std::size_t>(last_ - at_));
    return rest.substr(0, rest.find('\n'));
  }
  /// The number of the line that was walked last, from 1.
  std::int64_t LineNumber() const { return line_number_; }
  /// Where the text ends.
  const char* TextEnd() const { return last_; }

 private:
  char separator_;
  std::int32_t columns_;
  DelimiterCursor delimiters_;
  const char* at_;  // start of the next line
  const char* last_;
  std::int64_t line_number_ = 0;
};

/// The number between `first` and `last`, in a text that ends at `text_end`, see `ParseNumber`.
inline bool ReadNumber(const char* first, const char* last, const char* text_end, char decimal,
                       double& value) {
  const auto size = static_cast<std::size_t>(last - first);
  const auto readable = static_cast<std::size_t>(text_end - first);
  return (readable >= delimited::kExactNumberReads &&
          delimited::ParseExactNumber(first, size, decimal, value)) ||
         ParseNumber({first, size}, decimal, value);
}

}  // namespace tslm5

#endif  // TSLM5_INMEMORY_RECORD_WALKER_H_
