#ifndef TSLM5_ENGINE_RECORD_SET_H_
#define TSLM5_ENGINE_RECORD_SET_H_

#include <cstdint>

#include "tslm5/platform/unknown.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// A buffered, positionable result of a SELECT. Record numbers are 1-based, field indexes
/// zero-based. It keeps no statement open, and serves the table as it is now: after a write to it
/// through its connection the next read looks again, keeping the position by record number.
/// Records are fetched in blocks when they are first read. A pointer borrowed from a `Ref` is good
/// while that reference is held: a use after the release is not detected. Caller's thread only.
class IRecordSet : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000042ULL, 0x8a1f4c0b6d2e7342ULL};

  /// Writes what is pending and lets go of the buffer; a closed record set has no records.
  virtual void Close() = 0;
  /// Makes `pRecordNumber` the current record; `pOrigin` is 0. Past the end: see `EndOfFile`.
  virtual void MoveTo(std::int32_t pRecordNumber, std::int32_t pOrigin) = 0;
  /// True when there is no current record.
  virtual bool EndOfFile() = 0;
  /// A field of the current record. Raises 100 when there is none, 9 for an absent field.
  virtual Variant GetField(const Variant& pFieldIndex) = 0;
  /// Writes a field of the current record: the buffer shows it at once, the table gets all pending
  /// changes in one transaction at `Update`, at `Close`, and before any other statement of the
  /// connection. Only a record set over a whole table can be written, else 5; SQLite's 8 on a run
  /// opened for reading. A change that its table refuses for good is dropped, with the error that
  /// the writing raises.
  virtual void SetField(const Variant& pFieldIndex, const Variant& pValue) = 0;
  /// Fields of each record, the key `row` of a data table among them; 0 when closed.
  virtual std::int32_t FieldCount() = 0;
  /// Number of records as the table is now; 0 when closed.
  virtual std::int32_t RecordCount() = 0;
  /// Writes the pending changes to the table.
  virtual void Update() = 0;
  /// Reads a field of any record as a number without moving; false when there is no such cell.
  /// A cell that holds no number (NULL, or text that is not one) reads as NaN.
  /// The fast way: one call a cell, no variant.
  virtual bool ReadNumber(std::int32_t pRecordNumber, std::int32_t pFieldIndex, double* pValue) = 0;

 protected:
  ~IRecordSet() = default;
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_RECORD_SET_H_
