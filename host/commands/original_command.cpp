#include "host/commands/original_command.h"

#include <fmt/format.h>

#include <memory>
#include <utility>
#include <vector>

#include "host/commands/original_view.h"
#include "host/preparation/label_list.h"
#include "host/program/common_options.h"
#include "host/program/failure.h"
#include "host/program/shown_text.h"

namespace tslm5::host {
namespace {

constexpr const char* kOriginalExamples =
    "Examples:\n"
    "  tslm5 original air.db --rows 1:10\n"
    "  tslm5 original air.db --set all --columns month,ozone --format csv\n"
    "  tslm5 original mail.db --set testing --binarise --json\n"
    "\n"
    "The texts as they were loaded, before each the key of its record. A table shows the first 20\n"
    "rows unless --rows asks for others; csv and json show all.\n";

constexpr const char* kKeyTitle = "key";

struct OriginalSet {
  const char* name;
  std::int32_t type;
};

constexpr OriginalSet kOriginalSets[] = {
    {"training", data_set_type::kTraining},
    {"testing", data_set_type::kTesting},
    {"both", data_set_type::kCombined},
    {"all", data_set_type::kUnknown},
};

/// The key of each record, then its texts.
class OriginalRecords final : public RecordCells {
 public:
  OriginalRecords(IDeploymentDataSet& data_set, const std::vector<std::int32_t>& columns,
                  std::int32_t first_row, std::int32_t end_row)
      : data_set_(data_set), columns_(columns), row_(first_row - 1), end_row_(end_row) {}

  bool Next() override {
    if (++row_ >= end_row_) return false;
    key_ = data_set_.GetRowOriginalIndex(row_);
    return true;
  }

  std::int32_t Row() const override { return row_; }

  RecordCell Cell(std::size_t i) const override {
    if (key_ == kNoKey) return {};
    if (i == 0) return static_cast<double>(key_);
    return data_set_.GetItem(columns_[i - 1], row_);
  }

 private:
  static constexpr std::int32_t kNoKey = 0;  // of a record without originals

  IDeploymentDataSet& data_set_;
  const std::vector<std::int32_t>& columns_;
  std::int32_t row_;
  std::int32_t end_row_;
  std::int32_t key_ = kNoKey;
};

}  // namespace

void RunOriginal(const OriginalOptions& options, Output& output) {
  const OriginalView view(options);
  const std::vector<std::string> labels = view.Labels();
  const auto columns = ChooseColumns(options.records.columns, labels);

  Selection selection;
  selection.set_name = options.set_name;
  selection.titles.emplace_back(kKeyTitle);
  for (const std::int32_t column : columns) {
    selection.titles.push_back(labels[static_cast<std::size_t>(column)]);
  }
  selection.walk = [&](std::int32_t first_row, std::int32_t end_row) {
    return std::make_unique<OriginalRecords>(view.DataSet(), columns, first_row, end_row);
  };
  WriteRecords(std::move(selection), view.DataSet().Rows(), options.records, output);
}

void AddOriginalCommand(CommandSpec& app, Invocation& invocation) {
  struct Words {
    OriginalOptions options;
    RecordWords records;
  };
  CommandSpec original =
      app.AddCommand("original", "Print the texts from which a set's numbers were made");
  const auto words = std::make_shared<Words>();
  AddRun(original, words->options.run);
  std::vector<std::string> names;
  for (const OriginalSet& set : kOriginalSets) names.emplace_back(set.name);
  original
      .AddOption("--set", words->options.set_name,
                 "the records to print: of a set, of both one after the other, or all that the "
                 "run keeps (default training)")
      .OneOf(names)
      .ValueName("SET");
  original.AddFlag("--binarise", words->options.binarise,
                   "print the response as 1 for its largest class and 0 for the others");
  AddRecordOptions(original, words->records);
  original.Footer(kOriginalExamples);
  const auto make = [words] {
    OriginalOptions options = words->options;
    options.run = RunName(options.run);
    for (const OriginalSet& set : kOriginalSets) {
      if (options.set_name == set.name) options.set_type = set.type;
    }
    options.records = words->records.Read();
    if (options.binarise && options.set_type == data_set_type::kUnknown) {
      Misuse(
          "--binarise: all records together have no classes; --set training, testing or "
          "both has them");
    }
    return options;
  };
  WhenChosen(original, invocation, make, RunOriginal);
}

}  // namespace tslm5::host
