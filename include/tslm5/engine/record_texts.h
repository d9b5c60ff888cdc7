#ifndef TSLM5_ENGINE_RECORD_TEXTS_H_
#define TSLM5_ENGINE_RECORD_TEXTS_H_

#include <span>
#include <string_view>

#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// A face of a reader for whole records of text: one call a record, and no string a field.
class IRecordTexts : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000046ULL, 0x8a1f4c0b6d2e7346ULL};

  /// Points `pTexts` at the texts of the first fields of the current record, as many as it has
  /// elements, each what `GetString` gives. They live until the next call of the reader. Raises
  /// what `GetString` raises: 100 when the reader is not on a record, 9 for more elements than
  /// fields.
  virtual void GetTexts(std::span<std::string_view> pTexts) = 0;

 protected:
  ~IRecordTexts() = default;
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_RECORD_TEXTS_H_
