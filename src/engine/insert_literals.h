#ifndef TSLM5_ENGINE_INSERT_LITERALS_H_
#define TSLM5_ENGINE_INSERT_LITERALS_H_

#include <cstdint>
#include <string_view>

namespace tslm5 {

/// A literal cut out of an INSERT's value list.
struct InsertLiteral {
  enum class Kind {
    kNull,
    kInteger,     ///< `integer` holds the value
    kReal,        ///< `real` holds the value
    kText,        ///< `text` is what stands between the quotes
    kQuotedText,  ///< the same, with each apostrophe of the value still doubled
  };

  Kind kind = Kind::kNull;
  std::int64_t integer = 0;
  double real = 0.0;
  std::string_view text;
  const char* readable_end = nullptr;  ///< of a text: the end of the list that it stands in
};

/// A cursor over the literals of a value list "(v, v, …)", by SQLite's own rules. It answers only
/// what it knows beyond doubt: quoted text, NULL, and decimal numbers that 64 bits hold. On
/// anything else it says false, and the statement goes the ordinary way.
class InsertLiterals {
 public:
  /// `list` starts behind the opening parenthesis.
  explicit InsertLiterals(std::string_view list)
      : at_(list.data()), end_(list.data() + list.size()) {}

  /// Takes the next literal and the comma before it (there is none before the first).
  bool Next(InsertLiteral& literal);

  /// True when the closing parenthesis follows and, after it, blanks and one ";" at most.
  bool AtEnd();

 private:
  void SkipBlanks() {
    while (at_ != end_ && (*at_ == ' ' || *at_ == '\t' || *at_ == '\n' || *at_ == '\r')) ++at_;
  }
  bool NextText(InsertLiteral& literal);
  bool NextNull(InsertLiteral& literal);
  bool NextNumber(InsertLiteral& literal);

  const char* at_;
  const char* end_;
  bool first_ = true;
};

/// Splits "INSERT INTO name VALUES (" off the beginning of `sql`: true and the name (a plain
/// identifier) and the length of that beginning, or false.
bool SplitInsertHead(std::string_view sql, std::string_view& table, std::size_t& head_size);

}  // namespace tslm5

#endif  // TSLM5_ENGINE_INSERT_LITERALS_H_
