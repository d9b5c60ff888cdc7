#include "storage/row_insert_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "platform/raised.h"

namespace tslm5 {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct LineCase {
  std::string_view line;
  std::string_view values;
  std::int32_t fields;
};

constexpr LineCase kLines[] = {
    {"1.5", "'1.5', 7", 1},
    {"1 2 3", "'1','2','3', 7", 3},
    {"  1 2   ", "'1','2', 7", 2},
    {"", "NULL, 7", 1},
    {"   ", "NULL, 7", 1},
    {"1  2", "'1',NULL,'2', 7", 3},
    {"1   2", "'1',NULL,NULL,'2', 7", 4},
    {"1 ? 3", "'1',NULL,'3', 7", 3},
    {"NULL Null null NA na", "NULL,NULL,NULL,NULL,NULL, 7", 5},
    {". ._ .a .Z", "NULL,NULL,NULL,NULL, 7", 4},
    {"Na nA NuLL ?x .. .5 .ab", "'Na','nA','NuLL','?x','..','.5','.ab', 7", 7},
    {"1,5 red \"x\" -- ;", "'1,5','red','\"x\"','--',';', 7", 5},
    {"1\t2", "'1\t2', 7", 1},
    {"\u00e9t\u00e9 1e5", "'\u00e9t\u00e9','1e5', 7", 2},
};

TEST(RowInsertText, QuotesTheFieldsOfALine) {
  RowInsertText text("TrainingSet", false);
  for (const LineCase& c : kLines) {
    const std::string expected = "INSERT INTO TrainingSet VALUES (" + std::string(c.values) + ");";
    EXPECT_EQ(text.FromLine(c.line, 7), expected) << "line: " << c.line;
    EXPECT_EQ(text.Fields(), c.fields) << "line: " << c.line;
  }
}

TEST(RowInsertText, TurnsACommaIntoAPointWhereItIsTheDecimalSeparator) {
  RowInsertText text("TrainingSet", true);
  EXPECT_EQ(text.FromLine("1,5 -2,25 1,2,3", 1),
            "INSERT INTO TrainingSet VALUES ('1.5','-2.25','1.2.3', 1);");
}

TEST(RowInsertText, KnowsAMissingTokenAfterTheCommaWasTurned) {
  RowInsertText text("TrainingSet", true);
  EXPECT_EQ(text.FromLine("1 ,", 1), "INSERT INTO TrainingSet VALUES ('1',NULL, 1);");
}

TEST(RowInsertText, RefusesAnApostrophe) {
  RowInsertText text("TrainingSet", false);
  const Error error = Raised([&text] { text.FromLine("1 1');DROP", 3); });
  EXPECT_EQ(error.Number(), 41011);
  EXPECT_EQ(error.Source(), "ParseArray");
  EXPECT_EQ(error.Description(),
            "Row 3, column 2 holds an apostrophe, which a data table does not take.");
}

TEST(RowInsertText, RefusesANulCharacter) {
  RowInsertText text("TrainingSet", false);
  const Error error = Raised([&text] { text.FromLine(std::string_view("1\0 2", 4), 12); });
  EXPECT_EQ(error.Number(), 41011);
  EXPECT_EQ(error.Source(), "ParseArray");
  EXPECT_EQ(error.Description(),
            "Row 12, column 1 holds a NUL character, which a data table does not take.");
}

TEST(RowInsertText, IsUsableAfterARefusal) {
  RowInsertText text("TrainingSet", false);
  EXPECT_EQ(RaisedNumber([&text] { text.FromLine("it's", 1); }), 41011);
  EXPECT_EQ(text.FromLine("9", 2), "INSERT INTO TrainingSet VALUES ('9', 2);");
}

TEST(RowInsertText, WritesNumbersByTheShortestText) {
  RowInsertText text("TestingSet", false);
  text.BeginNumbers();
  for (const double number : {1.0, -2.5, 0.1 + 0.2, 1e300, 5e-324, 1.0 / 3.0}) {
    text.AddNumber(number);
  }
  EXPECT_EQ(text.EndNumbers(4),
            "INSERT INTO TestingSet VALUES "
            "(1,-2.5,0.30000000000000004,1E+300,5E-324,0.3333333333333333,4);");
}

TEST(RowInsertText, NumbersUseThePointWhateverTheLocale) {
  RowInsertText text("TestingSet", true);
  text.AddNumber(1.5);
  EXPECT_EQ(text.EndNumbers(1), "INSERT INTO TestingSet VALUES (1.5,1);");
}

TEST(RowInsertText, NotANumberIsNullAndInfinityIsRefused) {
  RowInsertText text("TestingSet", false);
  text.AddNumber(kNan);
  text.AddNumber(-kNan);
  EXPECT_EQ(RaisedNumber([&text] { text.AddNumber(kInfinity); }), 6);
  EXPECT_EQ(RaisedNumber([&text] { text.AddNumber(-kInfinity); }), 6);
  EXPECT_EQ(text.EndNumbers(1), "INSERT INTO TestingSet VALUES (NULL,NULL,1);");
}

// The database makes an infinity of each of them.
TEST(RowInsertText, ANumberTooLargeForADoubleIsRefused) {
  const std::string long_number(400, '9');
  for (const std::string& number :
       {std::string("1e400"), std::string("9e308"), std::string("-1E+999999999999"),
        std::string("1.7976931348623159e308"), std::string("+.1e310"), std::string("5.e308"),
        std::string("1e400\r"), std::string("\f1e400"), long_number, "-" + long_number + ".5",
        std::string(250, '1') + "e99", std::string("17976931348623159e0292")}) {
    RowInsertText text("TestingSet", false);
    const Error error = Raised([&] { text.FromLine("1 " + number + " 3", 7); });
    EXPECT_EQ(error.Number(), 41011) << number;
    EXPECT_EQ(error.Source(), "ParseArray");
    EXPECT_EQ(error.Description(), "Row 7, column 2 holds a number too large for a double, " +
                                       number.substr(0, 15) +
                                       ", which a data table does not take.");
  }
}

TEST(RowInsertText, ALargeNumberOrAWordIsNot) {
  for (const std::string& field :
       {std::string("1e308"), std::string("1.7976931348623157e308"), std::string("1e-400"),
        std::string("0e999"), std::string(200, '9') + "e99", std::string("inf"),
        std::string("1e400x"), std::string("e400"), std::string("1e"), std::string("1.2.3e400"),
        std::string(400, 'x'), std::string(400, '0'), "0." + std::string(400, '9')}) {
    RowInsertText text("TestingSet", false);
    EXPECT_EQ(text.FromLine(field, 1), "INSERT INTO TestingSet VALUES ('" + field + "', 1);");
  }
}

TEST(RowInsertText, ANumberTooLargeIsFoundUnderADecimalCommaAndBehindOtherFields) {
  RowInsertText text("TestingSet", true);
  EXPECT_EQ(RaisedNumber([&text] { text.FromLine("1,8e308", 1); }), 41011);
  EXPECT_EQ(RaisedNumber([&text] { text.FromLine("e 12345678901234567890e300 e e", 1); }), 41011);
  EXPECT_EQ(RaisedNumber([&text] { text.FromLine("e 1234567 e 1,7e308 1 1 1 1 1 1 1", 1); }), 0);
}

TEST(RowInsertText, ARowThatHoldsItsNumberEndsWithoutAComma) {
  RowInsertText text("TestingSet", false);
  text.AddNumber(1.5);
  text.AddNumber(7);
  EXPECT_EQ(text.EndNumbers(), "INSERT INTO TestingSet VALUES (1.5,7);");
}

TEST(RowInsertText, TakesARowWithoutNumbers) {
  RowInsertText text("TestingSet", false);
  EXPECT_EQ(text.EndNumbers(3), "INSERT INTO TestingSet VALUES (3);");
  EXPECT_EQ(text.EndNumbers(), "INSERT INTO TestingSet VALUES ();");
}

TEST(RowInsertText, BeginNumbersForgetsTheRowBefore) {
  RowInsertText text("TestingSet", false);
  text.AddNumber(1);
  text.EndNumbers(1);
  text.BeginNumbers();
  text.AddNumber(2);
  EXPECT_EQ(text.EndNumbers(2), "INSERT INTO TestingSet VALUES (2,2);");
}

TEST(RowInsertText, GrowsWithTheRow) {
  std::string line;
  std::string values;
  for (int i = 0; i < 5000; ++i) {
    line += "12345.678 ";
    values += "'12345.678',";
  }
  RowInsertText text("TrainingSet", false);
  EXPECT_EQ(text.FromLine(line, 2147483647),
            "INSERT INTO TrainingSet VALUES (" + values + " 2147483647);");
  EXPECT_EQ(text.FromLine(std::string(5000, ' ') + "1", 1),
            "INSERT INTO TrainingSet VALUES ('1', 1);");
  // Between words, n blanks make n - 1 empty fields.
  std::string nulls;
  for (int i = 0; i < 4999; ++i) nulls += "NULL,";
  EXPECT_EQ(text.FromLine("1" + std::string(5000, ' ') + "2", 1),
            "INSERT INTO TrainingSet VALUES ('1'," + nulls + "'2', 1);");
}

}  // namespace
}  // namespace tslm5
