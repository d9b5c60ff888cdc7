#include "host/preparation/prepared_load.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>
#include <utility>

#include "host/preparation/load_note.h"
#include "host/preparation/load_target.h"
#include "host/preparation/prepare_records.h"
#include "host/preparation/record_split.h"
#include "host/preparation/run_metadata.h"
#include "host/preparation/run_originals.h"
#include "host/preparation/set_agreement.h"
#include "host/preparation/statistics_feedback.h"
#include "host/preparation/store_values.h"
#include "host/preparation/testing_texts.h"
#include "host/program/failure.h"
#include "host/program/interruption.h"
#include "host/program/shown_text.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

using Records = std::vector<std::size_t>;
using Keys = std::vector<std::int32_t>;

Keys KeysFrom(std::int32_t first, std::size_t count) {
  Keys keys(count);
  std::iota(keys.begin(), keys.end(), first);
  return keys;
}

/// One load inside its transaction.
class Store {
 public:
  Store(const RunSession& session, const LoadOptions& options)
      : session_(session), options_(options), progress_(Terminal::OfStandardError()) {}

  PreparedLoad Training(const FieldFile& main, const FieldFile* testing) {
    const FieldTable& table = main.table;
    const bool brings_testing = testing != nullptr || options_.testing_share;
    if (!brings_testing) RequireSameColumns(session_, *options_.set, table.columns);
    RecordSplit split = NoSplit(table.Records());
    if (options_.testing_share) {
      load_.share = ShareOfRecords{*options_.testing_share, options_.seed};
      split = DrawSplit(table.Records(), load_.share->share, load_.share->seed);
    }
    PreparationWishes wishes;
    wishes.problem = options_.problem;
    wishes.scale = options_.scale.value_or(RunScale{});
    wishes.positive_class = options_.positive_class;
    wishes.missing_tokens = options_.missing_tokens;
    const CellRule rule(table.decimal, wishes.missing_tokens);
    const char former_decimal = TestingHasDecimalComma(session_) ? ',' : '.';
    PreparedRecords records =
        PrepareTraining(table, split.training, rule, wishes, load_.preparation);
    Tell(records);

    DropTestingSamples(session_);
    SaveSet(data_set_type::kTraining, records.values, table.labels);
    ForgetPreparation(session_);
    WriteColumnNotes(table);
    if (options_.testing_share) {
      KeepSplit(table, split, rule);
    } else {
      const auto rows = static_cast<std::int32_t>(table.Records());
      const std::int32_t first = session_.Originals().MakeRoom(
          data_set_type::kTraining, rows, static_cast<std::int32_t>(table.columns));
      WriteOriginals(session_.Originals(), table, split.training,
                     KeysFrom(first, split.training.size()), progress_);
      if (testing != nullptr) {
        AddTesting(testing->table, CellRule(testing->table.decimal, wishes.missing_tokens));
      } else if (session_.Sets().HasSet(data_set_type::kTesting)) {
        PrepareTestingAnew(table, CellRule(former_decimal, wishes.missing_tokens));
      }
    }
    WritePreparation(session_, load_.preparation, load_.share);
    return Finish(main);
  }

  PreparedLoad Testing(const FieldFile& main) {
    const FieldTable& table = main.table;
    RequireSameColumns(session_, *options_.set, table.columns);
    const bool has_training = session_.Sets().HasSet(data_set_type::kTraining);
    if (has_training) {
      load_.preparation = ReadPreparation(session_);
    } else {
      load_.preparation.columns.resize(table.columns);
    }
    std::vector<std::string>& tokens = load_.preparation.missing_tokens;
    for (const std::string& token : options_.missing_tokens) {
      if (std::find(tokens.begin(), tokens.end(), token) == tokens.end()) tokens.push_back(token);
    }
    const CellRule rule(table.decimal, tokens);
    if (!has_training) RequireNumbers(table, rule);
    AddTesting(table, rule);
    if (!has_training) WriteColumnNotes(table);
    WriteTestingPreparation(session_, load_.preparation);
    return Finish(main);
  }

 private:
  /// Without a training set there is nothing to code a word by.
  void RequireNumbers(const FieldTable& table, const CellRule& rule) const {
    for (std::size_t record = 0; record < table.Records(); ++record) {
      for (std::size_t column = 0; column < table.columns; ++column) {
        if (rule.Classify(table.Field(record, column)) != CellClass::kWord) continue;
        Refuse(
            fmt::format("{}: {} is a word; a testing set with words needs the training "
                        "set in the run first",
                        table.PlaceOf(record, column), Quoted(table.Field(record, column))));
      }
    }
  }

  void Tell(PreparedRecords& records) {
    std::vector<std::string>& warnings = load_.stored.warnings;
    warnings.insert(warnings.end(), records.warnings.begin(), records.warnings.end());
    load_.unseen.insert(load_.unseen.end(), records.unseen.begin(), records.unseen.end());
  }

  /// Has the component store a set.
  void SaveSet(std::int32_t type, const std::vector<double>& values,
               const std::vector<std::string>& labels) {
    Ref<IDataSet> data_set = session_.AttachDataSet(type);
    StoreValues(*data_set, type, values, load_.preparation.columns.size(), labels, progress_);
    ForgetFormerSet(session_, type);
    if (type == options_.set->type) {
      load_.stored.rows = data_set->Rows();
      load_.stored.columns = data_set->Columns();
      load_.stored.has_labels = data_set->HasLabels();
      load_.stored.labels = LabelsOf(*data_set);
    } else {
      load_.stored.testing_rows = data_set->Rows();
    }
    sets_.emplace_back(type, std::move(data_set));
  }

