#ifndef TSLM5_DELIMITED_RECORD_RANGES_H_
#define TSLM5_DELIMITED_RECORD_RANGES_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "delimited/delimiter_index.h"

namespace tslm5::delimited {

/// Where a field stands in a text, with the blanks and quotes around it.
struct FieldRange {
  const char* first;
  const char* last;
};

/// One record of a text as the places of its fields.
struct RecordRanges {
  std::vector<FieldRange> fields;  ///< none for an empty line or one of blanks alone
  std::size_t places_used = 0;     ///< 0 where the record's line end is not among the places
  std::size_t end = 0;             ///< where the next record begins, relative to the text
};

/// Splits the record that begins at `begin` by the delimiters from `places` on, of which there are
/// `count`. Where blanks are the separator, a run of them is one, and none at the ends of a line.
/// REQUIRES: one byte behind the last place can be read.
void SplitRecord(const char* text, std::size_t begin, const std::uint32_t* places,
                 std::size_t count, const DelimiterRules& rules, RecordRanges& record);

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_RECORD_RANGES_H_
