#ifndef TSLM5_TESTS_DATACHECK_CHECK_FILE_H_
#define TSLM5_TESTS_DATACHECK_CHECK_FILE_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "datacheck/check_events.h"
#include "datacheck/data_check.h"
#include "support/temporary_folder.h"
#include "tslm5/contracts/codes.h"

namespace tslm5 {

/// What one check came to.
struct CheckOutcome {
  bool result = false;
  std::string message = "untouched";
};

inline CheckOutcome CheckPath(std::string_view path, DataCheckListener& listener,
                              std::int32_t separator = separator_code::kComma,
                              const DataCheckRules& rules = {}) {
  CheckOutcome outcome;
  outcome.result = CheckDataFile(path, false, separator, rules, listener, outcome.message);
  return outcome;
}

/// Checks a file of these bytes, of comma-separated values without labels.
inline CheckOutcome CheckBytes(std::string_view bytes, DataCheckListener& listener,
                               const DataCheckRules& rules = {}) {
  const TemporaryFolder folder;
  return CheckPath(folder.Write("data.txt", bytes), listener, separator_code::kComma, rules);
}

/// So many rows "1,2".
inline std::string SoundRows(int count) {
  std::string bytes;
  for (int i = 0; i < count; ++i) bytes += "1,2\n";
  return bytes;
}

}  // namespace tslm5

#endif  // TSLM5_TESTS_DATACHECK_CHECK_FILE_H_
