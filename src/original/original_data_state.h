#ifndef TSLM5_ORIGINAL_ORIGINAL_DATA_STATE_H_
#define TSLM5_ORIGINAL_ORIGINAL_DATA_STATE_H_

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "original/cell_texts.h"
#include "tslm5/contracts/feedback.h"
#include "tslm5/platform/error.h"
#include "tslm5/platform/ref.h"

namespace tslm5 {

/// What the facets of one `OriginalDataSet` share, with the defaults of a new one.
struct OriginalDataState {
  CellTexts cells;
  std::vector<std::int32_t> row_keys;  // of the loaded rows, in `OriginalData`

  bool is_relabelled = false;
  std::vector<std::string> labels;           // by label position
  std::vector<std::int32_t> column_indexes;  // by label position
  std::vector<bool> is_nominal;              // by column
  std::map<std::int32_t, bool> has_missing;  // by column index

  double target_maximum = 0.0;
  std::int32_t training_rows = 0;  // of the run, whatever was loaded
  std::int32_t testing_rows = 0;

  Ref<IFeedback> feedback;  // kept, and not used
};

/// An element of an array of the state; an index outside it raises 9.
template <class Array>
auto ElementOf(const Array& array, std::int32_t index) {
  if (index < 0 || static_cast<std::size_t>(index) >= array.size()) RaiseSubscriptOutOfRange();
  return array[static_cast<std::size_t>(index)];
}

}  // namespace tslm5

#endif  // TSLM5_ORIGINAL_ORIGINAL_DATA_STATE_H_
