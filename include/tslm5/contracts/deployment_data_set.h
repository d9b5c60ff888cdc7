#ifndef TSLM5_CONTRACTS_DEPLOYMENT_DATA_SET_H_
#define TSLM5_CONTRACTS_DEPLOYMENT_DATA_SET_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "tslm5/platform/unknown.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// A dataset as the deployment side reads it, whatever class holds it. Read-only; column before
/// row.
class IDeploymentDataSet : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000015ULL, 0x8a1f4c0b6d2e7315ULL};

  /// Replaces everything by a set of a run. `pConnection` holds the connection or the run object;
  /// `pSetType` is 1, 2, 100 or 1000 (`data_set_type`). With `pBinarise` the response of a
  /// classified problem is "1" where it is the response's maximum, else "0". Raises 41001 for any
  /// other set type or what is no connection, 100 when classes are asked for and the run names no
  /// problem category, 13 for a combined response that is no number, 9 for more records than were
  /// counted. What was loaded before a failure stays. A `DataSetLite` does nothing.
  virtual void Open(const Variant& pConnection, std::int32_t pSetType, bool pBinarise) = 0;
  /// Some column was given another label than its generated name.
  virtual bool HasLabels() = 0;
  /// Number of records.
  virtual std::int32_t Rows() = 0;
  /// Number of columns, response included.
  virtual std::int32_t Columns() = 0;
  /// Number of columns less the response; -1 for an `OriginalDataSet` that was not opened (meant).
  virtual std::int32_t TerminalCount() = 0;
  /// The cell's text; "" when it is missing. An absent cell raises 9, in a `DataSetLite` it is "".
  virtual std::string GetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex) = 0;
  /// The column's label, or its generated name. Raises 9 for an absent column, and for every column
  /// of set type 100, which loads no labels (meant); see `IDataSet::GetLabel` for a `DataSetLite`.
  virtual std::string GetLabel(std::int32_t pColumnIndex) = 0;
  /// Largest value of the response.
  virtual double GetTargetMax() = 0;
  /// The record's key in the original data; not the row number that `IDataSet` of an
  /// `OriginalDataSet` gives under this name (meant). An absent row raises 9, or 41011 in a
  /// `DataSetLite`.
  virtual std::int32_t GetRowOriginalIndex(std::int32_t pRowIndex) = 0;
  /// The column holds words that were coded. An absent column raises 9; in a `DataSetLite` it is
  /// false.
  virtual bool IsColumnCategorical(std::int32_t pColumnIndex) = 0;
  /// The run counts missing cells in the column; false for an absent one.
  virtual bool HasMissingValues(std::int32_t pColumnIndex) = 0;
  /// Records of the run's training (1) or testing (2) set as counted by `Open`; 0 for any other
  /// type, for a set that the run lacks, and in a `DataSetLite`.
  virtual std::int32_t GetDataSetRows(std::int32_t pSetType) = 0;
  /// As `Open`, of the run database at `pDataFilePath`, which is opened for reading and closed.
  /// Raises nothing (meant): after a failure the view holds what was loaded so far.
  virtual void OpenFromFile(std::string_view pDataFilePath, std::int32_t pSetType,
                            bool pBinarise) = 0;

 protected:
  ~IDeploymentDataSet() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_DEPLOYMENT_DATA_SET_H_
