#ifndef TSLM5_HOST_PREPARATION_DELIMITED_TEXT_H_
#define TSLM5_HOST_PREPARATION_DELIMITED_TEXT_H_

#include <string>
#include <string_view>

#include "host/preparation/separators.h"

namespace tslm5::host {

/// A delimited text as the loader sees it once its lines are records: one record a line. A view of
/// a text that must outlive it.
struct DelimitedText {
  std::string_view text;  ///< UTF-8, line break "\n"
  const Separator* separator = nullptr;
  bool has_label_line = false;  ///< the first line holds the labels
  bool is_transposed = false;   ///< the lines were columns in the file
  std::string path;             ///< where the component reads the same, columns still being lines
};

/// The text with field k of every line in its line k. Raises `Failure`, refused, when a line has
/// more fields than the first.
std::string Transposed(std::string_view text, const Separator& separator);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_DELIMITED_TEXT_H_
