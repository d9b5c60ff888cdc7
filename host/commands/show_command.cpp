#include "host/commands/show_command.h"

#include <fmt/format.h>

#include <memory>
#include <optional>
#include <utility>

#include "host/answers/original_cells.h"
#include "host/preparation/label_list.h"
#include "host/preparation/run_metadata.h"
#include "host/preparation/run_session.h"
#include "host/program/common_options.h"
#include "host/program/failure.h"
#include "host/program/shown_text.h"

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

Ref<IDataSet> RequireSet(const RunSession& session, const ShowOptions& options) {
  if (Ref<IDataSet> data_set = session.OpenDataSet(options.set->type)) return data_set;
  throw Failure(ExitCode::kTrouble, fmt::format("{} has no {} set (tslm5 info tells what it has)",
                                                Escaped(options.run), options.set->name));
}

/// The originals are kept column by column as the training and the testing set have them.
void RequireOriginals(const RunSession& session, const ShowOptions& options, std::int32_t columns) {
  const bool is_plain =
      options.set->type == data_set_type::kTraining || options.set->type == data_set_type::kTesting;
  if (is_plain && session.Originals().Columns() >= columns) return;
  throw Failure(ExitCode::kTrouble,
                fmt::format("the run keeps no original texts of the {} set", options.set->name));
}

/// The numbers of a set's records, each followed by the text it was loaded as if wanted.
class StoredRecords final : public RecordCells {
 public:
  StoredRecords(IDataSet& data_set, const std::vector<std::int32_t>& columns,
                std::int32_t first_row, std::int32_t end_row)
      : data_set_(data_set), columns_(columns), row_(first_row - 1), end_row_(end_row) {}

  void ReadOriginals(IRunOriginals& originals, std::int32_t type) {
    originals_.emplace(originals, type, columns_, row_ + 1);
  }

  bool Next() override {
    if (++row_ >= end_row_) return false;
    if (originals_) originals_->Next();
    return true;
  }

  std::int32_t Row() const override { return row_; }

  RecordCell Cell(std::size_t i) const override {
    if (!originals_) return data_set_.GetItem(columns_[i], row_);
    if (i % 2 == 0) return data_set_.GetItem(columns_[i / 2], row_);
    if (const auto text = originals_->Text(i / 2)) return *text;
    return {};
  }

 private:
  IDataSet& data_set_;
  const std::vector<std::int32_t>& columns_;
  std::int32_t row_;
  std::int32_t end_row_;
  std::optional<OriginalCells> originals_;
};

}  // namespace

void RunShow(const ShowOptions& options, Output& output) {
  const RunSession session(options.run, RunOptions::Mode::kReadOnly);
  const Ref<IDataSet> data_set = RequireSet(session, options);
  const std::vector<std::string> labels = LabelsOf(*data_set);
  const auto columns = ChooseColumns(options.records.columns, labels);
  if (options.originals) RequireOriginals(session, options, data_set->Columns());

  Selection selection;
  selection.set_name = options.set->name;
  for (const std::int32_t column : columns) {
    const std::string& label = labels[static_cast<std::size_t>(column)];
    selection.titles.push_back(label);
    if (options.originals) selection.titles.push_back(label + " (original)");
  }
  selection.walk = [&](std::int32_t first_row, std::int32_t end_row) {
    auto records = std::make_unique<StoredRecords>(*data_set, columns, first_row, end_row);
    if (options.originals) records->ReadOriginals(session.Originals(), options.set->type);
    return records;
  };
  WriteRecords(std::move(selection), data_set->Rows(), options.records, output);
}

void AddShowCommand(CommandSpec& app, Invocation& invocation) {
  struct Words {
    ShowOptions options;
    std::string set = "training";
    RecordWords records;
  };
  CommandSpec show = app.AddCommand("show", "Print the records of a set");
  const auto words = std::make_shared<Words>();
  AddRun(show, words->options.run);
  std::vector<std::string> names;
  for (const SetName& set : kSets) names.emplace_back(set.name);
  show.AddOption("--set", words->set, "the set to print (default training)")
      .OneOf(names)
      .ValueName("SET");
  AddRecordOptions(show, words->records);
  show.AddFlag("--original", words->options.originals,
               "show the untransformed text beside each number");
  show.Footer(kShowExamples);
  const auto make = [words] {
    ShowOptions options = words->options;
    options.run = RunName(options.run);
    options.set = FindSet(words->set);
    options.records = words->records.Read();
    return options;
  };
  WhenChosen(show, invocation, make, RunShow);
}

}  // namespace tslm5::host
