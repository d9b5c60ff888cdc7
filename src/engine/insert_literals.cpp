#include "engine/insert_literals.h"

#include <cstring>

#include "support/byte_block.h"
#include "tslm5/platform/number_text.h"

namespace tslm5 {
namespace {

using number_text_internal::IsDigit;

constexpr std::ptrdiff_t kSureIntegerDigits = 18;  // every such number fits in 64 bits

bool IsNameStart(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

/// What may follow a number without being part of a longer, unknown token.
bool EndsToken(char c) {
  return c == ',' || c == ')' || c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

}  // namespace

bool InsertLiterals::Next(InsertLiteral& literal) {
  SkipBlanks();
  if (!first_) {
    if (at_ == end_ || *at_ != ',') return false;
    ++at_;
    SkipBlanks();
  }
  first_ = false;
  if (at_ == end_) return false;
  if (*at_ == '\'') return NextText(literal);
  if (*at_ == 'N' || *at_ == 'n') return NextNull(literal);
  return NextNumber(literal);
}

bool InsertLiterals::NextText(InsertLiteral& literal) {
  const char* start = ++at_;
  literal.kind = InsertLiteral::Kind::kText;
  for (;; ++at_) {
    at_ = ByteScan::Find(
        at_, end_,
        [](const char* p) {
          const ByteScan::ByteBlock block(p);
          return block.Equal('\'') | block.Equal('\0');
        },
        [](const char* p) { return *p == '\'' || *p == '\0'; });
    if (at_ == end_ || *at_ == '\0') return false;
    if (at_ + 1 == end_ || at_[1] != '\'') break;
    literal.kind = InsertLiteral::Kind::kQuotedText;
    ++at_;
  }
  literal.text = {start, static_cast<std::size_t>(at_ - start)};
  literal.readable_end = end_;
  ++at_;
  return true;
}

bool InsertLiterals::NextNull(InsertLiteral& literal) {
  if (end_ - at_ < 5 || !EndsToken(at_[4])) return false;
  if ((at_[0] | 0x20) != 'n' || (at_[1] | 0x20) != 'u' || (at_[2] | 0x20) != 'l' ||
      (at_[3] | 0x20) != 'l') {
    return false;
  }
  at_ += 4;
  literal.kind = InsertLiteral::Kind::kNull;
  return true;
}

bool InsertLiterals::NextNumber(InsertLiteral& literal) {
  const char* start = at_;
  const char* p = at_;
  if (p != end_ && *p == '-') ++p;
  const char* digits = p;
  bool whole = true;
  while (p != end_ && !EndsToken(*p)) {
    whole = whole && IsDigit(*p);
    ++p;
  }
  if (p == end_ || p == digits || *digits == '+' || *digits == '-') return false;
  if (whole) {
    if (p - digits > kSureIntegerDigits) return false;
    std::int64_t value = 0;
    for (const char* q = digits; q != p; ++q) value = value * 10 + (*q - '0');
    literal.kind = InsertLiteral::Kind::kInteger;
    literal.integer = digits == start ? value : -value;
  } else {
    if (!ParseNumber({start, static_cast<std::size_t>(p - start)}, '.', literal.real)) {
      return false;
    }
    literal.kind = InsertLiteral::Kind::kReal;
  }
  at_ = p;
  return true;
}

bool InsertLiterals::AtEnd() {
  SkipBlanks();
  if (at_ == end_ || *at_ != ')') return false;
  ++at_;
  SkipBlanks();
  if (at_ != end_ && *at_ == ';') ++at_;
  SkipBlanks();
  return at_ == end_;
}

bool SplitInsertHead(std::string_view sql, std::string_view& table, std::size_t& head_size) {
  constexpr std::string_view kBefore = "INSERT INTO ";
  constexpr std::string_view kAfter = " VALUES (";
  if (!sql.starts_with(kBefore)) return false;
  std::size_t end = kBefore.size();
  if (end == sql.size() || !IsNameStart(sql[end])) return false;
  while (end < sql.size() && (IsNameStart(sql[end]) || IsDigit(sql[end]))) ++end;
  if (sql.substr(end, kAfter.size()) != kAfter) return false;
  table = sql.substr(kBefore.size(), end - kBefore.size());
  head_size = end + kAfter.size();
  return true;
}

}  // namespace tslm5
