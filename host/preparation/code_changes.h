#ifndef TSLM5_HOST_PREPARATION_CODE_CHANGES_H_
#define TSLM5_HOST_PREPARATION_CODE_CHANGES_H_

#include <string>
#include <string_view>
#include <vector>

namespace tslm5::host {

/// A category and the code that it is to get.
struct CodeChange {
  std::string value;
  double code = 0.0;
};

// All raise `Failure`, wrong usage, for what they cannot read. A number has a point, whatever the
// user's locale.

/// Reads "VALUE=NUMBER", split at the last "=": VALUE may hold others, commas and blanks.
CodeChange ParseCodeChange(std::string_view word);

/// Reads "VALUE,VALUE=NUMBER": the values that stand between the commas, two or more, get one code.
std::vector<CodeChange> ParseMerge(std::string_view word);

/// Adds a change unless it is there. Refuses a value that is to get two codes.
void AddCodeChange(CodeChange change, std::vector<CodeChange>& changes);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_CODE_CHANGES_H_
