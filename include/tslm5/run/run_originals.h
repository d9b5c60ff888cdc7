#ifndef TSLM5_RUN_RUN_ORIGINALS_H_
#define TSLM5_RUN_RUN_ORIGINALS_H_

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "tslm5/engine/data_reader.h"
#include "tslm5/platform/ref.h"
#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// The texts that a run's records were made from, a face of the class `RunCatalog`. A record and
/// its texts have the same key: training records 1 to n, testing records n + 1 to n + m, until a
/// reset or a split orders them otherwise.
class IRunOriginals : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000038ULL, 0x8a1f4c0b6d2e7338ULL};

  /// The columns of the texts; 0 when the run keeps none.
  virtual std::int32_t Columns() = 0;
  /// Makes the table of the texts anew, empty.
  virtual void Create(std::int32_t pColumns) = 0;
  /// Gives the table so many columns; texts in a column of before and of after stay. REQUIRES: the
  /// table is there.
  virtual void Fit(std::int32_t pColumns) = 0;
  /// To be called after a set was filled with `pRecords` records of `pColumns` columns, under the
  /// keys 1, 2, ...: moves the testing records, their texts with them, behind the training ones,
  /// makes the table of the texts where it is missing or of another width, and drops the former
  /// texts of the set. Returns the key of the set's first record.
  virtual std::int32_t MakeRoom(std::int32_t pType, std::int32_t pRecords,
                                std::int32_t pColumns) = 0;
  /// Appends the texts of one record. REQUIRES: one text a column of the table.
  virtual void Append(std::span<const std::string_view> pTexts, std::int32_t pKey) = 0;
  /// The texts of a set's records in these columns, the record's key behind them, in the order of
  /// the set, from record `pFirstRow` (zero-based) on; NULL for a record without texts.
  virtual Ref<IDataReader> OpenTexts(std::int32_t pType, const std::vector<std::int32_t>& pColumns,
                                     std::int32_t pFirstRow) = 0;
  /// All texts of a set's records, in the order of their keys; a record without texts is left out.
  virtual Ref<IDataReader> OpenRecords(std::int32_t pType) = 0;
  /// The texts of a column's training records, those left out that are missing-value tokens.
  virtual Ref<IDataReader> OpenTrainingColumn(std::int32_t pColumn) = 0;
  /// Writes the texts of the records that the series in the training table is about to be embedded
  /// in, beside the texts of now: record r gets those of its inputs and its response under the key
  /// r, from 1. Texts of the testing set stay as they are, in the first column; its records move
  /// behind the `pRecords` embedded ones. False, and nothing was done, when the run keeps no texts.
  virtual bool WriteEmbedded(std::int32_t pDimension, std::int32_t pDelay,
                             std::int32_t pRecords) = 0;
  /// Puts what `WriteEmbedded` wrote in the place of the texts.
  virtual void TakeEmbedded() = 0;

 protected:
  ~IRunOriginals() = default;
};

}  // namespace tslm5

#endif  // TSLM5_RUN_RUN_ORIGINALS_H_
