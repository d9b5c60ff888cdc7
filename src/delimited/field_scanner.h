#ifndef TSLM5_DELIMITED_FIELD_SCANNER_H_
#define TSLM5_DELIMITED_FIELD_SCANNER_H_

#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "delimited/delimiter_index.h"
#include "delimited/exact_number.h"
#include "delimited/field.h"
#include "delimited/text_arena.h"

namespace tslm5::delimited {

/// Makes fields of what stands between delimiters: takes the blanks and the quotes off and tells
/// numbers, missing values and texts apart.
class FieldScanner {
 public:
  /// `tokens` stand for a missing value beside the system's own (`NullHelper`), letter for letter;
  /// a number may be one.
  FieldScanner(const DelimiterRules& rules, char decimal, const std::vector<std::string>& tokens);

  /// The field in [first, last). Its text is a view into that, or into `arena`.
  /// REQUIRES: [first, last + kReadableBehind) can be read; last - first < 2^32.
  void Scan(const char* first, const char* last, Field& field, TextArena& arena) const {
    const auto size = static_cast<std::size_t>(last - first);
    if (ParseExactNumber(first, size, decimal_, field.value) && !has_number_tokens_) {
      field.data = first;
      field.size = static_cast<std::uint32_t>(size);
      field.field_class = FieldClass::kNumber;
      field.is_quoted = false;
      return;
    }
    ScanCarefully(first, last, field, arena);
  }

  /// What a text without blanks and quotes around it is, and its value where it is a number.
  /// REQUIRES: `kReadableBehind` bytes behind it can be read.
  FieldClass Classify(std::string_view text, double& value) const;

  char Decimal() const { return decimal_; }
  /// Whether a text would be a number if the decimal sign were the other one of "." and ",".
  bool IsNumberOtherwise(std::string_view text) const;

 private:
  void ScanCarefully(const char* first, const char* last, Field& field, TextArena& arena) const;
  void TakeQuotesOff(const char* first, const char* last, Field& field, TextArena& arena) const;

  DelimiterRules rules_;
  char decimal_;
  std::set<std::string, std::less<>> tokens_;
  bool has_number_tokens_ = false;
};

/// How many lines end in [first, last): "\n", "\r" and "\r\n" count once each.
std::size_t CountLineEnds(const char* first, const char* last);

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_FIELD_SCANNER_H_
