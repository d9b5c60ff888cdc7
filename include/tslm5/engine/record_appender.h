#ifndef TSLM5_ENGINE_RECORD_APPENDER_H_
#define TSLM5_ENGINE_RECORD_APPENDER_H_

#include <cstdint>
#include <span>
#include <string_view>

#include "tslm5/platform/ref.h"
#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// A cell of a record that is to be appended.
struct RecordCell {
  /// What a cell holds.
  /// What it holds.
  enum class Kind : std::int32_t {
    kNull,    ///< nothing
    kNumber,  ///< `number`
    kText,    ///< `text`
  };

  Kind kind = Kind::kNull;  ///< which of the two below counts, if any
  double number = 0.0;      ///< finite, or NaN for NULL
  std::string_view text;    ///< UTF-8 without a NUL character; need not outlive the call
};

/// Appends records to one table, and does for each what an INSERT of the same values does. They
/// may be collected and reach the table together: before any other statement, reader or record set
/// of the connection looks at it, before a transaction inside begins, and at the commit. An error
/// of a record can therefore come later than its call; the transaction cannot be committed then. A
/// rollback drops what it undoes. Letting go of the appender keeps what was appended.
/// Each operation raises what the INSERT raises, and 1 for another number of cells than `Columns`
/// or a text with a NUL character, 6 for an infinite number; the record is not appended then.
/// Caller's thread only.
class IRecordAppender : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d3500004aULL, 0x8a1f4c0b6d2e734aULL};

  /// Cells of a record: the columns of the table, in its order, without the key.
  virtual std::int32_t Columns() = 0;
  /// Appends a record of numbers, NaN for NULL, under `pKey`.
  virtual void AppendNumbers(std::span<const double> pNumbers, std::int64_t pKey) = 0;
  /// Appends a record of any cells under `pKey`.
  virtual void AppendCells(std::span<const RecordCell> pCells, std::int64_t pKey) = 0;
  /// Writes what is collected to the table.
  virtual void Flush() = 0;

 protected:
  ~IRecordAppender() = default;
};

/// A face of a connection for loading many records.
class IRecordAppending : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000049ULL, 0x8a1f4c0b6d2e7349ULL};

  /// An appender to `pTableName` (case does not matter); empty unless that is an ordinary table of
  /// the run with a key (INTEGER PRIMARY KEY), which statements alone can fill. It is fastest for
  /// records in the order of their keys, inside a transaction, into a table of numbers and texts
  /// (FLOAT, TEXT) without indexes, triggers and constraints.
  virtual Ref<IRecordAppender> OpenAppender(std::string_view pTableName) = 0;

 protected:
  ~IRecordAppending() = default;
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_RECORD_APPENDER_H_
