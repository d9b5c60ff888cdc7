#ifndef TSLM5_HOST_ANSWERS_RECORD_OPTIONS_H_
#define TSLM5_HOST_ANSWERS_RECORD_OPTIONS_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/answers/record_output.h"
#include "host/answers/row_range.h"
#include "host/program/command_spec.h"
#include "host/program/output.h"

namespace tslm5::host {

/// Which records and columns a command prints, and how.
struct RecordOptions {
  enum class Format { kTable, kCsv, kJson };

  RowRange rows;
  std::vector<std::string> columns;  ///< as given; empty: all
  Format format = Format::kTable;
};

/// The words of `RecordOptions` as the command line gives them.
struct RecordWords {
  std::optional<std::string> rows;
  std::vector<std::string> columns;
  std::string format;
  bool json = false;

  /// Raises `Failure`, wrong usage.
  RecordOptions Read() const;
};

/// `--rows`, `--columns`, `--format` and `--json`.
void AddRecordOptions(CommandSpec& command, RecordWords& words);

/// Writes of a selection, which is of all `rows` rows of its set, those that are asked for; below a
/// table, how many more there are. Raises `Failure`, wrong usage, for rows beyond the set.
void WriteRecords(Selection selection, std::int32_t rows, const RecordOptions& options,
                  Output& output);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_ANSWERS_RECORD_OPTIONS_H_
