#ifndef TSLM5_DATACHECK_TEXT_CHECK_H_
#define TSLM5_DATACHECK_TEXT_CHECK_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "datacheck/data_check.h"
#include "datacheck/row_scanner.h"
#include "tslm5/contracts/data_check.h"

namespace tslm5 {

/// What a check is asked to look for.
struct TextCheckRules {
  bool has_labels = false;
  std::int32_t separator = separator_code::kNone;
  char decimal = '.';
  DataCheckRules data;
  bool takes_text = false;  ///< of `DataCheckOptions`, as are the next two
  bool takes_missing = false;
  bool finds_all = false;
  bool counts_plain_lines = true;  ///< false: every line is read in the careful way
};

/// A finding while the text is there. Lines, records and columns are 1-based, 0 for none.
struct TextFinding {
  CheckCode code;
  std::int64_t line = 0;
  std::int64_t record = 0;
  std::int64_t column = 0;
  std::string_view value{};
  std::optional<std::string_view> label{};  ///< of the column, without the blanks around it
};

/// The steps of a check that are worth a word to the user.
enum class CheckStage {
  kSeparator,
  kLabels,
  kData,
  kRemovingSeparators,
  kClearingRows,
  kRemovingCharacters,
};

/// Whom a check reports to while it runs.
class TextCheckObserver {
 public:
  virtual void Begin(CheckStage stage) = 0;
  /// Every how many records, and at the last one, it is told of them; 0 for never.
  virtual std::int64_t RecordsPerReport() const = 0;
  /// Record `index` of `count`, 0-based, comes next. False stops the check.
  virtual bool Record(std::int64_t index, std::int64_t count) = 0;
  virtual void Found(const TextFinding& finding) = 0;
  /// A field loses a tab or a semicolon when it is loaded; told by a check that finds all, and for
  /// what was looked at.
  virtual void Changed(std::int64_t line, std::int64_t column, std::string_view field) = 0;

 protected:
  ~TextCheckObserver() = default;
};

/// Checks a text by the fixed rules, step by step: every separator and blank separates, runs of
/// them are one, tabs and semicolons that are no separators are nothing. The text is read where it
/// stands and stays as it is. Lines of plain numbers are counted, not read; any other line is
/// cleaned in a buffer and looked at field by field.
class TextCheck {
 public:
  /// The text, with "\n" as its line break, must outlive the check.
  TextCheck(std::string_view text, const TextCheckRules& rules, TextCheckObserver& observer);

  struct Result {
    bool was_stopped = false;
    bool is_plain = true;
    std::int64_t records = 0;  ///< of the text, or as many as were looked at before a finding
    std::int64_t columns = 0;
    std::int64_t first_line = 0;
  };
  /// Runs the check once. Without `finds_all` it ends at the first finding.
  Result Run();

 private:
  bool FindFirstLines();
  bool CheckSeparator();
  bool CheckFirstLines(std::string_view separator);
  bool IsRefusedFirst(std::string_view field) const;
  bool FindRecords();
  void CheckRecords();
  bool Report(std::int64_t records);
  bool CheckLine(std::string_view line);
  bool CheckFields(std::string_view cleaned, const RowScanner::Row& row);
  void NoteChanges(std::string_view line);
  /// Whether the check goes on.
  bool Find(TextFinding finding);
  std::optional<std::string_view> LabelOf(std::int64_t column);

  std::string_view text_;
  TextCheckRules rules_;
  TextCheckObserver& observer_;
  char separator_ = '\0';  // '\0' for none
  std::string_view labels_row_;
  std::string_view first_row_;
  std::string_view data_;  // from the line below the labels to the end of the last record
  std::int64_t fields_ = 1;
  std::int64_t line_ = 0;    // the line under examination, 1-based
  std::int64_t record_ = 0;  // the records looked at
  std::int64_t count_ = 0;   // records of the text
  std::int64_t records_per_report_ = 0;
  bool has_found_ = false;
  bool has_other_first_field_ = false;
  std::string buffer_;
  std::vector<std::string_view> labels_;  // filled when the first one is asked for
  Result result_;
};

}  // namespace tslm5

#endif  // TSLM5_DATACHECK_TEXT_CHECK_H_
