#include "delimited/sample.h"

#include "delimited/record_ranges.h"

namespace tslm5::delimited {

Sample::Sample(const SampleText& source, const DelimiterRules& rules, const FieldScanner& scanner) {
  using RecordEnd = DelimiterIndex::RecordEnd;
  const char* const text = source.text.data();
  std::size_t begin = OffsetOfLine(source.text, source.skipped_lines);
  std::int64_t line = source.skipped_lines + 1;
  DelimiterIndex index(rules);
  RecordRanges ranges;
  while (begin < source.text.size() && records_.size() < kMostRecords) {
    index.Clear();
    auto result = index.AddRecord(text, begin, source.text.size());
    if (source.is_whole && result.end == RecordEnd::kUnclosed) {
      index.Clear();
      result = index.AddRecord(text, begin, source.text.size(), result.opening_quote);
    }
    if (result.end != RecordEnd::kFound) return;
    SplitRecord(text, begin, index.Places(), index.Count(), rules, ranges);
    if (!ranges.fields.empty()) {
      Record& record = records_.emplace_back(Record{line, {}});
      record.fields.resize(ranges.fields.size());
      for (std::size_t i = 0; i < ranges.fields.size(); ++i) {
        scanner.Scan(ranges.fields[i].first, ranges.fields[i].last, record.fields[i], arena_);
      }
    }
    line += static_cast<std::int64_t>(CountLineEnds(text + begin, text + ranges.end));
    begin = ranges.end;
  }
}

void Sample::Classify(const FieldScanner& scanner) {
  for (Record& record : records_) {
    for (Field& field : record.fields) {
      field.field_class = scanner.Classify(field.Text(), field.value);
    }
  }
}

std::size_t OffsetOfLine(std::string_view text, std::int64_t lines) {
  std::size_t at = 0;
  for (; lines > 0 && at < text.size(); --lines) {
    at = text.find_first_of("\r\n", at);
    if (at == std::string_view::npos) return text.size();
    at += text.substr(at).starts_with("\r\n") ? 2 : 1;
  }
  return at;
}

}  // namespace tslm5::delimited
