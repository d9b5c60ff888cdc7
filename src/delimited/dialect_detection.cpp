#include "delimited/dialect_detection.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "delimited/header_detection.h"
#include "delimited/separator_detection.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::delimited {
namespace {

/// Whether a number with a comma is rather one with thousands separators: three digits behind it.
bool HasThreeDigitsBehindComma(std::string_view text) {
  const std::size_t comma = text.rfind(',');
  return text.size() - comma == 4;
}

/// The decimal sign of the numbers in a sample: the one that more of them need.
char DetectDecimal(const Sample& sample, char separator) {
  std::size_t points = 0;
  std::size_t commas = 0;
  std::size_t perhaps_thousands = 0;
  for (const auto& record : sample.Records()) {
    for (const Field& field : record.fields) {
      const std::string_view text = field.Text();
      double ignored = 0.0;
      const bool has_comma = text.find(',') != std::string_view::npos;
      if (!has_comma && text.find('.') == std::string_view::npos) continue;
      if (!ParseNumber(text, has_comma ? ',' : '.', ignored)) continue;
      ++(has_comma ? commas : points);
      if (has_comma && HasThreeDigitsBehindComma(text)) ++perhaps_thousands;
    }
  }
  const bool are_thousands = perhaps_thousands == commas && (points != 0 || separator == ',');
  return commas > points && !are_thousands ? ',' : '.';
}

class Detector {
 public:
  Detector(SampleText sample, const ReadOptions& options, FindingList& findings)
      : text_(sample), options_(options), findings_(findings) {}

  Dialect Run() {
    text_.skipped_lines = options_.preamble_lines.value_or(0);
    dialect_.has_quotes = options_.has_quotes.value_or(true);
    ChooseSeparator();
    const DelimiterRules rules{dialect_.separator, dialect_.has_quotes};
    Sample sample(text_, rules, FieldScanner(rules, '.', options_.missing_tokens));
    dialect_.decimal = options_.decimal.value_or(DetectDecimal(sample, dialect_.separator));
    sample.Classify(FieldScanner(rules, dialect_.decimal, options_.missing_tokens));
    dialect_.columns = shape_.columns;
    dialect_.preamble_lines = text_.skipped_lines;
    if (sample.Records().empty()) return dialect_;
    PassPreamble(sample);
    ChooseHeader(sample);
    return dialect_;
  }

 private:
  void ChooseSeparator() {
    const SeparatorChoice found = DetectSeparator(text_, dialect_.has_quotes);
    dialect_.separator = options_.separator.value_or(found.separator);
    shape_ = found.shape;
    if (dialect_.separator == found.separator) return;
    const DelimiterRules rules{dialect_.separator, dialect_.has_quotes};
    shape_ = ShapeOf(Sample(text_, rules, FieldScanner(rules, '.', {})));
    const bool splits_nothing = shape_.columns < 2 && dialect_.separator != '\0';
    if (splits_nothing && found.separator != '\0' && found.shape.columns > 1) {
      findings_.Add(FindingCode::kSeparatorContradicted, 0, -1, SeparatorName(found.separator));
    }
  }

  void PassPreamble(const Sample& sample) {
    if (shape_.preamble == 0) return;
    const std::int64_t lines = sample.Records()[shape_.preamble].line - 1;
    const std::string count = std::to_string(lines);
    if (options_.preamble_lines) {
      findings_.Add(FindingCode::kPreambleContradicted, sample.Records()[0].line, -1, count);
      shape_.preamble = 0;
      return;
    }
    dialect_.preamble_lines = lines;
    if (!options_.skips_preamble) findings_.Add(FindingCode::kPreamble, 1, -1, count);
  }

  void ChooseHeader(const Sample& sample) {
    const Sample::Record& first = sample.Records()[shape_.preamble];
    if (shape_.has_short_header && options_.has_header.value_or(true)) {
      dialect_.has_header = true;
      dialect_.has_row_names = true;
      findings_.Add(FindingCode::kRowNames, first.line, 0, {});
      return;
    }
    const HeaderEvidence evidence = DetectHeader(sample, shape_.preamble, shape_.columns);
    const bool is_header = evidence == HeaderEvidence::kHeader;
    dialect_.has_header = options_.has_header.value_or(is_header);
    const std::string_view text = first.fields[0].Text();
    if (!options_.has_header && evidence == HeaderEvidence::kUnclear) {
      findings_.Add(FindingCode::kNoHeader, first.line, 0, text);
    }
    const bool is_lone = sample.Records().size() == shape_.preamble + 1;
    const bool is_clear = evidence != HeaderEvidence::kUnclear && !is_lone;
    if (is_clear && dialect_.has_header != is_header) {
      findings_.Add(FindingCode::kHeaderContradicted, first.line, -1,
                    is_header ? "header" : "data");
    }
  }

  SampleText text_;
  const ReadOptions& options_;
  FindingList& findings_;
  Dialect dialect_;
  TableShape shape_;
};

}  // namespace

const char* SeparatorName(char separator) {
  switch (separator) {
    case ',':
      return "comma";
    case ';':
      return "semicolon";
    case '\t':
      return "tab";
    case '|':
      return "bar";
    case ' ':
      return "space";
    default:
      return "none";
  }
}

Dialect DetectDialect(SampleText sample, const ReadOptions& options, FindingList& findings) {
  return Detector(sample, options, findings).Run();
}

}  // namespace tslm5::delimited
