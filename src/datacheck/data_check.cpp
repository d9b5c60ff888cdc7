#include "datacheck/data_check.h"

#include <exception>
#include <new>
#include <utility>

#include "contracts/event_args_objects.h"
#include "datacheck/check_texts.h"
#include "datacheck/invalid_position.h"
#include "datacheck/row_scanner.h"
#include "support/file_helpers.h"
#include "support/locale.h"
#include "support/null_helper.h"
#include "support/numeric_test.h"
#include "support/separators.h"
#include "support/shared_functions.h"
#include "support/text_cleanup.h"
#include "support/text_split.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

constexpr const char* kSource = "IsValidDataSet";
constexpr const char* kResponseSource = "IsValiddataSet";
constexpr std::int32_t kLinesLookedAt = 100;
constexpr std::int64_t kRowsPerFeedback = 10;

/// A refusal before the data are looked at: its words, in a type of their own.
struct Refusal {
  std::string_view text;
};

[[noreturn]] void RaiseInvalidData(std::string description) {
  throw Error(error_number::kInvalidData, kSource, std::move(description));
}

/// The upper bound of the list of a line's fields: their number less one, -1 for the empty line.
std::int64_t LastFieldIndex(std::string_view line, std::string_view separator) {
  std::int64_t count = 0;
  FieldCursor fields(line, separator);
  for (std::string_view field; fields.Next(field);) ++count;
  return count - 1;
}

