#ifndef TSLM5_HOST_PREPARATION_RECORD_READER_H_
#define TSLM5_HOST_PREPARATION_RECORD_READER_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "host/preparation/delimited_text.h"
#include "host/preparation/lines.h"

namespace tslm5::host {

/// Walks the records of a text by the loader's rules: the label line is dropped whatever it holds;
/// every separator becomes a blank (runs of blanks become one when the separator is the blank, and
/// blanks beside any other separator go);
/// then tabs and semicolons are deleted; a line of which nothing but blanks is left is an empty
/// line; every other line is a record. The text must outlive the reader.
class RecordReader {
 public:
  explicit RecordReader(const DelimitedText& text);

  /// Moves to the next record; false at the end.
  bool Next();

  /// The 1-based number of the record's line.
  std::int64_t LineNumber() const { return lines_.Number(); }
  /// The line as it stands in the file.
  std::string_view Raw() const { return raw_; }
  /// The line as the loader splits it: at every single blank. Lives until the next `Next`.
  std::string_view Clean() const { return clean_; }
  /// The separators of the line, without the blanks around it; 0 when the separator is none.
  std::size_t SeparatorCount() const { return separator_count_; }
  /// Whether the line lost a tab or a semicolon.
  bool IsChanged() const { return is_changed_; }

  /// Of the lines walked so far.
  std::int64_t Lines() const { return lines_.Number(); }
  std::int64_t LabelLines() const { return label_lines_; }
  std::int64_t EmptyLines() const { return empty_lines_; }

 private:
  void CleanLine();

  LineCursor lines_;
  char separator_;
  std::int64_t label_lines_ = 0;
  std::int64_t empty_lines_ = 0;
  std::string_view raw_;
  std::string_view clean_;
  std::string buffer_;
  std::size_t separator_count_ = 0;
  bool is_changed_ = false;
};

/// `raw` with every separator turned into a blank and nothing deleted: where the clean line lost a
/// character, this one still has it.
std::string WithBlanks(std::string_view raw, const Separator& separator);

/// Whether the loader deletes `c` from a line whose separators were turned into blanks.
inline bool IsDeleted(char c) {
  return c == '\t' || c == ';';
}

/// How many labels the loader finds in the label line of a file with `columns` columns. It splits
/// at separators and blanks alike; where that gives another number than `columns` and splitting at
/// the separator alone gives just that, it takes the latter.
std::size_t CountLabels(std::string_view label_line, const Separator& separator,
                        std::size_t columns);

/// What is wrong with a record of `fields` fields where the first one has others: `place` tells
/// where it stands.
std::string UnevenRecord(const std::string& place, std::size_t fields, std::int64_t first_line,
                         std::size_t first_fields);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_RECORD_READER_H_
