#include "storage/row_insert_text.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>

#include "storage/line_numbers.h"
#include "storage/run_statements.h"
#include "support/byte_block.h"
#include "support/utf8.h"
#include "tslm5/platform/error.h"
#include "tslm5/platform/number_text.h"

namespace tslm5 {
namespace {

constexpr std::string_view kNullText = "NULL";
constexpr std::string_view kTail = ");";
constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";
constexpr std::size_t kLongestFinite = 200;  // so many digits and an exponent of 99: below 10^308
constexpr std::size_t kShownCharacters = 15;
constexpr std::size_t kTextOfOneBlank = 6;  // "NULL, " for an empty field, "', '" for another
constexpr std::size_t kRoomForRow = 64;     // the quotes around, the row number and the tail

char* Copy(char* out, std::string_view text) {
  std::memcpy(out, text.data(), text.size());
  return out + text.size();
}

/// Copies [p, end) to `out` up to a blank, an apostrophe or a NUL character and moves `out` on; the
/// place where it stopped. `out` has room for as many bytes as [p, end) has. `has_exponent` says
/// whether there was an "e" of either case.
const char* CopyField(const char* p, const char* end, char*& out, bool& has_exponent) {
  unsigned marks = 0;
  while (end - p >= static_cast<std::ptrdiff_t>(ByteScan::ByteBlock::kSize)) {
    const ByteScan::ByteBlock block(p);
    std::memcpy(out, p, ByteScan::ByteBlock::kSize);
    const unsigned exponents = block.Equal('e') | block.Equal('E');
    if (const unsigned stops = block.Equal(' ') | block.Equal('\'') | block.Equal('\0')) {
      out += std::countr_zero(stops);
      has_exponent = ((exponents & (stops ^ (stops - 1))) | marks) != 0;
      return p + std::countr_zero(stops);
    }
    marks |= exponents;
    p += ByteScan::ByteBlock::kSize;
    out += ByteScan::ByteBlock::kSize;
  }
  for (; p != end && *p != ' ' && *p != '\'' && *p != '\0'; ++p) {
    marks |= static_cast<unsigned>((*p | 0x20) == 'e');
    *out++ = *p;
  }
  has_exponent = marks != 0;
  return p;
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// Whether a field can be no number beyond a double: it is short, and its exponent, where it has
/// one, has two digits at most.
bool IsSurelyFinite(std::string_view field, bool has_exponent) {
  if (field.size() > kLongestFinite) return false;
  if (!has_exponent || field.size() < 3) return true;
  const char* const end = field.data() + field.size();
  return IsDigit(end[-1]) && !(IsDigit(end[-2]) && IsDigit(end[-3]));
}

const char* SkipDigits(const char* p, const char* end) {
  return std::find_if_not(p, end, IsDigit);
}

/// Whether the database would make an infinity of a text: it has the form of a number, but no
/// double can hold it. White space around it does not count there.
bool IsTooLarge(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kWhiteSpace);
  if (first == std::string_view::npos) return false;
  text = text.substr(first, text.find_last_not_of(kWhiteSpace) + 1 - first);
  double value = 0.0;
  if (ParseNumber(text, '.', value)) return false;

  const char* const end = text.data() + text.size();
  const char* p = text.data();
  if (*p == '-' || *p == '+') ++p;
  const char* const digits = p;
  p = SkipDigits(p, end);
  auto count = p - digits;
  if (p != end && *p == '.') {
    const char* const fraction = ++p;
    p = SkipDigits(p, end);
    count += p - fraction;
  }
  if (count == 0 || p == end) return count != 0;
  if (*p != 'e' && *p != 'E') return false;
  if (++p != end && (*p == '-' || *p == '+')) ++p;
  return p != end && SkipDigits(p, end) == end;
}

[[noreturn]] void RaiseUnstorable(std::int32_t row, std::int32_t column, const std::string& what) {
  throw Error(error_number::kInvalidData, "ParseArray",
              "Row " + std::to_string(row) + ", column " + std::to_string(column) + " holds " +
                  what + ", which a data table does not take.");
}

std::string TooLargeNumber(std::string_view field) {
  return "a number too large for a double, " +
         std::string(Utf8::FirstCharacters(field, kShownCharacters));
}

}  // namespace

RowInsertText::RowInsertText(std::string_view table_name, bool decimal_is_comma)
    : decimal_is_comma_(decimal_is_comma) {
  const std::string head = InsertRowHead(table_name);
  head_size_ = head.size();
  buffer_.assign(head.begin(), head.end());
  BeginNumbers();
}

char* RowInsertText::Reserve(std::size_t size) {
  if (buffer_.size() < buffer_size_ + size) {
    buffer_.resize(std::max(buffer_size_ + size, buffer_.size() * 2));
  }
  return buffer_.data() + buffer_size_;
}

std::string_view RowInsertText::FromLine(std::string_view line, std::int32_t row) {
  while (!line.empty() && line.front() == ' ') line.remove_prefix(1);
  while (!line.empty() && line.back() == ' ') line.remove_suffix(1);
  buffer_size_ = head_size_;
  const auto blanks = static_cast<std::size_t>(std::count(line.begin(), line.end(), ' '));
  char* out = Reserve(line.size() + (blanks + 1) * kTextOfOneBlank + kRoomForRow);

  fields_ = 0;
  const char* p = line.data();
  const char* const end = p + line.size();
  for (;;) {
    ++fields_;
    char* const start = out;
    *out++ = '\'';
    bool has_exponent = false;
    p = CopyField(p, end, out, has_exponent);
    if (p != end && *p != ' ') {
      RaiseUnstorable(row, fields_, *p == '\0' ? "a NUL character" : "an apostrophe");
    }
    if (decimal_is_comma_) std::replace(start, out, ',', '.');
    const std::string_view field(start + 1, static_cast<std::size_t>(out - start - 1));
    if (!IsSurelyFinite(field, has_exponent) && IsTooLarge(field)) {
      RaiseUnstorable(row, fields_, TooLargeNumber(field));
    }
    if (IsMissingField(field)) {
      out = Copy(start, kNullText);
    } else {
      *out++ = '\'';
    }
    *out++ = ',';
    if (p == end) break;
    ++p;
  }
  *out++ = ' ';
  out = std::to_chars(out, out + kRoomForRow / 2, row).ptr;
  return End(out);
}

void RowInsertText::AddNumber(double value) {
  if (std::isinf(value)) {
    throw Error(error_number::kOverflow, "", "An infinite number cannot be stored.");
  }
  char* out = Reserve(kNumberTextSize + 1);
  out = std::isnan(value) ? Copy(out, kNullText) : WriteNumber(out, value);
  *out++ = ',';
  buffer_size_ = static_cast<std::size_t>(out - buffer_.data());
}

std::string_view RowInsertText::EndNumbers(std::int32_t row) {
  char* out = Reserve(kRoomForRow);
  out = std::to_chars(out, out + kRoomForRow / 2, row).ptr;
  return End(out);
}

std::string_view RowInsertText::EndNumbers() {
  Reserve(kTail.size());
  return End(buffer_.data() + std::max(head_size_, buffer_size_ - 1));  // without the last ","
}

std::string_view RowInsertText::End(char* out) {
  out = Copy(out, kTail);
  return {buffer_.data(), static_cast<std::size_t>(out - buffer_.data())};
}

}  // namespace tslm5
