#include "host/answers/record_options.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "host/program/failure.h"

namespace tslm5::host {
namespace {

constexpr std::int32_t kRowsOfATable = 20;

/// The row past the last one to show.
std::int32_t EndRow(const RecordOptions& options, const std::string& set_name, std::int32_t rows) {
  if (options.rows.is_given && options.rows.first > rows) {
    Misuse(fmt::format("--rows: the first row asked for is {}, but the {} set has {} rows",
                       options.rows.first, set_name, rows));
  }
  if (options.rows.is_given) return std::min(options.rows.last.value_or(rows), rows);
  const bool is_table = options.format == RecordOptions::Format::kTable;
  return is_table ? std::min(kRowsOfATable, rows) : rows;
}

}  // namespace

RecordOptions RecordWords::Read() const {
  RecordOptions options;
  if (rows) options.rows = ParseRowRange(*rows);
  options.columns = columns;
  if (format == "csv") options.format = RecordOptions::Format::kCsv;
  if (format == "json" || json) options.format = RecordOptions::Format::kJson;
  return options;
}

void AddRecordOptions(CommandSpec& command, RecordWords& words) {
  command.AddOption("--rows", words.rows, "A:B, A:, :B or A; counted from 1, both ends included")
      .ValueName("RANGE");
  command.AddOption("--columns", words.columns, "labels, or d0, d1, ...; separated by commas")
      .ValueName("LABEL,...")
      .OneValueEach();
  const OptionSpec format =
      command.AddOption("--format", words.format, "how to print (default table)")
          .OneOf({"table", "csv", "json"})
          .ValueName("NAME");
  command.AddFlag("--json", words.json, "the same as --format json").Excludes(format);
}

void WriteRecords(Selection selection, std::int32_t rows, const RecordOptions& options,
                  Output& output) {
  selection.first_row = options.rows.first - 1;
  selection.end_row = EndRow(options, selection.set_name, rows);
  switch (options.format) {
    case RecordOptions::Format::kTable:
      WriteTable(selection, output);
      if (!options.rows.is_given && selection.end_row < rows) {
        output.Write(fmt::format("and {} more rows; --rows {}: shows them\n",
                                 rows - selection.end_row, selection.end_row + 1));
      }
      break;
    case RecordOptions::Format::kCsv:
      WriteCsv(selection, output);
      break;
    case RecordOptions::Format::kJson:
      WriteJson(selection, output);
      break;
  }
}

}  // namespace tslm5::host
