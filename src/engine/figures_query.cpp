#include "engine/figures_query.h"

#include <algorithm>
#include <array>
#include <utility>

#include "tslm5/platform/number_text.h"

namespace tslm5 {
namespace {

using number_text_internal::IsDigit;

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

bool SameWord(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return Lower(a) == Lower(b); });
}

/// A cursor over the query: each step takes what it names, or says no.
class Cursor {
 public:
  explicit Cursor(std::string_view text) : text_(text) {}

  bool Word(std::string_view& word) {
    SkipBlanks();
    std::size_t size = 0;
    while (size < text_.size() && IsNameCharacter(text_[size])) ++size;
    if (size == 0 || IsDigit(text_[0])) return false;
    word = text_.substr(0, size);
    text_.remove_prefix(size);
    return true;
  }

  bool Keyword(std::string_view keyword) {
    const std::string_view before = text_;
    std::string_view word;
    if (Word(word) && SameWord(word, keyword)) return true;
    text_ = before;
    return false;
  }

  bool Symbol(char symbol) {
    SkipBlanks();
    if (!text_.starts_with(symbol)) return false;
    text_.remove_prefix(1);
    return true;
  }

  /// A number of SQL: no blanks, no sign but "-".
  bool Number(std::string_view& number) {
    SkipBlanks();
    number = text_.substr(0, text_.find_first_of(" ;"));
    double value = 0.0;
    if (number.empty() || number[0] == '+' || !ParseNumber(number, '.', value)) return false;
    text_.remove_prefix(number.size());
    return true;
  }

  bool AtEnd() {
    Symbol(';');
    SkipBlanks();
    return text_.empty();
  }

  std::string_view Rest() const { return text_; }
  void SkipBlanks() {
    while (text_.starts_with(' ')) text_.remove_prefix(1);
  }

 private:
  static bool IsNameCharacter(char c) {
    return c == '_' || IsDigit(c) || (Lower(c) >= 'a' && Lower(c) <= 'z');
  }

  std::string_view text_;
};

constexpr std::array<std::pair<std::string_view, FiguresQuery::Kind>, 6> kFunctions = {{
    {"min", FiguresQuery::Kind::kMinimum},
    {"max", FiguresQuery::Kind::kMaximum},
    {"avg", FiguresQuery::Kind::kMean},
    {"median", FiguresQuery::Kind::kMedian},
    {"stdev", FiguresQuery::Kind::kDeviation},
    {"count", FiguresQuery::Kind::kCount},
}};

bool TakeItem(Cursor& cursor, FiguresQuery& query) {
  cursor.SkipBlanks();
  const std::string_view start = cursor.Rest();
  std::string_view name;
  if (!cursor.Word(name)) return false;
  const auto* const function =
      std::find_if(kFunctions.begin(), kFunctions.end(),
                   [name](const auto& f) { return SameWord(f.first, name); });
  if (function == kFunctions.end() || !cursor.Symbol('(')) return false;

  FiguresQuery::Item item;
  item.kind = function->second;
  if (item.kind == FiguresQuery::Kind::kCount) {
    if (!cursor.Symbol('*')) return false;
  } else {
    std::string_view column;
    if (!cursor.Word(column)) return false;
    const auto known = std::find(query.columns.begin(), query.columns.end(), column);
    item.column = static_cast<std::size_t>(known - query.columns.begin());
    if (known == query.columns.end()) query.columns.emplace_back(column);
  }
  if (!cursor.Symbol(')')) return false;
  item.text = start.substr(0, start.size() - cursor.Rest().size());
  query.items.push_back(std::move(item));
  return true;
}

}  // namespace

bool ParseFiguresQuery(std::string_view sql, FiguresQuery& query) {
  query = {};
  Cursor cursor(sql);
  if (!cursor.Keyword("SELECT")) return false;
  do {
    if (!TakeItem(cursor, query)) return false;
  } while (cursor.Symbol(','));

  std::string_view table;
  if (!cursor.Keyword("FROM") || !cursor.Word(table)) return false;
  query.table = table;
  if (cursor.Keyword("WHERE")) {
    std::string_view column;
    std::string_view number;
    if (!cursor.Word(column) || !cursor.Symbol('=') || !cursor.Number(number)) return false;
    query.condition = std::string(column) + " = " + std::string(number);
  }
  return cursor.AtEnd() && !query.columns.empty();
}

}  // namespace tslm5
