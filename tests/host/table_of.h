#ifndef TSLM5_TESTS_HOST_TABLE_OF_H_
#define TSLM5_TESTS_HOST_TABLE_OF_H_

#include <string_view>

#include "host/preparation/delimited_file.h"
#include "tests/host/temporary_folder.h"

namespace tslm5::host {

/// A text as a program would read it from a file; `options` as the user would set them.
inline FieldTable TableOf(std::string_view text, const DelimitedOptions& options = {}) {
  const TemporaryFolder folder;
  return ReadTable(SurveyFile(folder.Write("data", text), options));
}

/// The same, separated so, its first line labels or not.
inline FieldTable TableOf(std::string_view text, char separator, bool has_labels) {
  DelimitedOptions options;
  options.separator = separator;
  options.has_header = has_labels;
  return TableOf(text, options);
}

}  // namespace tslm5::host

#endif  // TSLM5_TESTS_HOST_TABLE_OF_H_