  void WriteColumnNotes(const FieldTable& table) {
    std::vector<RunColumn> notes;
    for (std::size_t i = 0; i < table.columns; ++i) {
      const PreparedColumn& column = load_.preparation.columns[i];
      notes.push_back({load_.stored.labels[i], column.is_nominal, column.missing, false});
    }
    session_.Columns().WriteColumns(notes, load_.stored.has_labels);
  }

  void KeepSplit(const FieldTable& table, const RecordSplit& split, const CellRule& rule) {
    PreparedRecords records = PrepareTesting(table, split.testing, rule, load_.preparation);
    Tell(records);
    load_.preparation.testing_has_decimal_comma = rule.Decimal() == ',';
    SaveSet(data_set_type::kTesting, records.values, table.labels);
    session_.Sets().WriteKeys(data_set_type::kTraining, KeysOf(split.training));
    session_.Sets().WriteKeys(data_set_type::kTesting, KeysOf(split.testing));
    session_.Originals().Create(static_cast<std::int32_t>(table.columns));
    const Records all = NoSplit(table.Records()).training;
    WriteOriginals(session_.Originals(), table, all, KeysOf(all), progress_);
  }

  /// A record's key is its number in the file.
  static Keys KeysOf(const Records& records) {
    Keys keys;
    for (const std::size_t record : records) keys.push_back(static_cast<std::int32_t>(record) + 1);
    return keys;
  }

  void AddTesting(const FieldTable& table, const CellRule& rule) {
    if (table.columns != load_.preparation.columns.size()) {
      Refuse(
          fmt::format("the testing file has {} columns, but the training file has {}; "
                      "both must have the same",
                      table.columns, load_.preparation.columns.size()));
    }
    const Records all = NoSplit(table.Records()).training;
    PreparedRecords records = PrepareTesting(table, all, rule, load_.preparation);
    Tell(records);
    load_.preparation.testing_has_decimal_comma = rule.Decimal() == ',';
    SaveSet(data_set_type::kTesting, records.values, table.labels);
    const std::int32_t first = session_.Originals().MakeRoom(
        data_set_type::kTesting, static_cast<std::int32_t>(table.Records()),
        static_cast<std::int32_t>(table.columns));
    WriteOriginals(session_.Originals(), table, all, KeysFrom(first, all.size()), progress_);
    if (session_.Sets().HasSet(data_set_type::kTraining) && !table.labels.empty()) {
      const auto warning = CompareLabels(session_, table.labels, *FindSet("testing"));
      if (warning) load_.stored.warnings.push_back(*warning);
    }
  }

  /// The testing set that the run holds was prepared by another training set.
  void PrepareTestingAnew(const FieldTable& training, const CellRule& rule) {
    const Ref<IDataSet> former = session_.OpenDataSet(data_set_type::kTesting);
    std::vector<std::string> labels;
    if (former && former->HasLabels()) labels = LabelsOf(*former);
    const FieldTable table = ReadTestingTexts(session_, training.columns, labels, rule.Decimal());
    Keys keys;
    session_.Sets().ReadKeys(data_set_type::kTesting, keys);
    if (keys.size() != table.Records()) {
      Refuse(
          "the run does not keep the original text of every testing record, so they "
          "cannot be prepared like the new training set; load it into a new run");
    }
    PreparedRecords records =
        PrepareTesting(table, NoSplit(table.Records()).training, rule, load_.preparation);
    Tell(records);
    load_.preparation.testing_has_decimal_comma = rule.Decimal() == ',';
    SaveSet(data_set_type::kTesting, records.values, labels);
    session_.Sets().WriteKeys(data_set_type::kTesting, keys);
    load_.stored.warnings.emplace_back(
        "the testing set of the run was prepared anew, by the new training set");
  }

  void WarnOfUnseen() {
    if (load_.unseen.empty()) return;
    const UnseenCategory& first = load_.unseen.front();
    load_.stored.warnings.push_back(fmt::format(
        "the testing set holds {} that no training record has; the first: {} in the column {}, "
        "coded {}",
        load_.unseen.size() == 1 ? "a category" : fmt::format("{} categories", load_.unseen.size()),
        Quoted(first.text), Cut(load_.preparation.columns[first.column].label),
        NumberText(first.code)));
  }

  PreparedLoad Finish(const FieldFile& main) {
    WarnOfUnseen();
    for (const auto& [type, data_set] : sets_) {
      if (!data_set.As<IPersistable>()->Save(Variant(session_.Run()), Variant(type))) {
        throw Failure(ExitCode::kTrouble, "the set's labels could not be saved in the run");
      }
      if (options_.statistics && HasStatistics(session_)) ComputeStatistics(*data_set, progress_);
    }
    const DelimitedDialect& dialect = main.file.dialect;
    NoteLoad(session_, options_,
             {&SeparatorOf(dialect), !main.table.labels.empty(), dialect.decimal,
              dialect.preamble_lines},
             load_.stored);
    return std::move(load_);
  }

  const RunSession& session_;
  const LoadOptions& options_;
  Progress progress_;
  std::vector<std::pair<std::int32_t, Ref<IDataSet>>> sets_;
  PreparedLoad load_;
};

}  // namespace

PreparedLoad StorePrepared(const LoadOptions& options, const RunStatus& status,
                           const FieldFile& main, const FieldFile* testing) {
  LoadTarget target(options.run);
  const RunSession& session = target.Session();
  Transaction transaction(session.Connection());
  RequireStatus(session, status);
  session.CreateSchema();
  const bool is_training = options.set->type == data_set_type::kTraining;
  PreparedLoad load = is_training ? Store(session, options).Training(main, testing)
                                  : Store(session, options).Testing(main);
  StopIfInterrupted();
  target.Finish(transaction);
  return load;
}

}  // namespace tslm5::host
