#include "engine/insert_literals.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace tslm5 {
namespace {

using Kind = InsertLiteral::Kind;

/// The literals of `list` ("1,'a')") with their kinds, or "?" when it is not known beyond doubt.
std::string Cut(std::string_view list, int count) {
  InsertLiterals literals(list);
  InsertLiteral literal;
  std::string cut;
  for (int i = 0; i < count; ++i) {
    if (!literals.Next(literal)) return "?";
    if (i > 0) cut += ' ';
    switch (literal.kind) {
      case Kind::kNull:
        cut += "null";
        break;
      case Kind::kInteger:
        cut += "int:" + std::to_string(literal.integer);
        break;
      case Kind::kReal:
        cut += "real:" + std::to_string(std::llround(literal.real * 1000));
        break;
      case Kind::kText:
        cut += "text:" + std::string(literal.text);
        break;
      case Kind::kQuotedText:
        cut += "quoted:" + std::string(literal.text);
        break;
    }
  }
  return literals.AtEnd() ? cut : "?";
}

TEST(InsertLiteralsTest, CutsEveryKind) {
  EXPECT_EQ(Cut("'a',NULL,12,1.5,'it''s')", 5), "text:a null int:12 real:1500 quoted:it''s");
}

TEST(InsertLiteralsTest, FindsNoLiteralBehindTheLastComma) {
  InsertLiterals literals("12,");
  InsertLiteral literal;
  EXPECT_TRUE(literals.Next(literal));
  EXPECT_FALSE(literals.Next(literal));
  EXPECT_FALSE(InsertLiterals("").Next(literal));
}

TEST(InsertLiteralsTest, CutsNumbersInEveryNotation) {
  EXPECT_EQ(Cut("0)", 1), "int:0");
  EXPECT_EQ(Cut("-7)", 1), "int:-7");
  EXPECT_EQ(Cut("007)", 1), "int:7");
  EXPECT_EQ(Cut("999999999999999999)", 1), "int:999999999999999999");
  EXPECT_EQ(Cut("-999999999999999999)", 1), "int:-999999999999999999");
  EXPECT_EQ(Cut(".5)", 1), "real:500");
  EXPECT_EQ(Cut("-.5)", 1), "real:-500");
  EXPECT_EQ(Cut("5.)", 1), "real:5000");
  EXPECT_EQ(Cut("1e1)", 1), "real:10000");
  EXPECT_EQ(Cut("25E-1)", 1), "real:2500");
  EXPECT_EQ(Cut("1.E+1)", 1), "real:10000");
}

TEST(InsertLiteralsTest, CutsNullInAnyCase) {
  EXPECT_EQ(Cut("NULL,null,Null,nULL)", 4), "null null null null");
}

TEST(InsertLiteralsTest, SkipsBlanks) {
  EXPECT_EQ(Cut(" 1 ,\t'a'\n,\rNULL ) ; ", 3), "int:1 text:a null");
  EXPECT_EQ(Cut("1,2);", 2), "int:1 int:2");
}

TEST(InsertLiteralsTest, TextHoldsWhatever) {
  EXPECT_EQ(Cut("'')", 1), "text:");
  EXPECT_EQ(Cut("'''')", 1), "quoted:''");
  EXPECT_EQ(Cut("'a''')", 1), "quoted:a''");
  EXPECT_EQ(Cut("'1'');--')", 1), "quoted:1'');--");
  EXPECT_EQ(Cut("' , ) -- \n /* \u00e9')", 1), "text: , ) -- \n /* \u00e9");
}

TEST(InsertLiteralsTest, FindsTheEndOfATextOfAnyLength) {
  for (std::size_t size = 0; size < 50; ++size) {
    const std::string text(size, 'x');
    EXPECT_EQ(Cut("'" + text + "',7)", 2), "text:" + text + " int:7") << size;
    for (std::size_t at = 0; at < size; ++at) {
      std::string quoted = text;
      quoted.replace(at, 1, "''");
      EXPECT_EQ(Cut("'" + quoted + "',7)", 2), "quoted:" + quoted + " int:7") << size << " " << at;
      std::string cut = text;
      cut[at] = '\0';
      EXPECT_EQ(Cut("'" + cut + "',7)", 2), "?") << size << " " << at;
    }
  }
}

TEST(InsertLiteralsTest, IsNotSureOfAnythingElse) {
  for (const char* list : {"",
                           ")",
                           "1",
                           "1,",
                           "1 2)",
                           "1)x",
                           "1);;",
                           "1) -- a",
                           "1)(2)",
                           "1),(2)",
                           "+1)",
                           "- 1)",
                           "--1)",
                           "-+1)",
                           "-)",
                           "1+1)",
                           "1-1)",
                           "1/*a*/)",
                           "/*a*/1)",
                           "0x10)",
                           "1e)",
                           "1e+)",
                           ".)",
                           "e5)",
                           "1.2.3)",
                           "1e400)",
                           "1_0)",
                           "1\f)",
                           "5x)",
                           "nan)",
                           "inf)",
                           "nul)",
                           "nulll)",
                           "NULL",
                           "NULL+1)",
                           "null/*a*/)",
                           "nothing)",
                           "(1))",
                           "x'41')",
                           "X'41')",
                           "'a)",
                           "'a'x)",
                           "'a' 'b')",
                           "'a'||'b')",
                           "'a'",
                           "\"a\")",
                           "`a`)",
                           "[a])",
                           "?)",
                           "?1)",
                           ":a)",
                           "@a)",
                           "$a)",
                           "true)",
                           "current_date)",
                           "cast(1 as text))",
                           "'a' collate nocase)",
                           "1,2)",
                           "(select 1))",
                           "9223372036854775807)",
                           "1000000000000000000)",
                           "0000000000000000001)"}) {
    EXPECT_EQ(Cut(list, 1), "?") << list;
  }
  EXPECT_EQ(Cut(std::string_view("'a\0')", 5), 1), "?");
  EXPECT_EQ(Cut(std::string_view("1\0)", 3), 1), "?");
  EXPECT_EQ(Cut("1)", 2), "?");
  EXPECT_EQ(Cut("1;2)", 2), "?");
}

TEST(SplitInsertHeadTest, TakesTheOneShapeOfAPlainName) {
  for (const std::string name : {"t", "TrainingSet", "_x9", "t_1"}) {
    const std::string head = "INSERT INTO " + name + " VALUES (";
    std::string_view table;
    std::size_t size = 0;
    EXPECT_TRUE(SplitInsertHead(head + "1)", table, size)) << name;
    EXPECT_EQ(size, head.size());
  }
  const std::string sql = "INSERT INTO TrainingSet VALUES (1)";
  std::string_view table;
  std::size_t size = 0;
  EXPECT_TRUE(SplitInsertHead(sql, table, size));
  EXPECT_EQ(table, "TrainingSet");
}

TEST(SplitInsertHeadTest, RefusesEveryOtherShape) {
  for (const char* sql :
       {"", "INSERT INTO ", "INSERT INTO t", "INSERT INTO t VALUES", "INSERT INTO t VALUES(1)",
        "insert into t values (1)", "INSERT INTO 9t VALUES (1)", "INSERT INTO \"t\" VALUES (1)",
        "INSERT INTO main.t VALUES (1)", "INSERT INTO t(a) VALUES (1)", "INSERT  INTO t VALUES (1)",
        "INSERT OR IGNORE INTO t VALUES (1)", "INSERT INTO t AS u VALUES (1)",
        "INSERT INTO t SELECT 1", " INSERT INTO t VALUES (1)", "REPLACE INTO t VALUES (1)",
        "INSERT INTO t\u00e9 VALUES (1)"}) {
    std::string_view table;
    std::size_t size = 0;
    EXPECT_FALSE(SplitInsertHead(sql, table, size)) << sql;
  }
}

}  // namespace
}  // namespace tslm5
