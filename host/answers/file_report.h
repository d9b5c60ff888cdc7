#ifndef TSLM5_HOST_ANSWERS_FILE_REPORT_H_
#define TSLM5_HOST_ANSWERS_FILE_REPORT_H_

#include <cstddef>
#include <optional>
#include <string>

#include "host/preparation/delimited_file.h"

namespace tslm5::host {

/// What an examination of a file has to tell.
struct FileReport {
  const std::string& path;  ///< as the user named it
  const DelimitedFile& file;
  bool is_asked_for = false;           ///< the separator
  std::optional<std::size_t> shown{};  ///< faults to list; none: the first alone
};

/// In words, a line a subject.
std::string FileText(const FileReport& report);

/// As one JSON object on one line.
std::string FileJson(const FileReport& report);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_ANSWERS_FILE_REPORT_H_
