#ifndef TSLM5_HOST_PREPARATION_FILE_CHECK_H_
#define TSLM5_HOST_PREPARATION_FILE_CHECK_H_

#include <cstdint>
#include <string>

#include "host/preparation/separators.h"
#include "tslm5/contracts/data_check.h"

namespace tslm5::host {

/// What is to be checked, and how.
struct CheckRequest {
  std::string path;  ///< where the component reads the text
  const Separator* separator = nullptr;
  bool has_labels = true;
  std::int32_t problem_category = 0;  ///< `problem_category`
  std::int64_t lines = 0;             ///< of the file, for the progress bar
};

/// The component's check, up to the first finding, with a progress bar. Raises `Failure` when
/// Ctrl-C was pressed, and file trouble when the component could not read the text or had too
/// little memory for it.
DataCheckResult CheckFile(const CheckRequest& request);

/// The same, of the whole text: every finding counted, the first `most_kept` given.
DataCheckResult CheckWholeFile(const CheckRequest& request, std::int64_t most_kept);

/// Whether a finding is about what stands in fields, and not about the shape of the text.
bool IsAboutFields(CheckCode code);

/// Where a finding is, as far as it has a place, with ": " behind it:
/// `line 4, record 3, column 2 (width): "abc": `.
std::string PlaceOf(const DataCheckFinding& finding);

/// A message of the check on one line: its line breaks become blanks.
std::string OneLine(const std::string& message);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_FILE_CHECK_H_
