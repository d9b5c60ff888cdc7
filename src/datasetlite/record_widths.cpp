#include "datasetlite/record_widths.h"

#include <algorithm>
#include <iterator>

#include "support/text_split.h"
#include "support/utf8.h"

namespace tslm5 {
namespace {

constexpr std::string_view kStrays = "\t;";

/// A line as it is stored: trimmed, and without strays, which `buffer` is for.
std::string_view Stored(std::string_view line, bool may_have_strays, std::string& buffer) {
  if (may_have_strays && line.find_first_of(kStrays) != std::string_view::npos) {
    buffer.clear();
    std::copy_if(line.begin(), line.end(), std::back_inserter(buffer),
                 [](char c) { return kStrays.find(c) == std::string_view::npos; });
    line = buffer;
  }
  return Utf8::TrimBlanks(line);
}

std::int64_t CountFields(std::string_view line) {
  return std::count(line.begin(), line.end(), ' ') + 1;
}

std::string Fields(std::int64_t count) {
  return std::to_string(count) + (count == 1 ? " field" : " fields");
}

/// "Line 3", as a sentence begins.
std::string Place(std::string_view unit, std::int64_t number) {
  std::string place(unit);
  if (!place.empty() && place[0] >= 'a') place[0] = static_cast<char>(place[0] - 'a' + 'A');
  return place + " " + std::to_string(number);
}

}  // namespace

std::optional<UnevenRecord> FindUnevenRecord(std::string_view text, std::int64_t first_line) {
  bool may_have_strays = false;
  for (const char stray : kStrays) {
    may_have_strays = may_have_strays || text.find(stray) != std::string_view::npos;
  }
  UnevenRecord record;
  std::string buffer;
  record.line = first_line;
  LineCursor lines(text);
  for (std::string_view line; lines.Next(line); ++record.line) {
    line = Stored(line, may_have_strays, buffer);
    if (line.empty()) continue;
    record.fields = CountFields(line);
    if (record.first_fields == 0) {
      record.first_line = record.line;
      record.first_fields = record.fields;
    }
    if (record.fields != record.first_fields) return record;
  }
  return std::nullopt;
}

bool IsAmbiguous(std::string_view line, std::string_view separator, std::string_view blanked) {
  std::string buffer;
  const std::string_view stored = Stored(blanked, true, buffer);
  std::int64_t values = 0;
  FieldCursor words(stored, " ");
  for (std::string_view word; words.Next(word);) values += word.empty() ? 0 : 1;
  std::int64_t fields = 0;
  FieldCursor cursor(line, separator);
  for (std::string_view field; cursor.Next(field);) ++fields;
  return values != 0 && values == fields && values != CountFields(stored);
}

std::string UnevenRecordText(const UnevenRecord& record, std::string_view unit) {
  std::string text = Place(unit, record.line) + " has " + Fields(record.fields);
  text += ", but the first record";
  if (unit == kLineUnit) text += ", on line " + std::to_string(record.first_line) + ",";
  text += " has " + std::to_string(record.first_fields);
  text += "; an empty value counts as a field. Correct or remove the ";
  return text.append(unit) += ".";
}

std::string AmbiguousRecordText(std::int64_t line, std::string_view unit) {
  return Place(unit, line) +
         " has an empty value between two separators and a blank inside another value, so that its "
         "number of fields is not certain. Remove the blank, or write the missing value as \"?\".";
}

std::string NulText(std::string_view text, std::int64_t first_line, std::string_view unit) {
  const std::string_view before = text.substr(0, text.find('\0'));
  const auto line = first_line + std::count(before.begin(), before.end(), '\n');
  return Place(unit, line) +
         " holds a NUL character: the file is not text in a known encoding. Save it as UTF-8.";
}

}  // namespace tslm5
