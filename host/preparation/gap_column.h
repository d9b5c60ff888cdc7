#ifndef TSLM5_HOST_PREPARATION_GAP_COLUMN_H_
#define TSLM5_HOST_PREPARATION_GAP_COLUMN_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/preparation/run_session.h"

namespace tslm5::host {

/// A token that stands for a missing value in a column.
struct GapToken {
  std::string text;
  std::int32_t cells = 0;             ///< of both sets
  std::int32_t open = 0;              ///< those that have no value now
  std::optional<double> replacement;  ///< nothing: not chosen
  std::int32_t type = 0;              ///< `replacement_type`
};

/// A column with missing values.
struct GapColumn {
  std::int32_t index = 0;
  std::string label;
  bool is_categorical = false;
  std::int32_t cells = 0;  ///< over all tokens
  std::vector<GapToken> tokens;

  std::vector<std::string> Texts() const;
};

/// The tokens of a column, their open cells not counted.
std::vector<GapToken> ReadTokens(const Ref<IDataSet>& data_set, std::int32_t index);

/// The column as it is now; without tokens when it has no gaps.
GapColumn ReadGapColumn(const RunSession& session, const Ref<IDataSet>& data_set,
                        std::int32_t index);

/// The columns that have gaps.
std::vector<GapColumn> ReadGapColumns(const RunSession& session, const Ref<IDataSet>& data_set);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_GAP_COLUMN_H_
