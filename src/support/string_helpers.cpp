#include "support/string_helpers.h"

#include <cstddef>
#include <cstring>
#include <vector>

#include "support/text_split.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/platform/error.h"

namespace tslm5::StringHelpers {
namespace {

[[noreturn]] void RaiseLongLine(std::size_t line_number, std::size_t field_count) {
  throw Error(error_number::kSubscriptOutOfRange, "RearrangeText",
              "Line " + std::to_string(line_number) +
                  " has more fields than the first line, which has " + std::to_string(field_count) +
                  ".");
}

/// The length of every line of the transposition, without line feeds.
std::vector<std::size_t> MeasureColumns(std::string_view text, std::string_view separator) {
  std::vector<std::size_t> lengths;
  std::string_view line;
  std::string_view field;
  LineCursor lines(text);
  if (lines.Next(line)) {
    for (FieldCursor fields(line, separator); fields.Next(field);) lengths.push_back(field.size());
  }
  for (std::size_t line_number = 2; lines.Next(line); ++line_number) {
    FieldCursor fields(line, separator);
    for (std::size_t k = 0; fields.Next(field); ++k) {
      if (k == lengths.size()) RaiseLongLine(line_number, lengths.size());
      lengths[k] += separator.size() + field.size();
    }
  }
  return lengths;
}

char* Write(std::string_view text, char* to) {
  return to + text.copy(to, text.size());
}

std::string Transpose(std::string_view text, std::string_view separator) {
  const std::vector<std::size_t> lengths = MeasureColumns(text, separator);
  if (lengths.empty()) return {};
  std::size_t size = lengths.size() - 1;
  for (const std::size_t length : lengths) size += length;
  std::string result(size, '\n');

  std::vector<char*> ends;  // of what has been written of each line
  ends.reserve(lengths.size());
  char* start = result.data();
  for (const std::size_t length : lengths) {
    ends.push_back(start);
    start += length + 1;
  }
  std::string_view line;
  std::string_view field;
  bool is_first = true;
  for (LineCursor lines(text); lines.Next(line); is_first = false) {
    FieldCursor fields(line, separator);
    for (std::size_t k = 0; fields.Next(field); ++k) {
      if (!is_first) ends[k] = Write(separator, ends[k]);
      ends[k] = Write(field, ends[k]);
    }
  }
  return result;
}

void MoveFirstFieldsToEnd(std::string& text, std::string_view separator) {
  if (separator.empty()) return;
  std::string first_field;
  std::string_view line;
  for (LineCursor lines(text); lines.Next(line);) {
    const std::size_t size = line.find(separator);
    if (size == std::string_view::npos) continue;
    const std::size_t rest = line.size() - size - separator.size();
    char* const start = text.data() + (line.data() - text.data());
    first_field.assign(line, 0, size);
    std::memmove(start, start + size + separator.size(), rest);
    Write(first_field, Write(separator, start + rest));
  }
}

}  // namespace

std::string RearrangeText(std::string text, std::string_view separator, std::int32_t layout) {
  if (layout == layout_code::kRecordsInColumns) return Transpose(text, separator);
  if (layout == layout_code::kResponseFirst) MoveFirstFieldsToEnd(text, separator);
  return text;
}

}  // namespace tslm5::StringHelpers
