#include "delimited/text_profile.h"

namespace tslm5::delimited {

void DistinctTexts::Add(std::string_view text, std::size_t most) {
  if (const auto place = places_.find(text); place != places_.end()) {
    ++entries_[place->second].count;
  } else if (entries_.size() < most) {
    places_.emplace(text, entries_.size());
    entries_.push_back({std::string(text), 1});
  } else {
    is_cut_ = true;
  }
}

void TextProfile::Add(const FieldBlock& block) {
  columns_.resize(block.Columns());
  for (std::size_t record = 0; record < block.Records(); ++record) {
    const Field* const fields = block.Record(record);
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      ColumnProfile& column = columns_[i];
      column.quoted += fields[i].is_quoted ? 1 : 0;
      if (fields[i].field_class == FieldClass::kNumber) {
        ++column.numbers;
      } else {
        AddOther(fields[i], block.Line(record), column);
      }
    }
  }
}

void TextProfile::AddOther(const Field& field, std::int64_t line, ColumnProfile& column) const {
  const bool is_missing = field.field_class == FieldClass::kMissing;
  std::int64_t& first = is_missing ? column.first_missing : column.first_text;
  if (first == 0) first = line;
  ++(is_missing ? column.missing : column.texts);
  (is_missing ? column.missing_tokens : column.categories).Add(field.Text(), most_distinct_);
}

}  // namespace tslm5::delimited
