#ifndef TSLM5_TESTS_ENGINE_RANDOM_INSERTS_H_
#define TSLM5_TESTS_ENGINE_RANDOM_INSERTS_H_

#include <cstddef>
#include <random>
#include <string>

namespace tslm5 {

/// Random INSERTs into a table t of seven columns, good and bad ones; the same on every run.
class RandomInserts {
 public:
  static constexpr int kColumns = 7;

  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

  template <std::size_t N>
  const char* OneOf(const char* const (&choices)[N]) {
    return choices[Below(static_cast<int>(N))];
  }

  std::string Digits(int most) {
    std::string digits;
    for (int i = Below(most) + 1; i > 0; --i) digits += static_cast<char>('0' + Below(10));
    return digits;
  }

  std::string Number() {
    std::string number = Below(8) > 0 ? Digits(Below(6) == 0 ? 40 : 9) : "";
    if (Below(2) == 0) number += '.';
    if (Below(2) == 0) number += Digits(Below(6) == 0 ? 40 : 9);
    if (Below(4) == 0) {
      number += OneOf({"e", "E", "e-", "e+", "E-"});
      if (Below(20) > 0) number += std::to_string(Below(Below(4) == 0 ? 340 : 25));
    }
    return number;
  }

  /// A text between quotes: mostly a number, else anything.
  std::string Text() {
    std::string text;
    if (Below(3) > 0) {
      text = OneOf({"", "", "", "", "", "-", "-", "+", " ", "  ", "\t", " -", "- ", "--", "+-"});
      text += Number();
      text += OneOf({"", "", "", "", "", " ", "   ", "\t", "\n", "x", " x", "%", "''"});
    } else {
      for (int i = Below(9); i > 0; --i) {
        text +=
            OneOf({"a",  "Z",  "7",  "''", "\"",     ",",    "(",      ")", "-", "--", ";",   "/*",
                   "*/", "\n", "\t", " ",  "\u00e9", "\xff", "\u20ac", "?", ".", "e",  "NULL"});
      }
    }
    return "'" + text + (Below(300) == 0 ? "" : "'");
  }

  std::string Literal() {
    switch (Below(16)) {
      case 0:
        return OneOf({"NULL", "null", "Null", "nULl", "NUL", "NULLS"});
      case 1:
      case 2:
        return OneOf({"", "", "-", "+", "- ", "-+", " -"}) + Number();
      case 3:
        return OneOf({"-", ""}) + Digits(22);
      case 4:
        return Odd();
      default:
        return Text();
    }
  }

  std::string Statement() {
    std::string sql =
        Below(20) > 0
            ? "INSERT INTO t VALUES ("
            : OneOf({"INSERT INTO T VALUES (", "insert into t values (", "INSERT INTO t VALUES(",
                     "INSERT INTO main.t VALUES (", "INSERT INTO t (f,r,s,i,n,b,x) VALUES (",
                     "INSERT INTO \"t\" VALUES (", "INSERT INTO u VALUES ("});
    int count = kColumns;
    if (Below(40) == 0) count += Below(3) - 1;
    for (int i = 0; i < count; ++i) {
      if (i > 0) sql += Below(400) == 0 ? " " : ",";
      if (Below(8) == 0) sql += OneOf({" ", "  ", "\t", "\n", "\r\n", "\f"});
      if (Below(150) == 0) sql += OneOf({"/* a, ' */", "-- a ' \n", "/**/"});
      sql += Below(4) > 0 ? Text() : Literal();
      if (Below(12) == 0) sql += OneOf({" ", "\t", "\n", "\f"});
    }
    if (Below(30) > 0) return sql + OneOf({")", ")", ");", " ) ; "});
    return sql + OneOf({"", ") -- a", ") /* a */;", "))", ") x", ")\f;", ",)"});
  }

 private:
  std::string Odd() {
    return OneOf({"1e400",
                  "-1e400",
                  "'1e400'",
                  "'-1e400'",
                  "'1e-400'",
                  "1e-400",
                  "'4.9e-324'",
                  "'2e-324'",
                  "'3e-324'",
                  "'1.7976931348623157e308'",
                  "'1.7976931348623159e308'",
                  "9223372036854775807",
                  "9223372036854775808",
                  "-9223372036854775808",
                  "-9223372036854775809",
                  "'9223372036854775807'",
                  "'9223372036854775808'",
                  "'-9223372036854775808'",
                  "'-0'",
                  "'-0.0'",
                  "-0",
                  "-0.0",
                  "-.0",
                  "'0'",
                  "'00.00'",
                  "''",
                  "'.'",
                  "'+'",
                  "'-'",
                  "'e'",
                  "'1e'",
                  "'1e+'",
                  "'0x1F'",
                  "0x1F",
                  "-0x1F",
                  "'1_0'",
                  "1_0",
                  "'inf'",
                  "'nan'",
                  "inf",
                  "' '",
                  "x'4142'",
                  "X''",
                  "x'4'",
                  "1+2",
                  "'1'+2",
                  "'a'||'b'",
                  "abs(-3)",
                  "(5)",
                  "-(-2)",
                  "--1",
                  "cast('7' as text)",
                  "true",
                  "5 collate nocase",
                  "'a' 'b'",
                  "\"f\"",
                  "f",
                  "?",
                  "123456789012345678",
                  "999999999999999999",
                  "000000000000000001",
                  "'000000000000000000000001'",
                  "9007199254740993",
                  "'9007199254740993'",
                  "'9007199254740993.0'",
                  "1.0e15",
                  "'1e15'",
                  "1e18",
                  "'1.0'",
                  "1.",
                  "'1.'",
                  ".5",
                  "'.5'",
                  "5.e1",
                  "'5.e1'"});
  }

  std::mt19937_64 random_{20240517};
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_ENGINE_RANDOM_INSERTS_H_
