#include "storage/row_insert_text.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>

#include "storage/run_statements.h"
#include "support/byte_block.h"
#include "support/null_helper.h"
#include "tslm5/platform/error.h"
#include "tslm5/platform/number_text.h"

namespace tslm5 {
namespace {

constexpr std::string_view kNullText = "NULL";
constexpr std::string_view kTail = ");";
constexpr std::size_t kLongestToken = 4;
constexpr std::size_t kTextOfOneBlank = 6;  // "NULL, " for an empty field, "', '" for another
constexpr std::size_t kRoomForRow = 64;     // the quotes around, the row number and the tail

char* Copy(char* out, std::string_view text) {
  std::memcpy(out, text.data(), text.size());
  return out + text.size();
}

/// Copies [p, end) to `out` up to a blank, an apostrophe or a NUL character and moves `out` on; the
/// place where it stopped. `out` has room for as many bytes as [p, end) has.
const char* CopyField(const char* p, const char* end, char*& out) {
  while (end - p >= static_cast<std::ptrdiff_t>(ByteScan::ByteBlock::kSize)) {
    const ByteScan::ByteBlock block(p);
    std::memcpy(out, p, ByteScan::ByteBlock::kSize);
    if (const unsigned stops = block.Equal(' ') | block.Equal('\'') | block.Equal('\0')) {
      out += std::countr_zero(stops);
      return p + std::countr_zero(stops);
    }
    p += ByteScan::ByteBlock::kSize;
    out += ByteScan::ByteBlock::kSize;
  }
  for (; p != end && *p != ' ' && *p != '\'' && *p != '\0'; ++p) *out++ = *p;
  return p;
}

bool MayBeMissing(std::string_view field) {
  if (field.empty()) return true;
  const char first = field.front();
  return field.size() <= kLongestToken &&
         (first == '.' || first == '?' || first == 'N' || first == 'n') &&
         NullHelper::IsMissingToken(field);
}

[[noreturn]] void RaiseUnstorable(std::int32_t row, std::int32_t column, char c) {
  throw Error(error_number::kInvalidData, "ParseArray",
              "Row " + std::to_string(row) + ", column " + std::to_string(column) +
                  (c == '\0' ? " holds a NUL character" : " holds an apostrophe") +
                  ", which a data table does not take.");
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
    p = CopyField(p, end, out);
    if (p != end && *p != ' ') RaiseUnstorable(row, fields_, *p);
    if (decimal_is_comma_) std::replace(start, out, ',', '.');
    if (MayBeMissing({start + 1, static_cast<std::size_t>(out - start - 1)})) {
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
