#ifndef TSLM5_DATACHECK_INVALID_POSITION_H_
#define TSLM5_DATACHECK_INVALID_POSITION_H_

#include <cstdint>

namespace tslm5 {

/// The place of the last invalid cell that a data check found, 1-based: one for the whole process,
/// whatever class ran the check. Starts at 0, 0. A new check does not reset it, and a failure of a
/// row as a whole writes the row alone, so that the column may be an older one (both meant).
struct InvalidPosition {
  std::int32_t column = 0;
  std::int32_t row = 0;
};

InvalidPosition& LastInvalidPosition();

}  // namespace tslm5

#endif  // TSLM5_DATACHECK_INVALID_POSITION_H_
