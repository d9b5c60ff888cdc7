#ifndef TSLM5_HOST_ANSWERS_ROW_RANGE_H_
#define TSLM5_HOST_ANSWERS_ROW_RANGE_H_

#include <cstdint>
#include <optional>
#include <string_view>

namespace tslm5::host {

/// Rows as the user counts them: from 1, both ends included.
struct RowRange {
  bool is_given = false;
  std::int32_t first = 1;
  std::optional<std::int32_t> last;  ///< nothing: to the end
};

/// Reads "A:B", "A:", ":B" or "A". Raises `Failure`, wrong usage.
RowRange ParseRowRange(std::string_view text);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_ANSWERS_ROW_RANGE_H_
