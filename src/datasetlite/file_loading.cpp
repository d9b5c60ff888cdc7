#include "datasetlite/file_loading.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <system_error>
#include <utility>

#include "contracts/event_args_objects.h"
#include "datasetlite/label_row.h"
#include "datasetlite/record_forwarder.h"
#include "storage/table_names.h"
#include "storage/transaction.h"
#include "support/label_test.h"
#include "support/locale.h"
#include "support/separators.h"
#include "support/shared_functions.h"
#include "support/string_helpers.h"
#include "support/text_cleanup.h"
#include "support/utf8.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

constexpr std::string_view kBlank = " ";

Ref<IParseEventArgs> MakeArguments(std::string_view file_name) {
  Ref<IParseEventArgs> arguments = MakeParseEventArgs();
  arguments->put_Source(file_name);
  arguments->put_ParseType(0);
  return arguments;
}

/// The text of a file that is there; what is no file raises 53 or 75 in words of its own.
std::string ReadFile(std::string_view file_name) {
  const std::string path(file_name);
  const bool can_be_a_name = path.find('\0') == std::string::npos;
  struct stat status {};
  if (!can_be_a_name || stat(path.c_str(), &status) != 0) {
    const int reason = errno;
    const bool absent = !can_be_a_name || reason == ENOENT || reason == ENOTDIR;
    throw Error(absent ? error_number::kFileNotFound : error_number::kFileAccess, "Parse",
                "The file " + path +
                    (absent ? " was not found."
                            : " cannot be read: " + std::generic_category().message(reason)));
  }
  if (S_ISDIR(status.st_mode)) {
    throw Error(error_number::kFileAccess, "Parse",
                path + " is a folder; a delimited text file was expected.");
  }
  std::string text = SharedFunctions::ReadTextFile(file_name);
  if (text.empty()) {
    throw Error(error_number::kInvalidData, "Parse", "The file " + path + " is empty.");
  }
  return text;
}

/// The number of values in the first line of a text of blank-separated values.
std::int32_t CountFirstLineValues(std::string_view text) {
  const std::string_view line = Utf8::TrimBlanks(text.substr(0, text.find('\n')));
  if (line.empty()) return 0;
  const auto blanks = std::count(line.begin(), line.end(), ' ');
  return static_cast<std::int32_t>(
      std::min<std::ptrdiff_t>(blanks + 1, std::numeric_limits<std::int32_t>::max()));
}

std::string_view WithoutEmptyRowsAtEnd(std::string_view text) {
  while (text.ends_with('\n')) text.remove_suffix(1);
  return text;
}

/// Gives a set back what a load may have changed besides its rows, unless the load was kept. An end
/// that handlers hear of comes after `Restore`: they may use the set, or load it anew.
class SettingsGuard {
 public:
  explicit SettingsGuard(DataSetLiteState& state)
      : state_(state),
        data_set_type_(state.data_set_type),
        separator_(state.separator),
        properties_(state.properties),
        has_labels_(state.has_labels),
        labels_(state.labels) {}
  SettingsGuard(const SettingsGuard&) = delete;
  SettingsGuard& operator=(const SettingsGuard&) = delete;
  ~SettingsGuard() { Restore(); }

  void Keep() { kept_ = true; }
  void Restore() {
    if (std::exchange(kept_, true)) return;
    state_.data_set_type = data_set_type_;
    state_.separator = separator_;
    state_.properties = std::move(properties_);
    state_.has_labels = has_labels_;
    state_.labels = std::move(labels_);
  }

 private:
  DataSetLiteState& state_;
  std::int32_t data_set_type_;
  std::int32_t separator_;
  PropertyBag properties_;
  bool has_labels_;
  std::vector<std::string> labels_;
  bool kept_ = false;
};

}  // namespace

void FileLoading::Parse(std::string_view file_name, std::int32_t separator, bool has_labels,
                        std::int32_t data_set_type, std::int32_t layout) {
  const Ref<IDataSet> keep_alive(state_.sender);  // a handler may let go of the set
  static constexpr Kind kParse = {"Data load succeded.", "Data load failed.", true};
  Load(kParse, file_name, data_set_type, separator, has_labels, layout, *MakeArguments(file_name));
}

void FileLoading::Replace(std::string_view file_name, std::int32_t separator, bool has_labels) {
  const Ref<IDataSet> keep_alive(state_.sender);
  static constexpr Kind kReplace = {"Data changing succeded.", "Data changing failed.", false};
  const Ref<IParseEventArgs> arguments = MakeArguments(file_name);
  state_.sinks.Fire([this, &arguments](IDataSetLiteEvents& sink) {
    sink.BeforeDataLoad(state_.sender, arguments.get());
  });
  if (arguments->Cancel()) return;
  Load(kReplace, file_name, state_.data_set_type, separator, has_labels,
       layout_code::kRecordsInRows, *arguments);
}

