#include "datasetlite/file_loading.h"

#include <string>
#include <utility>
#include <vector>

#include "contracts/event_args_objects.h"
#include "datasetlite/extra_table.h"
#include "datasetlite/label_row.h"
#include "datasetlite/record_forwarder.h"
#include "storage/table_limits.h"
#include "storage/table_names.h"
#include "support/label_test.h"
#include "support/locale.h"
#include "support/separators.h"
#include "support/shared_functions.h"
#include "support/text_cleanup.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/engine/transaction.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

Ref<IParseEventArgs> MakeArguments(std::string_view file_name) {
  Ref<IParseEventArgs> arguments = MakeParseEventArgs();
  arguments->put_Source(file_name);
  arguments->put_ParseType(0);
  return arguments;
}

/// The text of a file, opened once; one without text that could be loaded raises 41011.
std::string ReadFile(std::string_view file_name, const char* source) {
  std::string text = SharedFunctions::ReadExistingFile(file_name, source);
  if (text.empty()) {
    throw Error(error_number::kInvalidData, source,
                std::string("The file ").append(file_name).append(" is empty."));
  }
  if (SharedFunctions::HasLoneReturns(text)) {
    throw Error(error_number::kInvalidData, source,
                std::string("The lines of the file ")
                    .append(file_name)
                    .append(" end at carriage returns alone. Save it with line feeds."));
  }
  return text;
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
    state_.properties = std::move(properties_);
    state_.has_labels = has_labels_;
    state_.labels = std::move(labels_);
  }

 private:
  DataSetLiteState& state_;
  std::int32_t data_set_type_;
  PropertyBag properties_;
  bool has_labels_;
  std::vector<std::string> labels_;
  bool kept_ = false;
};

}  // namespace

void FileLoading::Parse(std::string_view file_name, std::int32_t separator, bool has_labels,
                        std::int32_t data_set_type, std::int32_t layout) {
  const Ref<IDataSet> keep_alive(state_.sender);  // a handler may let go of the set
  static constexpr Kind kParse = {"Parse", "Data load succeded.", "Data load failed.", true};
  Load(kParse, file_name, data_set_type, separator, has_labels, layout, *MakeArguments(file_name));
}

void FileLoading::Replace(std::string_view file_name, std::int32_t separator, bool has_labels) {
  const Ref<IDataSet> keep_alive(state_.sender);
  static constexpr Kind kReplace = {"Replace", "Data changing succeded.", "Data changing failed.",
                                    false};
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
    const std::string_view separator_text = StoreSeparator(separator);
    const PreparedText rows = PrepareText(ReadFile(file_name, kind.source), separator_text,
                                          has_labels, layout, kind.source);
    SetLabels(rows, separator_text, kind);
    LoadRows(kind, rows, file_name, arguments, outcome);
  } catch (...) {
    if (outcome == Outcome::kNotBegun) {
      settings.Restore();
      Finish(arguments, kind.failed);
    } else {  // stored, though unsynced
      settings.Keep();
      Conclude(kind, outcome, arguments);
    }
    throw;
  }
  if (outcome == Outcome::kLoaded || outcome == Outcome::kEmptied) settings.Keep();
  settings.Restore();
  Conclude(kind, outcome, arguments);
}

/// Tells how a load that raised nothing of its own has ended.
void FileLoading::Conclude(const Kind& kind, Outcome outcome, IParseEventArgs& arguments) {
  if (outcome == Outcome::kUndone || outcome == Outcome::kEmptied) {
    return Finish(arguments, kind.failed);
  }
  state_.is_dirty = true;
  Finish(arguments, kind.done);
  state_.is_ready = true;
}

/// Its text, which the set shows as a property.
std::string_view FileLoading::StoreSeparator(std::int32_t separator) {
  const std::string_view text = SharedFunctions::SeparatorToString(separator);
  state_.properties.Put(property_key::kSeparator, text);
  return text;
}

void FileLoading::SetLabels(const PreparedText& rows, std::string_view separator,
                            const Kind& kind) {
  std::vector<std::string> labels;
  if (rows.label_row.find('\0') != std::string::npos) {
    throw Error(error_number::kInvalidData, kind.source,
                "The labels row holds a NUL character, which a run does not take.");
  }
  if (!rows.label_row.empty()) {
    labels = SplitLabelRow(rows.label_row, separator, rows.columns);
    state_.has_labels = !kind.tests_labels || AreLabels(labels, CurrentLocale().DecimalSymbol());
  }
  state_.labels = state_.has_labels ? std::move(labels) : std::vector<std::string>();
}

void FileLoading::LoadRows(const Kind& kind, const PreparedText& rows, std::string_view file_name,
                           IParseEventArgs& arguments, Outcome& outcome) {
  arguments.put_Rows(static_cast<std::int32_t>(TextCleanup::CountLines(rows.text)));
  arguments.put_Columns(rows.columns);
  state_.sinks.Fire([this, &arguments](IDataSetLiteEvents& sink) {
    sink.BeforeDataLoad(state_.sender, &arguments);
  });
  if (arguments.Cancel()) return;

  const std::string_view records = WithoutEmptyRowsAtEnd(rows.text);
  if (records.empty()) {
    throw Error(error_number::kInvalidData, kind.source,
                "The file " + std::string(file_name) + " holds no records.");
  }
  RequireTable(state_.data_set_type, rows.columns, kind.source);
  if (!rows.refusal.empty()) throw Error(error_number::kInvalidData, kind.source, rows.refusal);
  Fill(records, rows.columns, outcome);
}

void FileLoading::Fill(std::string_view rows, std::int32_t columns, Outcome& outcome) {
  const Ref<IConnection> connection = ConnectionOf(state_);
  const bool had_table = connection->TableExists(TableName(state_.data_set_type));
  const Ref<TableLite> table = MakeObject<TableLite>();
  table->Init2(state_.run.get());

  Transaction transaction(*connection);
  table->Create(columns, state_.data_set_type, true);
  bool stored = false;
  {
    const ScopedRecordForwarder forwarder(*table, state_.sinks);
    stored = table->ParseText(rows);
  }
  if (!stored && had_table) {
    outcome = Outcome::kUndone;  // and the earlier rows come back
    return;
  }
  table->LoadRecordSet();
  LoadColumnFlags(state_);
  ExtraTable::DropWithData(state_, *connection);
  transaction.Commit([&] {
    state_.table = table;
    state_.cached_columns = columns;
    state_.statistics.Empty();
    state_.extra_table.Reset();
    outcome = stored ? Outcome::kLoaded : Outcome::kEmptied;
  });
}

void FileLoading::Finish(IParseEventArgs& arguments, std::string_view message) {
  arguments.put_Message(message);
  arguments.put_Rows(state_.sender->Rows());  // which never raises
  state_.sinks.Fire([this, &arguments](IDataSetLiteEvents& sink) {
    sink.AfterDataLoad(state_.sender, &arguments);
  });
}

}  // namespace tslm5
