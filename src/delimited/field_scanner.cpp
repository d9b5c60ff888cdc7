#include "delimited/field_scanner.h"

#include <algorithm>

#include "support/null_helper.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::delimited {
namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

bool IsNumber(std::string_view text, char decimal) {
  double ignored = 0.0;
  return ParseNumber(text, decimal, ignored);
}

}  // namespace

FieldScanner::FieldScanner(const DelimiterRules& rules, char decimal,
                           const std::vector<std::string>& tokens)
    : rules_(rules), decimal_(decimal), tokens_(tokens.begin(), tokens.end()) {
  has_number_tokens_ = std::any_of(tokens.begin(), tokens.end(),
                                   [=](const std::string& one) { return IsNumber(one, decimal); });
}

bool FieldScanner::IsNumberOtherwise(std::string_view text) const {
  return IsNumber(text, decimal_ == ',' ? '.' : ',');
}

void FieldScanner::ScanCarefully(const char* first, const char* last, Field& field,
                                 TextArena& arena) const {
  while (first != last && IsBlank(*first)) ++first;
  while (first != last && IsBlank(last[-1])) --last;
  field.data = first;
  field.size = static_cast<std::uint32_t>(last - first);
  field.is_quoted = rules_.has_quotes && first != last && *first == '"';
  if (field.is_quoted) TakeQuotesOff(first, last, field, arena);
  field.field_class = Classify(field.Text(), field.value);
}

void FieldScanner::TakeQuotesOff(const char* first, const char* last, Field& field,
                                 TextArena& arena) const {
  const char* const inner = first + 1;
  const char* const next_quote = std::find(inner, last, '"');
  if (next_quote == last) {  // unclosed, and so a text that begins with a quote
    field.is_quoted = false;
    return;
  }
  field.data = inner;
  field.size = static_cast<std::uint32_t>(next_quote - inner);
  if (next_quote + 1 == last) return;

  char* const copy = arena.Allocate(static_cast<std::size_t>(last - inner));
  char* to = std::copy(inner, next_quote, copy);
  const char* from = next_quote;
  while (from + 1 < last && from[1] == '"') {  // one doubled quote after the other
    const char* const end = std::find(from + 2, last, '"');
    to = std::copy(from + 1, end, to);
    from = end;
  }
  if (from != last) to = std::copy(from + 1, last, to);  // what follows the closing quote
  field.data = copy;
  field.size = static_cast<std::uint32_t>(to - copy);
}

FieldClass FieldScanner::Classify(std::string_view text, double& value) const {
  if (!tokens_.empty() && tokens_.contains(text)) return FieldClass::kMissing;
  if (ParseExactNumber(text.data(), text.size(), decimal_, value) ||
      ParseNumber(text, decimal_, value)) {
    return FieldClass::kNumber;
  }
  return NullHelper::IsMissingValue(text, decimal_) ? FieldClass::kMissing : FieldClass::kText;
}

std::size_t CountLineEnds(const char* first, const char* last) {
  std::size_t count = 0;
  for (const char* p = first; p != last; ++p) {
    count += *p == '\n' || (*p == '\r' && (p + 1 == last || p[1] != '\n')) ? 1 : 0;
  }
  return count;
}

}  // namespace tslm5::delimited
