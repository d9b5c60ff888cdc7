#ifndef TSLM5_DELIMITED_PLAIN_RECORDS_H_
#define TSLM5_DELIMITED_PLAIN_RECORDS_H_

#include <cstddef>
#include <cstdint>

#include "delimited/number_masks.h"

namespace tslm5::delimited {

/// What a plain record looks like: `fields` numbers with single separators between them, and
/// nothing else.
struct PlainShape {
  char separator = ',';  ///< '\0' for lines of one field
  char decimal = '.';    ///< may be the separator: numbers have no decimal sign then
  std::int64_t fields = 1;
};

/// Finds the records in which nothing unusual stands, so that no rule of delimited text has to be
/// asked: each field is a number of the system's grammar (see `ParseNumber`) beyond doubt, fields
/// are divided by single separators, lines are not empty. It looks at 64 bytes at a time: the
/// grammar is a few operations on their masks. What it does not take may still be a record, and
/// even a plain one (a number of a hundred digits, say): whoever asks has a careful way as well.
class PlainRecords {
 public:
  explicit PlainRecords(const PlainShape& shape, MaskWay way = BestMaskWay());

  struct Run {
    std::int64_t records = 0;
    const char* end = nullptr;  ///< behind the last one's line feed
  };

  /// The plain records at the beginning of [first, last), where a line begins. The text's end ends
  /// a line as a line feed does.
  Run Count(const char* first, const char* last) const;

 private:
  NumberSigns signs_;
  std::uint64_t possible_points_;  // no bit where the decimal sign is the separator
  std::int64_t separators_;        // of a record
  NumberMaskFunction masks_of_;
};

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_PLAIN_RECORDS_H_
