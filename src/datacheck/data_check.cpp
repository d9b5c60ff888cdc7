#include "datacheck/data_check.h"

#include <exception>
#include <new>
#include <utility>

#include "contracts/event_args_objects.h"
#include "datacheck/check_texts.h"
#include "datacheck/invalid_position.h"
#include "datacheck/text_check.h"
#include "support/file_helpers.h"
#include "support/locale.h"
#include "support/shared_functions.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

constexpr std::int64_t kRowsPerFeedback = 10;

std::string_view StageText(CheckStage stage) {
  switch (stage) {
    case CheckStage::kSeparator:
      return check_text::kCheckingSeparator;
    case CheckStage::kLabels:
      return check_text::kCheckingLabels;
    case CheckStage::kData:
      return check_text::kCheckingData;
    case CheckStage::kRemovingSeparators:
      return check_text::kRemovingSeparators;
    case CheckStage::kClearingRows:
      return check_text::kClearingRows;
    case CheckStage::kRemovingCharacters:
      return check_text::kRemovingCharacters;
  }
  return {};
}

/// One run of the check, told in events.
class DataCheck final : private TextCheckObserver {
 public:
  DataCheck(std::string_view file_name, const TextCheckRules& rules, DataCheckListener& listener)
      : file_name_(file_name),
        rules_(rules),
        listener_(listener),
        arguments_(MakeParseEventArgs()) {
    arguments_->put_Source(file_name);
    arguments_->put_ParseType(0);
  }

  bool Run(std::string& message) {
    try {
      listener_.BeforeDataCheck(*arguments_);
      if (arguments_->Cancel()) {
        End(check_text::kCancelled);
        return false;
      }
      Check();
      if (!refusal_.empty()) return Fail(message, refusal_, check_text::WithoutPrefix(refusal_));
      return true;
    } catch (const Error& error) {
      return Fail(message, error.Description(), check_text::WithoutPrefix(error.Description()));
    } catch (const std::bad_alloc&) {
      return Fail(message, "Out of memory", "Out of memory");
    } catch (const std::exception& error) {
      return Fail(message, error.what(), error.what());
    }
  }

 private:
  void Begin(CheckStage stage) override { Feedback(StageText(stage)); }

  std::int64_t RecordsPerReport() const override {
    return listener_.IsListening() ? kRowsPerFeedback : 0;
  }

  /// Ends early, and as a success, when a handler cancels.
  bool Record(std::int64_t index, std::int64_t count) override {
    row_index_ = index;
    Feedback(check_text::CheckingRow(index + 1));
    if (!arguments_->Cancel()) return true;
    arguments_->put_Rows(static_cast<std::int32_t>(index));
    End(check_text::kCancelled);
    rows_if_cancelled_ = count;
    return false;
  }

  void Found(const TextFinding& finding) override {
    row_index_ = finding.record > 0 ? finding.record - 1 : 0;
    NotePosition(finding);
    refusal_ = check_text::TextOf(finding, rules_.data);
  }

  void Changed(std::int64_t, std::int64_t, std::string_view) override {}

  void Feedback(std::string_view text) {
    if (!listener_.IsListening()) return;
    arguments_->put_Message(text);
    listener_.LoadFeedback(*arguments_);
  }

  void End(std::string_view text) {
    arguments_->put_Message(text);
    listener_.AfterDataCheck(*arguments_);
  }

  bool Fail(std::string& message, std::string text, std::string_view event_text) {
    message = std::move(text);
    arguments_->put_Rows(static_cast<std::int32_t>(row_index_));
    try {
      End(event_text);
    } catch (const std::exception&) {
      return false;  // a listener's failure; the refusal stands
    }
    return false;
  }

  void Check() {
    const FileHelpers::TextFile file = SharedFunctions::ReadFile(file_name_);
    if (file.kind != FileHelpers::TextFile::Kind::kRead) {
      const bool is_forbidden = file.kind == FileHelpers::TextFile::Kind::kForbidden;
      refusal_ = is_forbidden ? check_text::kInvalidFile : check_text::kFileNotFound;
      return;
    }
    const TextCheck::Result result = TextCheck(file.text, rules_, *this).Run();
    if (!refusal_.empty()) return;
    row_index_ = result.was_stopped ? rows_if_cancelled_ : result.records;
    arguments_->put_Rows(static_cast<std::int32_t>(row_index_));
    End(check_text::kCompleted);
  }

  /// A row as a whole writes the row alone, and a missing response nothing.
  static void NotePosition(const TextFinding& finding) {
    InvalidPosition& position = LastInvalidPosition();
    const bool is_field =
        finding.code == CheckCode::kText || finding.code == CheckCode::kMissingValue;
    if (is_field || finding.code == CheckCode::kFieldCount) {
      position.row = static_cast<std::int32_t>(finding.record);
    }
    if (is_field) position.column = static_cast<std::int32_t>(finding.column);
  }

  std::string_view file_name_;
  TextCheckRules rules_;
  DataCheckListener& listener_;
  Ref<IParseEventArgs> arguments_;
  std::int64_t row_index_ = 0;  // the row under examination, 0-based
  std::int64_t rows_if_cancelled_ = 0;
  std::string refusal_;
};

}  // namespace

DataCheckRules RulesOf(std::int32_t problem_category) {
  DataCheckRules rules;
  rules.checks_response = problem_category == problem_category::kClassification ||
                          problem_category == problem_category::kFurtherClassification;
  return rules;
}

bool CheckDataFile(std::string_view file_name, bool has_labels, std::int32_t separator,
                   const DataCheckRules& rules, DataCheckListener& listener, std::string& message) {
  TextCheckRules text_rules;
  text_rules.has_labels = has_labels;
  text_rules.separator = separator;
  text_rules.decimal = CurrentLocale().DecimalSymbol();
  text_rules.data = rules;
  return DataCheck(file_name, text_rules, listener).Run(message);
}

}  // namespace tslm5
