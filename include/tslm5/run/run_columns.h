#ifndef TSLM5_RUN_RUN_COLUMNS_H_
#define TSLM5_RUN_RUN_COLUMNS_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tslm5/platform/unknown.h"
#include "tslm5/run/run_records.h"

namespace tslm5 {

/// The columns of a run and their labels, a face of the class `RunCatalog`.
class IRunColumns : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000032ULL, 0x8a1f4c0b6d2e7332ULL};

  /// The columns in order; none where the run was not loaded yet.
  virtual void ReadColumns(std::vector<RunColumn>& pColumns) = 0;
  /// Replaces the columns, the last one of which is the response, and the labels of the original
  /// texts. Without labels a column is called by its name, d0, d1, ..., its original texts are not.
  virtual void WriteColumns(const std::vector<RunColumn>& pColumns, bool pHasLabels) = 0;
  /// Writes how many cells of the first columns are missing, one element a column.
  virtual void WriteMissingCounts(const std::vector<std::int32_t>& pCounts) = 0;
  /// The labels of the original texts' columns, in order.
  virtual void ReadOriginalLabels(std::vector<std::string>& pLabels) = 0;
  /// Replaces the labels of the original texts' columns.
  virtual void WriteOriginalLabels(const std::vector<std::string>& pLabels) = 0;
  /// Whether a set has labels of its own.
  virtual bool HasLabels(std::int32_t pType) = 0;
  /// Drops the labels of a set.
  virtual void DropLabels(std::int32_t pType) = 0;
  /// Replaces the label of a series, which is kept in the place of the testing set's labels.
  virtual void WriteSeriesLabel(std::string_view pLabel) = 0;

 protected:
  ~IRunColumns() = default;
};

}  // namespace tslm5

#endif  // TSLM5_RUN_RUN_COLUMNS_H_
