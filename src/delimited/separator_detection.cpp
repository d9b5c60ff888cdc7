#include "delimited/separator_detection.h"

#include <algorithm>
#include <map>
#include <vector>

#include "tslm5/platform/number_text.h"

namespace tslm5::delimited {
namespace {

constexpr char kCandidates[] = {'\t', ';', '|', ',', ' '};  // the first of equals is taken
constexpr std::size_t kLongestPreamble = 30;
constexpr double kClearlyMore = 0.02;
constexpr double kPreambleScore = 0.6;     // a table from the first line on is likelier
constexpr double kShortHeaderScore = 0.8;  // and one with a label for each column
constexpr double kLeastEvenShare = 0.5;
constexpr double kBlankNumberShare = 0.9;
constexpr double kOtherNumberShare = 0.7;

using Records = std::vector<Sample::Record>;

/// The width that most records have; of several the largest.
std::size_t UsualWidth(const Records& records) {
  std::map<std::size_t, std::size_t> records_by_width;
  for (const auto& record : records) ++records_by_width[record.fields.size()];
  std::size_t usual = 0;
  std::size_t most = 0;
  for (const auto& [width, count] : records_by_width) {
    if (count < most) continue;
    usual = width;
    most = count;
  }
  return usual;
}

bool IsAnyNumber(const Field& field) {
  double ignored = 0.0;
  return ParseNumber(field.Text(), '.', ignored) || ParseNumber(field.Text(), ',', ignored);
}

/// Whether the first record can be a header that has no label for the row names: one field less
/// than all others, none of them empty or a bare number. A lone one with a separator in it is a
/// title.
bool IsShortHeader(const Records& records, std::size_t columns) {
  if (records.size() < 2 || columns < 2 || records[0].fields.size() + 1 != columns) return false;
  const std::string_view text = records[0].fields[0].Text();
  if (columns == 2 && text.find_first_of(" ,;|\t") != std::string_view::npos) return false;
  if (std::any_of(records[0].fields.begin(), records[0].fields.end(), [](const Field& one) {
        return one.field_class == FieldClass::kMissing ||
               (one.field_class == FieldClass::kNumber && !one.is_quoted);
      })) {
    return false;
  }
  return std::all_of(records.begin() + 1, records.end(),
                     [=](const auto& one) { return one.fields.size() == columns; });
}

/// The records before the first of `columns` fields; 0 where they are too many for a preamble.
std::size_t CountPreamble(const Records& records, std::size_t columns) {
  const auto first = std::find_if(records.begin(), records.end(),
                                  [=](const auto& one) { return one.fields.size() == columns; });
  const auto count = static_cast<std::size_t>(first - records.begin());
  return count <= kLongestPreamble && 2 * count < records.size() ? count : 0;
}

double Score(const TableShape& shape) {
  double score = shape.even_share * shape.even_share * (1.0 + shape.number_share);
  if (shape.preamble != 0) score *= kPreambleScore;
  if (shape.has_short_header) score *= kShortHeaderScore;
  return score;
}

bool IsEven(const SeparatorChoice& choice) {
  return choice.shape.even_share == 1.0;
}

/// Whether a blank separates rather than the best of the others: it alone makes numbers.
bool BlankIsBetter(const SeparatorChoice& blank, const SeparatorChoice& other) {
  if (other.separator == '\0') return true;
  if (IsEven(other)) {
    return IsEven(blank) && blank.shape.number_share >= kBlankNumberShare &&
           other.shape.number_share < kOtherNumberShare;
  }
  return Score(blank.shape) > Score(other.shape) + kClearlyMore;
}

}  // namespace

TableShape ShapeOf(const Sample& sample) {
  const Records& records = sample.Records();
  TableShape shape;
  if (records.empty()) return shape;
  shape.columns = UsualWidth(records);
  shape.has_short_header = IsShortHeader(records, shape.columns);
  if (!shape.has_short_header) shape.preamble = CountPreamble(records, shape.columns);
  const std::size_t begin = shape.preamble + (shape.has_short_header ? 1 : 0);
  std::size_t even = 0;
  std::size_t fields = 0;
  std::size_t numbers = 0;
  for (std::size_t i = begin; i < records.size(); ++i) {
    even += records[i].fields.size() == shape.columns ? 1U : 0U;
    if (i == shape.preamble && records.size() - begin > 1) continue;  // perhaps the header
    for (const Field& field : records[i].fields) {
      if (field.field_class == FieldClass::kMissing) continue;
      ++fields;
      numbers += IsAnyNumber(field) ? 1U : 0U;
    }
  }
  shape.even_share = static_cast<double>(even) / static_cast<double>(records.size() - begin);
  if (fields != 0) shape.number_share = static_cast<double>(numbers) / static_cast<double>(fields);
  return shape;
}

SeparatorChoice DetectSeparator(const SampleText& text, bool has_quotes) {
  SeparatorChoice best;
  for (const char candidate : kCandidates) {
    const DelimiterRules rules{candidate, has_quotes};
    const SeparatorChoice choice{candidate,
                                 ShapeOf(Sample(text, rules, FieldScanner(rules, '.', {})))};
    if (choice.shape.columns < 2 || choice.shape.even_share <= kLeastEvenShare) continue;
    const bool is_better = candidate == ' '
                               ? BlankIsBetter(choice, best)
                               : Score(choice.shape) > Score(best.shape) + kClearlyMore;
    if (is_better) best = choice;
  }
  if (best.separator == '\0') {
    const DelimiterRules rules{'\0', has_quotes};
    best.shape = ShapeOf(Sample(text, rules, FieldScanner(rules, '.', {})));
  }
  return best;
}

}  // namespace tslm5::delimited
