#ifndef TSLM5_ORIGINAL_ORIGINAL_ROWS_H_
#define TSLM5_ORIGINAL_ORIGINAL_ROWS_H_

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tslm5/engine/connection.h"
#include "tslm5/engine/record_texts.h"
#include "tslm5/platform/ref.h"

namespace tslm5 {

/// The records of a SELECT of whole rows of `OriginalData`: the texts of the data columns in their
/// order, and the key, which is the field named "row" wherever it stands. NULL reads "" and, as a
/// key, 0. Raises 41011 for a table without that field.
class OriginalRows {
 public:
  OriginalRows(IConnection& connection, std::string_view sql);

  /// Moves to the next record; false at the end.
  bool Next();
  std::int32_t Key() const { return key_; }
  /// The texts of the current record, which live until the next call of `Next`.
  std::span<const std::string_view> Texts() const { return texts_; }

 private:
  std::int32_t RowField() const;
  void ReadTexts();

  Ref<IDataReader> reader_;
  Ref<IRecordTexts> records_;  // empty when the reader has no such face
  std::int32_t fields_;
  std::int32_t row_field_;
  std::int32_t key_ = 0;
  std::vector<std::string> strings_;  // what the texts are of when there is no such face
  std::vector<std::string_view> texts_;
};

}  // namespace tslm5

#endif  // TSLM5_ORIGINAL_ORIGINAL_ROWS_H_
