#ifndef TSLM5_ENGINE_DATA_READER_H_
#define TSLM5_ENGINE_DATA_READER_H_

#include <cstdint>
#include <string>

#include "tslm5/platform/unknown.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// A forward-only result of a SELECT. It starts before the first record. Field indexes are
/// zero-based. An open reader keeps its tables from being dropped: close it or let go of it.
/// A getter raises 100 "no current record" when the reader is not on a record, 9 for a field that
/// is not there, and otherwise what the engine raises. Caller's thread only.
class IDataReader : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000041ULL, 0x8a1f4c0b6d2e7341ULL};

  /// Moves to the next record; false at the end.
  virtual bool Read() = 0;
  /// The field as a whole number; 0 for NULL. A value outside 32 bits raises 6.
  virtual std::int32_t GetInteger(std::int32_t pIndex) = 0;
  /// The field as a double; 0 for NULL.
  virtual double GetDouble(std::int32_t pIndex) = 0;
  /// The field as text; "" for NULL.
  virtual std::string GetString(std::int32_t pIndex) = 0;
  /// Ends the reading; may be called again.
  virtual void Close() = 0;
  /// Fields of each record, also before the first one; 0 when closed.
  virtual std::int32_t FieldCount() = 0;
  /// The field's name as the SELECT gives it, also before the first record.
  virtual std::string FieldName(std::int32_t pIndex) = 0;
  /// The field in its own kind: null, integer (double beyond 32 bits), double or string.
  virtual Variant GetValue(std::int32_t pIndex) = 0;
  /// The field is NULL, which the typed getters read as 0 or "".
  virtual bool IsNull(std::int32_t pIndex) = 0;

 protected:
  ~IDataReader() = default;
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_DATA_READER_H_
