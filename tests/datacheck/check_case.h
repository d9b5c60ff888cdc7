#ifndef TSLM5_TESTS_DATACHECK_CHECK_CASE_H_
#define TSLM5_TESTS_DATACHECK_CHECK_CASE_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "datacheck/check_events.h"
#include "datacheck/data_check.h"
#include "datacheck/invalid_position.h"

namespace tslm5 {

/// What stands in the position before a case is run, and stays where the check writes nothing.
inline constexpr InvalidPosition kOlderPosition = {.column = 77, .row = 88};

/// One case of the data check: what it is given, and all that must come of it. The folder `cases`
/// holds them; README.md says how one is written.
struct CheckCase {
  std::optional<std::string> bytes;  ///< none: there is no such file
  std::int32_t separator = 0;
  bool has_labels = false;
  DataCheckRules rules;
  bool has_usual_limits = true;
  bool has_crlf_form = true;
  std::string locale = "en_US";
  std::string cancel_at;

  bool result = false;
  std::optional<std::string> message;  ///< none: the caller's text is left alone
  InvalidPosition position = kOlderPosition;
  std::vector<CheckEvent> events;
};

/// The names of the cases, sorted.
std::vector<std::string> CheckCaseNames();

/// The data files that no case claims, by a slip in their names.
std::vector<std::string> CheckDataOfNoCase();

/// Reads a case; throws when a key is missing, misspelt or of the wrong type.
CheckCase ReadCheckCase(const std::string& name);

/// `bytes` with every line feed that has no carriage return before it turned into both.
std::string WithCrlf(const std::string& bytes);

}  // namespace tslm5

#endif  // TSLM5_TESTS_DATACHECK_CHECK_CASE_H_
