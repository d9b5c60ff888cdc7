#include <fmt/format.h>

#include <algorithm>

#include "host/commands.h"
#include "host/failure.h"
#include "host/label_list.h"
#include "host/record_output.h"
#include "host/run_metadata.h"
#include "host/run_session.h"
#include "host/shown_text.h"

namespace tslm5::host {
namespace {

constexpr std::int32_t kRowsOfATable = 20;

Ref<IDataSet> RequireSet(const RunSession& session, const ShowOptions& options) {
  if (Ref<IDataSet> data_set = session.OpenDataSet(options.set->type)) return data_set;
  throw Failure(ExitCode::kTrouble, fmt::format("{} has no {} set (tslm5 info tells what it has)",
                                                Escaped(options.run), options.set->name));
}

/// The row past the last one to show.
std::int32_t EndRow(const ShowOptions& options, std::int32_t rows) {
  if (options.rows.is_given && options.rows.first > rows) {
    throw Failure(ExitCode::kUsage,
                  fmt::format("--rows: the first row asked for is {}, but the {} set has {} rows",
                              options.rows.first, options.set->name, rows));
  }
  if (options.rows.is_given) return std::min(options.rows.last.value_or(rows), rows);
  const bool is_table = options.format == ShowOptions::Format::kTable;
  return is_table ? std::min(kRowsOfATable, rows) : rows;
}

}  // namespace

void RunShow(const ShowOptions& options, Output& output) {
  const RunSession session(options.run, RunOptions::Mode::kReadOnly);
  const Ref<IDataSet> data_set = RequireSet(session, options);
  const std::vector<std::string> labels = LabelsOf(*data_set);
  const std::int32_t rows = data_set->Rows();
  Selection selection{*data_set,
                      options.set->name,
                      {},
                      ChooseColumns(options.columns, labels),
                      options.rows.first - 1,
                      EndRow(options, rows)};
  for (const std::int32_t column : selection.columns) {
    selection.labels.push_back(labels[static_cast<std::size_t>(column)]);
  }
  switch (options.format) {
    case ShowOptions::Format::kTable:
      WriteTable(selection, output);
      if (!options.rows.is_given && selection.end_row < rows) {
        output.Write(fmt::format("and {} more rows; --rows {}: shows them\n",
                                 rows - selection.end_row, selection.end_row + 1));
      }
      break;
    case ShowOptions::Format::kCsv:
      WriteCsv(selection, output);
      break;
    case ShowOptions::Format::kJson:
      WriteJson(selection, output);
      break;
  }
}

}  // namespace tslm5::host
