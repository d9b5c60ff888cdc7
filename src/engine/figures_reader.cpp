#include "engine/figures_reader.h"

#include "platform/only_errors.h"
#include "tslm5/platform/error.h"

namespace tslm5 {

bool FiguresReader::Read() {
  place_ = place_ == Place::kBefore ? Place::kOnRecord : Place::kBehind;
  return place_ == Place::kOnRecord;
}

const Variant& FiguresReader::Field(std::int32_t index) const {
  if (place_ != Place::kOnRecord) {
    throw Error(error_number::kNoCurrentRecord, "TSLMRep5", "no current record");
  }
  if (index < 0 || static_cast<std::size_t>(index) >= figures_.size()) RaiseSubscriptOutOfRange();
  return figures_[static_cast<std::size_t>(index)];
}

std::int32_t FiguresReader::GetInteger(std::int32_t pIndex) try {
  const Variant& field = Field(pIndex);
  return field.IsNull() ? 0 : field.ToInteger();
} catch (...) {
  RaiseAsError();
}

double FiguresReader::GetDouble(std::int32_t pIndex) try {
  const Variant& field = Field(pIndex);
  return field.IsNull() ? 0.0 : field.ToDouble();
} catch (...) {
  RaiseAsError();
}

std::string FiguresReader::GetString(std::int32_t pIndex) try {
  const Variant& field = Field(pIndex);
  return field.IsNull() ? std::string() : field.ToString();
} catch (...) {
  RaiseAsError();
}

void FiguresReader::Close() {
  items_.clear();
  figures_.clear();
  place_ = Place::kBehind;
}

std::int32_t FiguresReader::FieldCount() {
  return static_cast<std::int32_t>(items_.size());
}

std::string FiguresReader::FieldName(std::int32_t pIndex) try {
  if (pIndex < 0 || pIndex >= FieldCount()) RaiseSubscriptOutOfRange();
  return items_[static_cast<std::size_t>(pIndex)].text;
} catch (...) {
  RaiseAsError();
}

Variant FiguresReader::GetValue(std::int32_t pIndex) {
  return OnlyErrors([&] { return Field(pIndex); });
}

bool FiguresReader::IsNull(std::int32_t pIndex) {
  return OnlyErrors([&] { return Field(pIndex).IsNull(); });
}

}  // namespace tslm5
