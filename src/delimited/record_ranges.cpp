#include "delimited/record_ranges.h"

#include <algorithm>

namespace tslm5::delimited {
namespace {

bool IsBlank(const FieldRange& field) {
  return std::all_of(field.first, field.last, [](char c) { return c == ' ' || c == '\t'; });
}

}  // namespace

void SplitRecord(const char* text, std::size_t begin, const std::uint32_t* places,
                 std::size_t count, const DelimiterRules& rules, RecordRanges& record) {
  record.fields.clear();
  record.places_used = 0;
  const bool merges_blanks = rules.separator == ' ';
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t place = places[i];
    if (!merges_blanks || place != begin) record.fields.push_back({text + begin, text + place});
    begin = place + 1;
    if (rules.IsSeparator(text[place])) continue;
    record.places_used = i + 1;
    if (text[place] == '\r' && text[begin] == '\n') {
      record.places_used += i + 1 < count && places[i + 1] == begin ? 1U : 0U;
      ++begin;
    }
    record.end = begin;
    if (record.fields.size() == 1 && IsBlank(record.fields[0])) record.fields.clear();
    return;
  }
}

}  // namespace tslm5::delimited
