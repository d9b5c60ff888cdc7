#include "datacheck/row_scanner.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "support/byte_block.h"
#include "support/numeric_test.h"

namespace tslm5 {
namespace {

using ByteScan::ByteBlock;

constexpr int kSureExponentDigits = 2;  // with such an exponent, sixteen characters are finite

/// Whether the first `size` of sixteen bytes are a number beyond doubt. False leaves it open for a
/// number with a long exponent alone.
bool IsSureNumber(const ByteBlock& block, std::size_t size, char decimal) {
  unsigned mantissa = (1U << size) - 1;
  const unsigned digits = block.Digits();
  const unsigned signs = block.Equal('-') | block.Equal('+');
  const unsigned marks = (block.Equal('e') | block.Equal('E')) & mantissa;
  if (marks != 0) {
    const unsigned mark = marks & (~marks + 1);  // the first one
    const unsigned exponent = mantissa & ~(mark | (mark - 1)) & ~(signs & mark << 1);
    const int exponent_digits = std::popcount(exponent);
    if ((exponent & ~digits) != 0 || exponent_digits < 1 || exponent_digits > kSureExponentDigits) {
      return false;
    }
    mantissa = mark - 1;
  }
  mantissa &= ~(signs & 1U);
  const unsigned points = block.Equal(decimal) & mantissa;
  return ((digits | points) & mantissa) == mantissa && (digits & mantissa) != 0 &&
         (points & (points - 1)) == 0;
}

}  // namespace

const char* RowScanner::ScanField(const char* p, bool& is_number) const {
  const auto is_end = [](const char* q) { return *q == ' ' || *q == '\n'; };
  const char* field_end = nullptr;
  if (static_cast<std::size_t>(end_ - p) >= ByteBlock::kSize) {
    const ByteBlock block(p);
    if (const unsigned ends = block.Equal(' ') | block.Equal('\n'); ends != 0) {
      const auto size = static_cast<std::size_t>(std::countr_zero(ends));
      field_end = p + size;
      is_number = IsSureNumber(block, size, decimal_);
      if (is_number) return field_end;
    }
  }
  if (field_end == nullptr) {
    field_end = ByteScan::Find(
        p, end_,
        [](const char* q) {
          const ByteBlock block(q);
          return block.Equal(' ') | block.Equal('\n');
        },
        is_end);
  }
  is_number = IsNumeric({p, static_cast<std::size_t>(field_end - p)}, decimal_);
  return field_end;
}

RowScanner::Row RowScanner::Next() {
  Row row;
  row.is_empty = *at_ == '\n';
  const char* p = SkipBlanks(at_);
  while (p != end_ && *p != '\n') {
    bool is_number = false;
    const char* const field_end = ScanField(p, is_number);
    row.last_field = {p, static_cast<std::size_t>(field_end - p)};
    if (!is_number && row.first_invalid < 0) {
      row.first_invalid = row.fields;
      row.invalid_field = row.last_field;
    }
    ++row.fields;
    p = field_end;
    if (p == end_ || *p == '\n') break;
    const char* const next = SkipBlanks(p);
    // Blanks before the line feed are trimmed; between two of them stands an empty field.
    p = next == end_ || *next == '\n' ? next : p + 1;
  }
  at_ = p == end_ ? p : p + 1;
  return row;
}

std::size_t FindEmptyRowInside(std::string_view text, char separator) {
  constexpr std::size_t kNone = std::string_view::npos;
  const char nothing[] = {' ', '\t', ';', separator, '\n'};
  const std::string_view all_nothing(nothing, sizeof(nothing));
  const std::string_view blanks = all_nothing.substr(0, all_nothing.size() - 1);
  const char* const end = text.data() + text.size();
  const std::size_t first = text.find_first_not_of(all_nothing);
  if (first == kNone) return kNone;
  const char* p = text.data() + first;
  for (;;) {
    // The next line feed with a line feed, blank, tab, ";" or separator after it.
    p = ByteScan::Find<1>(
        p, end,
        [separator](const char* q) {
          const ByteBlock next(q + 1);
          return ByteBlock(q).Equal('\n') & (next.Equal('\n') | next.Equal(' ') | next.Equal('\t') |
                                             next.Equal(';') | next.Equal(separator));
        },
        [](const char* q) { return *q == '\n'; });
    if (p == end) return kNone;
    const std::string_view rest(p + 1, static_cast<std::size_t>(end - p - 1));
    const std::string_view row = rest.substr(0, rest.find('\n'));
    if (row.find_first_not_of(blanks) == kNone) {
      const bool is_inside = rest.find_first_not_of(all_nothing) != kNone;
      return is_inside ? static_cast<std::size_t>(rest.data() - text.data()) : kNone;
    }
    p += 1 + row.size();
  }
}

}  // namespace tslm5
