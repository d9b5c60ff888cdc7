#ifndef TSLM5_ORIGINAL_ORIGINAL_DATA_SET_FACET_H_
#define TSLM5_ORIGINAL_ORIGINAL_DATA_SET_FACET_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "original/original_data_state.h"
#include "tslm5/contracts/empty_data_set.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// `IDataSet` of an `OriginalDataSet`: shape, cell texts and labels. Whatever else the interface
/// has is carried only: it does nothing, leaves its outputs alone, gives the empty value and never
/// raises. An index outside the loaded data raises 9.
class OriginalDataSetFacet final : public EmptyDataSet<Facet<IDataSet>> {
 public:
  OriginalDataSetFacet(IUnknown& owner, OriginalDataState& state)
      : EmptyDataSet(owner), state_(state) {}

  bool HasLabels() override;
  std::int32_t Rows() override;
  std::int32_t Columns() override;
  std::int32_t TerminalCount() override;
  /// The cell's text as it was loaded.
  std::string GetItemString(std::int32_t pColumnIndex, std::int32_t pRowIndex) override;
  std::string GetLabel(std::int32_t pColumnIndex) override;
  /// A label is asked for, and the column checked, only where some column was relabelled.
  std::string GetLongLabel(std::int32_t pColumnIndex) override;
  std::int32_t GetColumnIndex(std::int32_t pColumn) override;
  std::int32_t GetRowNumber(std::int32_t pRowIndex) override;
  /// `pRowIndex` + 1; the key is `IDeploymentDataSet`'s (meant).
  std::int32_t GetRowOriginalIndex(std::int32_t pRowIndex) override;
  /// Keeps the feedback object and computes nothing.
  void CalculateStatistics(IFeedback* pFeedback) override;

 private:
  OriginalDataState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_ORIGINAL_ORIGINAL_DATA_SET_FACET_H_
