#include "host/show_command.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/common_options.h"
#include "host/failure.h"
#include "host/label_list.h"
#include "host/record_output.h"
#include "host/run_metadata.h"
#include "host/run_session.h"
#include "host/shown_text.h"

namespace tslm5::host {
namespace {

constexpr const char* kShowExamples =
    "Examples:\n"
    "  tslm5 show flowers.db --rows 1:10\n"
    "  tslm5 show flowers.db --columns petal_length,species --format csv\n"
    "  tslm5 show flowers.db --set testing --rows 101: --json\n"
    "  tslm5 show flowers.db --original --columns species\n"
    "\n"
    "A table shows the first 20 rows unless --rows asks for others; csv and json show all.\n";

constexpr std::int32_t kRowsOfATable = 20;

Ref<IDataSet> RequireSet(const RunSession& session, const ShowOptions& options) {
  if (Ref<IDataSet> data_set = session.OpenDataSet(options.set->type)) return data_set;
  throw Failure(ExitCode::kTrouble, fmt::format("{} has no {} set (tslm5 info tells what it has)",
                                                Escaped(options.run), options.set->name));
}

/// The originals are kept column by column as the training and the testing set have them.
void RequireOriginals(const RunSession& session, const ShowOptions& options, std::int32_t columns) {
  const bool is_plain =
      options.set->type == data_set_type::kTraining || options.set->type == data_set_type::kTesting;
  if (is_plain && session.ColumnsOf("OriginalData") == columns) return;
  throw Failure(ExitCode::kTrouble,
                fmt::format("the run keeps no original texts of the {} set", options.set->name));
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
                      EndRow(options, rows),
                      nullptr,
                      options.set->table};
  if (options.originals) {
    RequireOriginals(session, options, data_set->Columns());
    selection.originals_of = Ref<IConnection>(&session.Connection());
  }
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

void AddShowCommand(CLI::App& app, Invocation& invocation) {
  struct Words {
    ShowOptions options;
    std::string set = "training";
    std::string rows;
    std::string format;
    bool json = false;
  };
  CLI::App& show = *app.add_subcommand("show", "Print the records of a set");
  const auto words = std::make_shared<Words>();
  AddRun(show, words->options.run);
  std::vector<std::string> names;
  for (const SetName& set : kSets) names.emplace_back(set.name);
  show.add_option("--set", words->set, "the set to print (default training)")
      ->check(CLI::IsMember(names))
      ->type_name("SET");
  const CLI::Option* rows =
      show.add_option("--rows", words->rows, "A:B, A:, :B or A; counted from 1, both ends included")
          ->type_name("RANGE");
  show.add_option("--columns", words->options.columns,
                  "labels, or d0, d1, ...; separated by commas")
      ->type_name("LABEL,...")
      ->allow_extra_args(false);
  show.add_flag("--original", words->options.originals,
                "show the untransformed text beside each number");
  CLI::Option* format = show.add_option("--format", words->format, "how to print (default table)")
                            ->check(CLI::IsMember({"table", "csv", "json"}))
                            ->type_name("NAME");
  show.add_flag("--json", words->json, "the same as --format json")->excludes(format);
  show.footer(kShowExamples);
  const auto make = [words, rows] {
    ShowOptions options = words->options;
    options.run = RunName(options.run);
    options.set = FindSet(words->set);
    if (rows->count() > 0) options.rows = ParseRowRange(words->rows);
    if (words->format == "csv") options.format = ShowOptions::Format::kCsv;
    if (words->format == "json" || words->json) options.format = ShowOptions::Format::kJson;
    return options;
  };
  WhenChosen(show, invocation, make, RunShow);
}

}  // namespace tslm5::host
