#include "original/original_rows.h"

#include <algorithm>

#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

/// Whether a field is the key: names of a database do not tell case apart.
bool IsRow(std::string_view name) {
  constexpr std::string_view kRow = "row";
  return std::equal(name.begin(), name.end(), kRow.begin(), kRow.end(),
                    [](char left, char right) { return (left | 0x20) == right; });
}

}  // namespace

OriginalRows::OriginalRows(IConnection& connection, std::string_view sql)
    : reader_(connection.ExecuteReader(sql)),
      records_(reader_.As<IRecordTexts>()),
      fields_(reader_->FieldCount()),
      row_field_(RowField()) {}

std::int32_t OriginalRows::RowField() const {
  for (std::int32_t field = 0; field < fields_; ++field) {
    if (IsRow(reader_->FieldName(field))) return field;
  }
  throw Error(error_number::kInvalidData, "Open", "The original data have no column \"row\".");
}

bool OriginalRows::Next() {
  if (!reader_->Read()) return false;
  key_ = reader_->GetInteger(row_field_);
  ReadTexts();
  return true;
}

void OriginalRows::ReadTexts() {
  // Where the key is the last field its text is not asked for.
  const bool key_is_last = row_field_ == fields_ - 1;
  texts_.resize(static_cast<std::size_t>(key_is_last ? fields_ - 1 : fields_));
  if (records_) {
    records_->GetTexts(texts_);
  } else {
    strings_.resize(texts_.size());
    for (std::size_t field = 0; field < texts_.size(); ++field) {
      strings_[field] = reader_->GetString(static_cast<std::int32_t>(field));
      texts_[field] = strings_[field];
    }
  }
  if (!key_is_last) texts_.erase(texts_.begin() + row_field_);
}

}  // namespace tslm5