void FileLoading::Load(const Kind& kind, std::string_view file_name, std::int32_t data_set_type,
                       std::int32_t separator, bool has_labels, std::int32_t layout,
                       IParseEventArgs& arguments) {
  SettingsGuard settings(state_);
  state_.has_labels = false;
  if (file_name.empty()) {
    settings.Keep();
    throw Error(error_number::kInvalidArgument);
  }
  Outcome outcome = Outcome::kNotBegun;
  try {
    state_.data_set_type = data_set_type;
    SetSeparator(separator);
    const Rows rows = Prepare(ReadFile(file_name), has_labels, layout);
    SetLabels(rows, kind.tests_labels);
    outcome = LoadRows(rows, file_name, arguments);
  } catch (...) {
    settings.Restore();
    Finish(arguments, kind.failed);
    throw;
  }
  if (outcome == Outcome::kLoaded || outcome == Outcome::kEmptied) settings.Keep();
  settings.Restore();
  if (outcome == Outcome::kUndone || outcome == Outcome::kEmptied) {
    return Finish(arguments, kind.failed);
  }
  state_.is_dirty = true;
  Finish(arguments, kind.done);
  state_.is_ready = true;
}

void FileLoading::SetSeparator(std::int32_t separator) {
  const std::string_view text = SharedFunctions::SeparatorToString(separator);
  state_.separator = separator;
  state_.properties.Put(property_key::kSeparator, text);
}

FileLoading::Rows FileLoading::Prepare(std::string text, bool has_labels,
                                       std::int32_t layout) const {
  const std::string_view separator = SharedFunctions::SeparatorToString(state_.separator);
  Rows rows;
  if (has_labels) rows.label_row = text.substr(0, text.find('\n'));  // before any re-arrangement
  if (layout == layout_code::kRecordsInColumns) {
    if (separator.empty()) {
      throw Error(error_number::kInvalidArgument, "Parse",
                  "Text without a separator cannot be transposed: its lines would run together.");
    }
    text = StringHelpers::RearrangeText(std::move(text), separator, layout);
  }
  if (separator != kBlank && !separator.empty()) {
    // A blank beside a separator is no value of its own; an empty value between two of them is.
    TextCleanup::DropBlanksBeside(text, separator.front());
    TextCleanup::ReplaceSeparator(text, separator);
  }
  if (has_labels) TextCleanup::DropFirstLine(text);
  // Only a blank can still stand in runs: between other separators an empty value keeps its place.
  if (separator == kBlank) TextCleanup::CollapseRuns(text, ' ');
  TextCleanup::CleanLines(text);
  rows.columns = CountFirstLineValues(text);
  rows.text = std::move(text);
  return rows;
}

void FileLoading::SetLabels(const Rows& rows, bool test_labels) {
  std::vector<std::string> labels;
  if (rows.label_row.find('\0') != std::string::npos) {
    throw Error(error_number::kInvalidData, "Parse",
                "The labels row holds a NUL character, which a run does not take.");
  }
  if (!rows.label_row.empty()) {
    labels = SplitLabelRow(rows.label_row, SharedFunctions::SeparatorToString(state_.separator),
                           rows.columns);
    state_.has_labels = !test_labels || AreLabels(labels, CurrentLocale().DecimalSymbol());
  }
  state_.labels = state_.has_labels ? std::move(labels) : std::vector<std::string>();
}

FileLoading::Outcome FileLoading::LoadRows(const Rows& rows, std::string_view file_name,
                                           IParseEventArgs& arguments) {
  arguments.put_Rows(static_cast<std::int32_t>(TextCleanup::CountLines(rows.text)));
  arguments.put_Columns(rows.columns);
  state_.sinks.Fire([this, &arguments](IDataSetLiteEvents& sink) {
    sink.BeforeDataLoad(state_.sender, &arguments);
  });
  if (arguments.Cancel()) return Outcome::kNotBegun;

  const std::string_view records = WithoutEmptyRowsAtEnd(rows.text);
  if (records.empty()) {
    throw Error(error_number::kInvalidData, "Parse",
                "The file " + std::string(file_name) + " holds no records.");
  }
  return Fill(records, rows.columns);
}

FileLoading::Outcome FileLoading::Fill(std::string_view rows, std::int32_t columns) {
  const Ref<IConnection> connection = ConnectionOf(state_);
  const std::string_view name = TableName(state_.data_set_type);
  if (name.empty()) {
    throw Error(error_number::kInvalidArgument, "Parse",
                "Sets of type " + std::to_string(state_.data_set_type) + " have no table.");
  }
  const bool had_table = connection->TableExists(name);
  const Ref<TableLite> table = MakeObject<TableLite>();
  table->Init2(state_.run.get());

  Transaction transaction(*connection);
  table->Create(columns, state_.data_set_type, true);
  bool stored = false;
  {
    const ScopedRecordForwarder forwarder(*table, state_.sinks);
    stored = table->ParseText(rows);
  }
  if (!stored && had_table) return Outcome::kUndone;  // and the earlier rows come back
  table->LoadRecordSet();
  LoadColumnFlags(state_);
  transaction.Commit();
  state_.table = table;
  state_.cached_columns = columns;
  state_.statistics.Empty();
  if (state_.data_set_type == data_set_type::kTimeSeriesTesting) {
    state_.extra_table.Reset();  // an older one is the set's own table now
  }
  return stored ? Outcome::kLoaded : Outcome::kEmptied;
}

void FileLoading::Finish(IParseEventArgs& arguments, std::string_view message) {
  arguments.put_Message(message);
  arguments.put_Rows(state_.sender->Rows());  // which never raises
  state_.sinks.Fire([this, &arguments](IDataSetLiteEvents& sink) {
    sink.AfterDataLoad(state_.sender, &arguments);
  });
}

}  // namespace tslm5
