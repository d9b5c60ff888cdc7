#ifndef TSLM5_CONTRACTS_DATA_CHECK_H_
#define TSLM5_CONTRACTS_DATA_CHECK_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/feedback.h"
#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// What a data check can find in a text.
enum class CheckCode : std::int32_t {
  // Of the text as a whole, its separator and its labels.
  kNoFirstLine,         ///< no first line, an empty one, or labels without a line below them
  kFirstLinesEmpty,     ///< the first 99 lines are empty
  kLoneReturns,         ///< lines that end at carriage returns alone
  kUnknownSeparator,    ///< a code that is no separator
  kTooManyColumns,      ///< more fields in the first record than a check looks at
  kLabelCount,          ///< more or fewer labels than the first record has fields
  kLabelSeparator,      ///< labels without the separator
  kNulInLabels,         ///< labels with a NUL character
  kFirstFieldNoNumber,  ///< a first record that does not begin with a number
  kNoRecords,           ///< nothing but empty lines below the labels
  kTooManyRecords,      ///< more records than a set takes
  // Of a line.
  kEmptyLine,        ///< an empty line between two others
  kFieldCount,       ///< a record of another width than the first
  kMissingResponse,  ///< a record of classified data whose last field stands for no value
  kMissingValue,     ///< a field that stands for no value
  kText,             ///< any other field that is no number
};

/// One thing that keeps a text from being loaded. Lines, records and columns are numbered from 1;
/// 0 where the finding has none.
struct DataCheckFinding {
  CheckCode code = CheckCode::kNoFirstLine;  ///< what it is
  std::int64_t line = 0;             ///< of the file, the label line and empty lines counted
  std::int64_t record = 0;           ///< without them
  std::int64_t column = 0;           ///< of the record
  std::optional<std::string> label;  ///< what the label line says of the column, where it does
  std::string value;    ///< the field, or the line of a `kFieldCount`; its first 200 bytes or fewer
  std::string message;  ///< the words of `IDataSet::IsValidDataSet` for it
};

/// What to check, and what to look for.
struct DataCheckOptions {
  std::string path;                                 ///< of the text
  std::int32_t separator = separator_code::kComma;  ///< `separator_code`
  bool has_labels = true;                           ///< the first line holds them
  /// `problem_category`: of classified data every record needs a response.
  std::int32_t problem_category = problem_category::kRegression;
  bool takes_text = false;            ///< a field of `kText` is none to be found
  bool takes_missing = false;         ///< nor is one of `kMissingValue`; a missing response is
  bool finds_all = false;             ///< goes on behind the first finding
  std::int64_t most_kept = 1;         ///< how many findings are returned; all are counted
  std::string set_name = "Training";  ///< what messages call the set
};

/// A field that a load would change.
struct ChangedField {
  std::int64_t line = 0;    ///< 1-based
  std::int64_t column = 0;  ///< 1-based
  std::string value;        ///< as it stands in the file
};

/// What a check came to. A text is valid when nothing was found and nobody stopped the check.
struct DataCheckResult {
  bool is_valid = false;        ///< see above
  bool was_stopped = false;     ///< by the feedback; what was found until then stands
  std::int64_t count = 0;       ///< of all findings, kept or not; at most 1 without `finds_all`
  std::int64_t records = 0;     ///< looked at
  std::int64_t columns = 0;     ///< of the first record
  std::int64_t first_line = 0;  ///< of the first record, 1-based
  /// Whether every record looked at is nothing but numbers between single separators, and no line
  /// is empty: there is nothing in such a text that one reader could understand in another way.
  bool is_plain = false;
  std::vector<DataCheckFinding> findings;     ///< the first ones, in the order of the lines
  std::int64_t changed_count = 0;             ///< fields that lose a tab or a semicolon when loaded
  std::optional<ChangedField> first_changed;  ///< the first of them
};

/// The check of `IDataSet::IsValidDataSet`, its findings as data. A component class of its own
/// (`class_id::kDataCheck`), without state: one object serves any number of checks. Caller's
/// thread only. It notes no invalid position.
class IDataCheck : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d3500002aULL, 0x8a1f4c0b6d2e732aULL};

  /// Reads the file once and checks it; changes nothing. `pFeedback` may be null; it is told of
  /// records, and stops the check by answering false. The first finding is that of
  /// `IsValidDataSet`; with `finds_all` a first record that does not begin with a number is named
  /// with the other fields of the records. Raises 53 when there is no such file, 75 when it cannot
  /// be read, 41011 when it is not text and 7 for lack of memory: none of them says anything about
  /// the text.
  virtual DataCheckResult Check(const DataCheckOptions& pOptions, IFeedback* pFeedback) = 0;

 protected:
  ~IDataCheck() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_DATA_CHECK_H_
