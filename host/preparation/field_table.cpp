#include "host/preparation/field_table.h"

#include <fmt/format.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <numeric>
#include <set>

#include "host/preparation/cell_survey.h"
#include "host/preparation/record_reader.h"
#include "host/program/failure.h"
#include "host/program/interruption.h"
#include "host/program/shown_text.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

constexpr std::size_t kRecordsBetweenLooks = 4096;

std::string_view WithoutSpace(std::string_view field) {
  constexpr std::string_view kSpace = " \t\r\v\f";
  const std::size_t first = field.find_first_not_of(kSpace);
  if (first == std::string_view::npos) return {};
  return field.substr(first, field.find_last_not_of(kSpace) - first + 1);
}

/// The labels, or none where a number or a repeated word says that they are no labels.
std::vector<std::string> TakeLabels(const std::vector<std::string_view>& words,
                                    bool comma_is_decimal) {
  std::vector<std::string> labels;
  std::set<std::string> seen;
  for (const std::string_view word : words) {
    double number = 0.0;
    std::string folded;
    icu::UnicodeString::fromUTF8({word.data(), static_cast<std::int32_t>(word.size())})
        .foldCase()
        .toUTF8String(folded);
    if (ParseNumber(word, comma_is_decimal ? ',' : '.', number)) return {};
    if (!seen.insert(folded).second) return {};
    labels.emplace_back(word);
  }
  return labels;
}

class FieldReader {
 public:
  explicit FieldReader(const DelimitedText& text) : text_(text), reader_(text) {
    if (text.is_transposed) table_.place_word = "transposed line";
  }

  FieldTable Read(bool comma_is_decimal) {
    while (reader_.Next()) {
      if (table_.Records() % kRecordsBetweenLooks == 0) StopIfInterrupted();
      SplitLine(reader_.Raw(), *text_.separator, fields_);
      if (table_.Records() == 0) TakeWidth();
      if (fields_.size() != table_.columns) RefuseWidth();
      NoteGap();
      table_.places.push_back(reader_.LineNumber());
      for (const std::string_view field : fields_) table_.fields.push_back(WithoutSpace(field));
    }
    table_.lines = reader_.Lines();
    table_.label_lines = reader_.LabelLines();
    table_.empty_lines = reader_.EmptyLines();
    if (table_.Records() == 0) Refuse(NoRecords(reader_, text_));
    if (table_.label_lines > 0) TakeLabelLine(comma_is_decimal);
    return std::move(table_);
  }

 private:
  void TakeWidth() {
    table_.columns = fields_.size();
    table_.file_columns.resize(table_.columns);
    std::iota(table_.file_columns.begin(), table_.file_columns.end(), std::size_t{0});
    if (table_.columns > kMostColumns) {
      Refuse(fmt::format("{} {} has {} columns; a run holds {} at most", table_.place_word,
                         reader_.LineNumber(), table_.columns, kMostColumns));
    }
  }

  void NoteGap() {
    if (table_.first_gap || table_.Records() == 0) return;
    if (reader_.LineNumber() > table_.places.back() + 1) {
      table_.first_gap = table_.places.back() + 1;
    }
  }

  [[noreturn]] void RefuseWidth() const {
    Refuse(UnevenRecord(fmt::format("{} {}", table_.place_word, reader_.LineNumber()),
                        fields_.size(), table_.places.front(), table_.columns));
  }

  void TakeLabelLine(bool comma_is_decimal) {
    std::string_view line;
    LineCursor(text_.text).Next(line);
    SplitLine(line, *text_.separator, fields_);
    for (std::string_view& field : fields_) field = WithoutSpace(field);
    if (fields_.size() != table_.columns) {
      Refuse(fmt::format("the label line has {} labels, but the records have {} columns: {}",
                         fields_.size(), table_.columns, Quoted(line)));
    }
    table_.labels = TakeLabels(fields_, comma_is_decimal);
  }

  const DelimitedText& text_;
  RecordReader reader_;
  std::vector<std::string_view> fields_;
  FieldTable table_;
};

}  // namespace

std::string FieldTable::LabelOf(std::size_t column) const {
  return labels.empty() ? fmt::format("d{}", column) : labels[column];
}

std::string FieldTable::PlaceOf(std::size_t record, std::size_t column) const {
  return fmt::format("{} {}, column {} ({})", place_word, places[record], file_columns[column] + 1,
                     Cut(LabelOf(column)));
}

FieldTable ReadFields(const DelimitedText& text, bool comma_is_decimal) {
  return FieldReader(text).Read(comma_is_decimal);
}

void MoveToEnd(FieldTable& table, std::size_t column) {
  const auto place = static_cast<std::ptrdiff_t>(column);
  const auto rotate = [place](auto from, auto end) {
    std::rotate(from + place, from + place + 1, end);
  };
  rotate(table.file_columns.begin(), table.file_columns.end());
  if (!table.labels.empty()) rotate(table.labels.begin(), table.labels.end());
  const auto width = static_cast<std::ptrdiff_t>(table.columns);
  for (auto record = table.fields.begin(); record != table.fields.end(); record += width) {
    rotate(record, record + width);
  }
}

}  // namespace tslm5::host
