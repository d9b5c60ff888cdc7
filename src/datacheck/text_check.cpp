#include "datacheck/text_check.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "datacheck/line_cleaning.h"
#include "delimited/plain_records.h"
#include "support/null_helper.h"
#include "support/numeric_test.h"
#include "support/shared_functions.h"
#include "support/text_cleanup.h"
#include "support/text_split.h"
#include "support/utf8.h"

namespace tslm5 {
namespace {

constexpr std::int32_t kLinesLookedAt = 100;
/// Lines of plain numbers are counted in portions, so that reports keep step with the check.
constexpr std::ptrdiff_t kPortionBytes = std::ptrdiff_t{64} * 1024;
/// Where many lines hold more than plain numbers, it is not tried at each of them.
constexpr int kMostLinesReadInARow = 64;

std::string_view TakeLine(std::string_view& rest) {
  const std::size_t end = rest.find('\n');
  std::string_view line = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

/// The number of fields of a line, 0 for the empty one.
std::int64_t CountFields(std::string_view line, std::string_view separator) {
  std::int64_t count = 0;
  FieldCursor fields(line, separator);
  for (std::string_view field; fields.Next(field);) ++count;
  return count;
}

bool IsMissing(std::string_view field) {
  return field.empty() || NullHelper::IsMissingToken(field);
}

const char* LineEnd(const char* first, const char* last) {
  const void* end = std::memchr(first, '\n', static_cast<std::size_t>(last - first));
  return end == nullptr ? last : static_cast<const char*>(end);
}

}  // namespace

TextCheck::TextCheck(std::string_view text, const TextCheckRules& rules,
                     TextCheckObserver& observer)
    : text_(text), rules_(rules), observer_(observer) {}

bool TextCheck::Find(TextFinding finding) {
  has_found_ = true;
  if (finding.column > 0) finding.label = LabelOf(finding.column);
  observer_.Found(finding);
  return rules_.finds_all;
}

std::optional<std::string_view> TextCheck::LabelOf(std::int64_t column) {
  if (labels_.empty()) {
    const std::string_view separator(&separator_, separator_ == '\0' ? 0 : 1);
    FieldCursor labels(Utf8::TrimBlanks(labels_row_), separator);
    for (std::string_view label; labels.Next(label);) {
      if (separator_ != ' ' || !label.empty()) labels_.push_back(Utf8::TrimBlanks(label));
    }
  }
  const auto index = static_cast<std::size_t>(column - 1);
  if (index >= labels_.size()) return std::nullopt;
  return labels_[index];
}

TextCheck::Result TextCheck::Run() {
  if (FindFirstLines() && CheckSeparator() && FindRecords()) CheckRecords();
  result_.records = record_;
  result_.columns = fields_;
  return result_;
}

/// Finds the labels row and the first data row. Leading empty lines are refused on purpose, in one
/// of two ways: a first line with something in it must be among the first 99 to be looked at.
bool TextCheck::FindFirstLines() {
  const auto refuse = [this](CheckCode code) {
    Find({code});
    return false;
  };
  std::string_view rest = text_;
  std::string_view line;
  std::int32_t lines = 0;
  while (line.empty()) {
    if (rest.empty()) return refuse(CheckCode::kNoFirstLine);
    line = TakeLine(rest);
    if (++lines == kLinesLookedAt) return refuse(CheckCode::kFirstLinesEmpty);
  }
  if (lines > 1) return refuse(CheckCode::kNoFirstLine);
  if (rules_.has_labels) {
    if (rest.empty()) {
      return refuse(SharedFunctions::HasLoneReturns(text_) ? CheckCode::kLoneReturns
                                                           : CheckCode::kNoFirstLine);
    }
    labels_row_ = line;
    line_ = 1;
    data_ = rest;
    line = TakeLine(rest);
  } else {
    data_ = text_;
  }
  first_row_ = line;
  return true;
}

bool TextCheck::CheckSeparator() {
  observer_.Begin(CheckStage::kSeparator);
  if (rules_.separator != separator_code::kNone) {
    if (rules_.separator < separator_code::kNone || rules_.separator > separator_code::kBar) {
      Find({CheckCode::kUnknownSeparator});
      return false;
    }
    const std::string_view separator = SharedFunctions::SeparatorToString(rules_.separator);
    separator_ = separator.front();
    if (!CheckFirstLines(separator)) return false;
  }
  // Not a rule of the file's form, but a load would not take such labels.
  return labels_row_.find('\0') == std::string_view::npos || Find({CheckCode::kNulInLabels, 1});
}

bool TextCheck::CheckFirstLines(std::string_view separator) {
  fields_ = CountFields(first_row_, separator);
  const std::int64_t first_line = line_ + 1;
  if (fields_ - 1 > rules_.data.most_column_index) {
    Find({CheckCode::kTooManyColumns, first_line});
    return false;
  }
  if (rules_.has_labels) {
    observer_.Begin(CheckStage::kLabels);
    if (CountFields(labels_row_, separator) != fields_) {
      if (!Find({CheckCode::kLabelCount, 1})) return false;
    } else if (labels_row_.find(separator) == std::string_view::npos) {
      if (!Find({CheckCode::kLabelSeparator, 1})) return false;
    }
  }
  const std::string_view first_field = first_row_.substr(0, first_row_.find(separator));
  if (!IsRefusedFirst(first_field)) return true;
  has_other_first_field_ = true;  // where all is looked for, its record will tell
  return rules_.finds_all || Find({CheckCode::kFirstFieldNoNumber, first_line, 1, 1, first_field});
}

bool TextCheck::IsRefusedFirst(std::string_view field) const {
  if (IsNumeric(field, rules_.decimal) || IsNumeric(field, '.')) return false;
  if (LineCleaning(separator_).IsEmpty(first_row_)) return true;
  return IsMissing(field) ? !rules_.takes_missing : !rules_.takes_text;
}

/// Finds the lines that may hold records, and how many records they are.
bool TextCheck::FindRecords() {
  observer_.Begin(CheckStage::kData);
  observer_.Begin(CheckStage::kRemovingSeparators);
  const LineCleaning cleaning(separator_);
  const std::size_t gap = FindEmptyRowInside(text_, cleaning.Separator());
  observer_.Begin(CheckStage::kClearingRows);
  observer_.Begin(CheckStage::kRemovingCharacters);

  std::string_view below = data_;
  while (!below.empty() && cleaning.IsEmpty(below.substr(0, below.find('\n')))) TakeLine(below);
  if (below.empty()) {
    Find({CheckCode::kNoRecords});
    return false;
  }
  const auto has_gap = gap != std::string_view::npos;
  if (has_gap && !rules_.finds_all) {
    const auto line = TextCleanup::CountLines(text_.substr(0, gap));
    return Find({CheckCode::kEmptyLine, static_cast<std::int64_t>(line)});
  }
  result_.first_line = line_ + 1 + std::count(data_.data(), below.data(), '\n');
  if (labels_row_.empty() || cleaning.IsEmpty(labels_row_)) {
    line_ = result_.first_line - 1;  // empty lines above everything are none between two others
    data_ = below;
  }
  data_ = data_.substr(0, cleaning.EndOfLastLine(data_));
  if (rules_.finds_all && separator_ != '\0') {
    const std::string_view first = below.substr(0, below.find('\n'));
    fields_ = std::count(first.begin(), first.end(), separator_) + 1;
  }
  count_ = static_cast<std::int64_t>(TextCleanup::CountLines(data_));
  if (has_gap) {
    LineCursor lines(data_);
    for (std::string_view line; lines.Next(line);) count_ -= cleaning.IsEmpty(line) ? 1 : 0;
  }
  if (count_ - 1 > rules_.data.most_row_index) {
    Find({CheckCode::kTooManyRecords});
    return false;
  }
  return true;
}

void TextCheck::CheckRecords() {
  const delimited::PlainRecords plain({separator_, rules_.decimal, fields_});
  const char* at = data_.data();
  const char* const end = at + data_.size();
  records_per_report_ = observer_.RecordsPerReport();
  int read_in_a_row = 1;
  while (at != end) {
    const char* portion_end = end;
    if (records_per_report_ != 0 && end - at > kPortionBytes) {
      portion_end = std::min(LineEnd(at + kPortionBytes, end) + 1, end);
    }
    const auto run = rules_.counts_plain_lines ? plain.Count(at, portion_end)
                                               : delimited::PlainRecords::Run{0, at};
    if (!Report(run.records)) return;
    record_ += run.records;
    line_ += run.records;
    at = run.end;
    read_in_a_row = run.records > 0 ? 1 : std::min(2 * read_in_a_row, kMostLinesReadInARow);
    for (int i = 0; i < read_in_a_row && at != portion_end; ++i) {
      const char* const line_end = LineEnd(at, end);
      if (!CheckLine({at, static_cast<std::size_t>(line_end - at)})) return;
      at = std::min(line_end + 1, end);
    }
  }
  if (has_other_first_field_ && !has_found_) {
    Find({CheckCode::kFirstFieldNoNumber, result_.first_line, 1, 1,
          first_row_.substr(0, first_row_.find(separator_))});
  }
}

/// Reports the next `records`, as far as the observer wants to hear of them. False when it stops
/// the check; the records before the one it stopped at are looked at then.
bool TextCheck::Report(std::int64_t records) {
  const std::int64_t step = records_per_report_;
  if (step == 0 || records == 0) return true;
  const std::int64_t last = record_ + records - 1;
  const auto report = [this](std::int64_t index) {
    if (observer_.Record(index, count_)) return true;
    record_ = index;
    result_.was_stopped = true;
    return false;
  };
  for (std::int64_t index = (record_ + step - 1) / step * step; index <= last; index += step) {
    if (!report(index)) return false;
  }
  return last != count_ - 1 || last % step == 0 || report(last);
}

/// Looks at one line in the careful way.
bool TextCheck::CheckLine(std::string_view line) {
  ++line_;
  result_.is_plain = false;
  const LineCleaning cleaning(separator_);
  const bool is_changed = cleaning.Clean(line, buffer_);
  const std::string_view cleaned = Utf8::TrimBlanks(buffer_);
  if (cleaned.empty()) return Find({CheckCode::kEmptyLine, line_});
  if (!Report(1)) return false;
  ++record_;
  if (is_changed) NoteChanges(line);
  const RowScanner::Row row = RowScanner(cleaned, rules_.decimal).Next();
  if (row.fields != fields_) return Find({CheckCode::kFieldCount, line_, record_, 0, line});
  return row.first_invalid < 0 || CheckFields(cleaned, row);
}

/// Names the fields of a record that are no numbers.
bool TextCheck::CheckFields(std::string_view cleaned, const RowScanner::Row& row) {
  const auto name_field = [this, &row](std::int64_t column, std::string_view field) {
    const bool is_missing = IsMissing(field);
    const bool is_response = column == row.fields && rules_.data.checks_response;
    const CheckCode code = !is_missing   ? CheckCode::kText
                           : is_response ? CheckCode::kMissingResponse
                                         : CheckCode::kMissingValue;
    if (code == CheckCode::kText && rules_.takes_text) return true;
    if (code == CheckCode::kMissingValue && rules_.takes_missing) return true;
    return Find({code, line_, record_, column, field});
  };
  // A missing response comes before everything else in its record when one finding is looked for.
  if (!rules_.finds_all && rules_.data.checks_response && IsMissing(row.last_field)) {
    return name_field(row.fields, row.last_field);
  }
  FieldCursor fields(cleaned, " ");
  std::int64_t column = 0;
  for (std::string_view field; fields.Next(field);) {
    ++column;
    if (!IsNumeric(field, rules_.decimal) && !name_field(column, field)) return false;
  }
  return true;
}

void TextCheck::NoteChanges(std::string_view line) {
  const std::string_view separator(&separator_, separator_ == '\0' ? 0 : 1);
  FieldCursor fields(line, separator);
  std::int64_t column = 0;
  for (std::string_view field; fields.Next(field);) {
    if (field.empty() && separator_ == ' ') continue;  // a run of blanks separates once
    ++column;
    if (std::any_of(field.begin(), field.end(), LineCleaning::IsStray)) {
      observer_.Changed(line_, column, Utf8::TrimBlanks(field));
    }
  }
}

}  // namespace tslm5
