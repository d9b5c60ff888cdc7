#include "datasetlite/prepared_text.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

#include "datasetlite/record_widths.h"
#include "delimited/plain_records.h"
#include "support/string_helpers.h"
#include "support/text_cleanup.h"
#include "support/utf8.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

constexpr std::string_view kBlank = " ";

std::string_view FirstLine(std::string_view text) {
  return text.substr(0, text.find('\n'));
}

/// The number of values in the first line of a text of blank-separated values.
std::int32_t CountFirstLineValues(std::string_view text) {
  const std::string_view line = Utf8::TrimBlanks(FirstLine(text));
  if (line.empty()) return 0;
  const auto blanks = std::count(line.begin(), line.end(), ' ');
  return static_cast<std::int32_t>(
      std::min<std::ptrdiff_t>(blanks + 1, std::numeric_limits<std::int32_t>::max()));
}

/// Makes every separator one blank. A blank beside a separator is no value of its own; an empty
/// value between two of them is.
void BlankSeparators(std::string& text, std::string_view separator) {
  if (separator == kBlank || separator.empty()) return;
  TextCleanup::DropBlanksBeside(text, separator.front());
  TextCleanup::ReplaceSeparator(text, separator);
}

/// The width of a text of plain numbers, which needs no cleaning; none for any other text.
std::optional<std::int32_t> PlainWidth(std::string_view text, std::string_view separator) {
  const std::string_view line = FirstLine(text);
  delimited::PlainShape shape;
  shape.separator = separator.empty() ? '\0' : separator.front();
  if (!separator.empty()) shape.fields += std::count(line.begin(), line.end(), shape.separator);
  if (line.empty() || shape.fields > std::numeric_limits<std::int32_t>::max()) return std::nullopt;
  const char* const end = text.data() + text.size();
  if (delimited::PlainRecords(shape).Count(text.data(), end).end != end) return std::nullopt;
  return static_cast<std::int32_t>(shape.fields);
}

}  // namespace

PreparedText PrepareText(std::string text, std::string_view separator, bool has_labels,
                         std::int32_t layout, const char* source, bool counts_plain_records) {
  PreparedText rows;
  if (has_labels) rows.label_row = FirstLine(text);  // before any re-arrangement
  const bool is_transposed = layout == layout_code::kRecordsInColumns;
  if (is_transposed) {
    if (separator.empty()) {
      throw Error(error_number::kInvalidArgument, source,
                  "Text without a separator cannot be transposed: its lines would run together.");
    }
    text = StringHelpers::RearrangeText(std::move(text), separator, layout);
  }
  if (has_labels) TextCleanup::DropFirstLine(text);
  if (const auto width = counts_plain_records ? PlainWidth(text, separator) : std::nullopt) {
    rows.columns = *width;
    TextCleanup::ReplaceSeparator(text, separator);
    rows.text = std::move(text);
    return rows;
  }
  const std::string first_record(FirstLine(text));
  BlankSeparators(text, separator);
  // Only a blank can still stand in runs: between other separators an empty value keeps its place.
  if (separator == kBlank) TextCleanup::CollapseRuns(text, ' ');

  // Looked at while the empty lines are still there to be counted.
  const std::string_view unit = is_transposed ? kRecordUnit : kLineUnit;
  const std::int64_t first_line = has_labels && !is_transposed ? 2 : 1;
  if (separator != kBlank && IsAmbiguous(first_record, separator, FirstLine(text))) {
    rows.refusal = AmbiguousRecordText(first_line, unit);
  } else if (const auto uneven = FindUnevenRecord(text, first_line)) {
    rows.refusal = UnevenRecordText(*uneven, unit);
  }
  if (!rows.refusal.empty() && text.find('\0') != std::string::npos) {
    rows.refusal = NulText(text, first_line, unit);  // which may be why
  }
  TextCleanup::CleanLines(text);
  rows.columns = CountFirstLineValues(text);
  rows.text = std::move(text);
  return rows;
}

}  // namespace tslm5