/// One run of the check.
class DataCheck {
 public:
  DataCheck(std::string_view file_name, bool has_labels, std::int32_t separator,
            const DataCheckRules& rules, DataCheckListener& listener)
      : file_name_(file_name),
        has_labels_(has_labels),
        separator_(separator),
        rules_(rules),
        listener_(listener),
        decimal_(CurrentLocale().DecimalSymbol()),
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
      ReadFile();
      FindFirstLines();
      Feedback(check_text::kCheckingSeparator);
      if (separator_ != separator_code::kNone) CheckFirstLines();
      // Not a rule of the file's form, but a load would not take such labels.
      if (labels_row_.find('\0') != std::string_view::npos) {
        throw Refusal{check_text::kNulInLabels};
      }
      Feedback(check_text::kCheckingData);
      CheckData();
      return true;
    } catch (const Refusal& refusal) {
      return Fail(message, std::string(refusal.text), refusal.text);
    } catch (const Error& error) {
      return Fail(message, error.Description(), check_text::WithoutPrefix(error.Description()));
    } catch (const std::bad_alloc&) {
      return Fail(message, "Out of memory", "Out of memory");
    } catch (const std::exception& error) {
      return Fail(message, error.what(), error.what());
    }
  }

 private:
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

  /// A failure of the system is none of the file, and keeps its own words.
  void ReadFile() {
    FileHelpers::TextFile file = SharedFunctions::ReadFile(file_name_);
    switch (file.kind) {
      case FileHelpers::TextFile::Kind::kRead:
        text_ = std::move(file.text);
        return;
      case FileHelpers::TextFile::Kind::kForbidden:
        throw Refusal{check_text::kInvalidFile};
      default:
        throw Refusal{check_text::kFileNotFound};
    }
  }

  /// Finds the labels row and the first data row. Leading empty lines are refused on purpose, in
  /// one of two ways: a first line with something in it must be among the first 99 to be looked at.
  void FindFirstLines() {
    std::string_view rest = text_;
    std::string_view line;
    std::int32_t lines = 0;
    while (line.empty()) {
      if (rest.empty()) throw Refusal{check_text::kInvalidFile};
      line = TakeLine(rest);
      if (++lines == kLinesLookedAt) throw Refusal{check_text::kFirstLinesEmpty};
    }
    if (lines > 1) throw Refusal{check_text::kInvalidFile};
    if (has_labels_) {
      if (rest.empty()) {
        throw Refusal{SharedFunctions::HasLoneReturns(text_) ? check_text::kLoneReturns
                                                             : check_text::kInvalidFile};
      }
      labels_row_ = line;
      line = TakeLine(rest);
    }
    first_row_ = line;
  }

  static std::string_view TakeLine(std::string_view& rest) {
    const std::size_t end = rest.find('\n');
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
  }

  void CheckFirstLines() {
    if (separator_ < separator_code::kNone || separator_ > separator_code::kBar) {
      throw Refusal{check_text::kInvalidSeparator};
    }
    const std::string_view separator = SharedFunctions::SeparatorToString(separator_);
    last_column_ = LastFieldIndex(first_row_, separator);
    if (last_column_ > rules_.most_column_index) throw Refusal{check_text::kTooManyColumns};
    if (has_labels_) {
      Feedback(check_text::kCheckingLabels);
      if (LastFieldIndex(labels_row_, separator) != last_column_) {
        throw Refusal{check_text::kLabelCount};
      }
      if (labels_row_.find(separator) == std::string_view::npos) {
        throw Refusal{check_text::kLabelSeparator};
      }
    }
    const std::string_view first_field = first_row_.substr(0, first_row_.find(separator));
    if (!IsNumeric(first_field, decimal_) && !IsNumeric(first_field, '.')) {
      throw Refusal{check_text::kFirstFieldNotNumeric};
    }
  }

  void CheckData() {
    if (text_.empty()) RaiseInvalidData(std::string(check_text::kFileIsEmpty));
    if (separator_ != separator_code::kNone) {
      TextCleanup::ReplaceSeparator(text_, SharedFunctions::SeparatorToString(separator_));
    }
    Feedback(check_text::kRemovingSeparators);
    TextCleanup::CollapseRuns(text_, ' ');
    const bool has_empty_row = HasEmptyRowInside(text_);
    Feedback(check_text::kClearingRows);
    Feedback(check_text::kRemovingCharacters);
    const bool drops_labels = has_labels_ && !IsFirstLineBlank();
    TextCleanup::CleanLines(text_);
    const std::size_t start = drops_labels ? TextCleanup::SecondLineOffset(text_) : 0;
    std::string_view data = std::string_view(text_).substr(start);
    while (data.ends_with('\n')) data.remove_suffix(1);
    if (has_empty_row || data.empty()) RaiseInvalidData(std::string(check_text::kEmptyRows));

    const auto rows = static_cast<std::int64_t>(TextCleanup::CountLines(data));
    if (rows - 1 > rules_.most_row_index) {
      throw Error(error_number::kTooManyRows, kSource,
                  check_text::TooManyRows(rules_.most_row_index));
    }
    CheckRows(data, rows);
    row_index_ = rows;
    arguments_->put_Rows(static_cast<std::int32_t>(rows));
    End(check_text::kCompleted);
  }

  /// Whether the clean-up deletes the first line: then it cannot be dropped a second time.
  bool IsFirstLineBlank() const {
    const std::size_t first = text_.find_first_not_of(" \t;");
    return first == std::string::npos || text_[first] == '\n';
  }

  /// Ends early, and as a success, when a handler cancels.
  void CheckRows(std::string_view data, std::int64_t rows) {
    const bool listening = listener_.IsListening();
    RowScanner scanner(data, decimal_);
    for (row_index_ = 0; !scanner.AtEnd(); ++row_index_) {
      if (listening && (row_index_ % kRowsPerFeedback == 0 || row_index_ == rows - 1)) {
        Feedback(check_text::CheckingRow(row_index_ + 1));
        if (arguments_->Cancel()) {
          arguments_->put_Rows(static_cast<std::int32_t>(row_index_));
          return End(check_text::kCancelled);
        }
      }
      CheckRow(scanner.Next());
    }
  }

  void CheckRow(const RowScanner::Row& row) {
    if (row.fields - 1 == last_column_ && row.first_invalid < 0) return;
    InvalidPosition& position = LastInvalidPosition();
    const std::int64_t number = row_index_ + 1;
    if (row.is_empty) {
      position.row = static_cast<std::int32_t>(number);
      RaiseInvalidData(check_text::MissingInRow(number));
    }
    if (row.fields - 1 != last_column_) {
      position.row = static_cast<std::int32_t>(number);
      RaiseInvalidData(check_text::ColumnCount(number));
    }
    if (rules_.checks_response && NullHelper::IsMissingToken(row.last_field)) {
      throw Error(error_number::kMissingResponse, kResponseSource,
                  check_text::MissingResponse(number, row.fields));
    }
    position.column = row.first_invalid + 1;
    position.row = static_cast<std::int32_t>(number);
    RaiseInvalidData(check_text::InvalidValue(number, row.first_invalid + 1, row.invalid_field));
  }

  std::string_view file_name_;
  bool has_labels_;
  std::int32_t separator_;
  DataCheckRules rules_;
  DataCheckListener& listener_;
  char decimal_;
  Ref<IParseEventArgs> arguments_;

  std::string text_;
  std::string_view labels_row_;  // into text_, good until it is changed
  std::string_view first_row_;
  std::int64_t last_column_ = 0;  // one column when there is no separator
  std::int64_t row_index_ = 0;    // the row under examination, 0-based
};

}  // namespace

bool CheckDataFile(std::string_view file_name, bool has_labels, std::int32_t separator,
                   const DataCheckRules& rules, DataCheckListener& listener, std::string& message) {
  return DataCheck(file_name, has_labels, separator, rules, listener).Run(message);
}

}  // namespace tslm5
