#ifndef TSLM5_HOST_PREPARATION_FILE_CHECK_H_
#define TSLM5_HOST_PREPARATION_FILE_CHECK_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "host/preparation/separators.h"

namespace tslm5::host {

/// What is to be checked, and how.
struct CheckRequest {
  std::string path;       ///< where the component reads the text
  std::string_view text;  ///< the same
  const Separator* separator = nullptr;
  bool has_labels = true;
  std::int32_t problem_category = 0;  ///< `problem_category`
  std::int64_t lines = 0;             ///< of the file, for the progress bar
};

/// The component's answer.
struct CheckAnswer {
  bool is_valid = false;
  std::string message;                 ///< empty when valid; the set's name is put in
  std::int64_t rows = 0;               ///< the rows that passed
  std::optional<std::int32_t> row;     ///< 1-based place of the refused row or cell, where it
  std::optional<std::int32_t> column;  ///< is one
};

/// Runs the component's data check, with a progress bar. Raises `Failure` when Ctrl-C was pressed,
/// and file trouble when the component could not read the text or had too little memory for it.
CheckAnswer CheckFile(const CheckRequest& request);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_FILE_CHECK_H_
