#ifndef TSLM5_RUN_RUN_CATALOG_H_
#define TSLM5_RUN_RUN_CATALOG_H_

#include <cstdint>
#include <string_view>
#include <vector>

#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// What a run keeps, read and written without a statement of SQL: the sets that it has. Made by the
/// class `RunCatalog`, whose other faces are `IRunColumns`, `IRunCategories`, `IRunMissingValues`,
/// `IRunParameters`, `IRunFigures`, `IRunHistory` and `IRunOriginals`. Every operation of every
/// face but `Open` raises 41001 before `Open`, and what the engine raises. What several statements
/// write is written as a whole or not at all. A table that is not there reads as an empty one. Sets
/// are named by `data_set_type` (1, 2, 3, 5); any other code raises 9. Caller's thread only.
class IRunCatalog : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000031ULL, 0x8a1f4c0b6d2e7331ULL};

  /// Names the run, a connection service, which the catalogue holds from then on. Raises 41001 when
  /// `pRun` is no run; the catalogue keeps the former one then.
  virtual void Open(IUnknown* pRun) = 0;
  /// Whether the database has tables and none of them is that of a run.
  virtual bool IsForeign() = 0;
  /// Whether the run has the table of a set, if without a record.
  virtual bool HasSet(std::int32_t pType) = 0;
  /// Whether the set has a record.
  virtual bool HasRecords(std::int32_t pType) = 0;
  /// The columns of a set, its row key not counted; 0 when the run has no such set.
  virtual std::int32_t SetColumns(std::int32_t pType) = 0;
  /// The smallest row key of a set; 0 when it has no record.
  virtual std::int32_t FirstKey(std::int32_t pType) = 0;
  /// The largest row key of a set; 0 when it has no record.
  virtual std::int32_t LastKey(std::int32_t pType) = 0;
  /// Whether a testing record has the key of a training record, as after a reset.
  virtual bool SetsShareKeys() = 0;
  /// The keys of a set's records, ascending.
  virtual void ReadKeys(std::int32_t pType, std::vector<std::int32_t>& pKeys) = 0;
  /// Gives the records of a set, whose keys are 1, 2, ..., these keys, one a record and ascending.
  virtual void WriteKeys(std::int32_t pType, const std::vector<std::int32_t>& pKeys) = 0;
  /// Adds `pDistance` to the keys of a set's records.
  virtual void MoveKeys(std::int32_t pType, std::int32_t pDistance) = 0;
  /// How many cells of each column of a set have no value. REQUIRES: the run has the set.
  virtual void CountMissing(std::int32_t pType, std::vector<std::int32_t>& pCounts) = 0;
  /// How many cells of each column of a set hold a text. REQUIRES: the run has the set.
  virtual void CountTexts(std::int32_t pType, std::vector<std::int32_t>& pCounts) = 0;
  /// Writes `pValue` into the cells of a column of a set whose original text is `pText`; not a
  /// number leaves them without a value. Without the set there is nothing to do.
  virtual void FillCells(std::int32_t pType, std::int32_t pColumn, std::string_view pText,
                         double pValue) = 0;
  /// Drops the table of a set. REQUIRES: nobody has the set open.
  virtual void DropSet(std::int32_t pType) = 0;
  /// Whether the run has a place for the training records of before a reset.
  virtual bool HasBackup() = 0;
  /// The training records of before the last reset that can be restored.
  virtual std::int32_t BackupRows() = 0;

 protected:
  ~IRunCatalog() = default;
};

}  // namespace tslm5

#endif  // TSLM5_RUN_RUN_CATALOG_H_
