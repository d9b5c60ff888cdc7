#include "tslm5/platform/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <string_view>

namespace tslm5 {
namespace {

constexpr double kUntouched = 123.456;
constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kSmallest = std::numeric_limits<double>::denorm_min();

struct Good {
  std::string_view text;
  double value;
};

void ExpectNumbers(char decimal, const std::vector<Good>& cases) {
  for (const Good& c : cases) {
    double value = kUntouched;
    EXPECT_TRUE(ParseNumber(c.text, decimal, value)) << '"' << c.text << '"';
    EXPECT_EQ(value, c.value) << '"' << c.text << '"';
    EXPECT_EQ(std::signbit(value), std::signbit(c.value)) << '"' << c.text << '"';
  }
}

void ExpectNoNumbers(char decimal, const std::vector<std::string_view>& texts) {
  for (const std::string_view text : texts) {
    double value = kUntouched;
    EXPECT_FALSE(ParseNumber(text, decimal, value)) << '"' << text << '"';
    EXPECT_EQ(value, kUntouched) << '"' << text << '"';
  }
}

TEST(ParseNumber, ReadsThePlainGrammar) {
  ExpectNumbers('.',
                {{"0", 0.0},       {"7", 7.0},           {"007", 7.0},           {"12.5", 12.5},
                 {"5.", 5.0},      {".5", 0.5},          {"-12.5", -12.5},       {"+12.5", 12.5},
                 {"-.5", -0.5},    {"-0", -0.0},         {"+0.0", 0.0},          {"  1.5", 1.5},
                 {"1.5  ", 1.5},   {"  -1.5  ", -1.5},   {"1e3", 1000.0},        {"1E3", 1000.0},
                 {"1e+3", 1000.0}, {"1.5e-3", 0.0015},   {"1.E2", 100.0},        {".5e1", 5.0},
                 {"-2e0", -2.0},   {"1e0000002", 100.0}, {"0e999999999999", 0.0}});
}

TEST(ParseNumber, ReadsTheDecimalCommaWhenAsked) {
  ExpectNumbers(',', {{"12,5", 12.5},
                      {"-,5", -0.5},
                      {"5,", 5.0},
                      {"1,5e-3", 0.0015},
                      {"1e3", 1000.0},
                      {"0,1000000000000000055511151231257827", 0.1},
                      {"123456789012345678901,5", 123456789012345678901.5}});
}

TEST(ParseNumber, RefusesWhatIsNoNumber) {
  ExpectNoNumbers('.', {"",
                        " ",
                        "   ",
                        "-",
                        "+",
                        ".",
                        "-.",
                        "e5",
                        ".e5",
                        "1e",
                        "1e+",
                        "1e-",
                        "1e5.5",
                        "1e 5",
                        "1 e5",
                        "--1",
                        "+-1",
                        "- 1",
                        "1-",
                        "1.2.3",
                        "1..2",
                        "1 2",
                        "1,5",
                        "1,000",
                        "1.000,5",
                        "abc",
                        "1a",
                        "a1",
                        "0x10",
                        "1p3",
                        "inf",
                        "-inf",
                        "nan",
                        "NaN",
                        "infinity",
                        "nan(abc)",
                        "$1",
                        "(1)",
                        "1%",
                        "1e5e5",
                        "\t1",
                        "1\t",
                        "1\n",
                        "1\r",
                        "1_000",
                        "1f",
                        "\xC2\xA0"
                        "1",
                        "١",
                        "1d5"});
  ExpectNoNumbers(',', {"1.5", "1,2,3", ",", "-,", "1.000,5", "1,5.", ",e5"});
}

TEST(ParseNumber, StopsAtAnEmbeddedNul) {
  ExpectNoNumbers('.', {std::string_view("1\0", 2), std::string_view("\0", 1),
                        std::string_view("1\0"
                                         "5",
                                         3)});
}

TEST(ParseNumber, RefusesOverflow) {
  ExpectNoNumbers('.',
                  {"1e309", "-1e309", "1.8e308", "1e99999999999999999999", "17976931348623159e292",
                   "0.0001e400", "123456789012345678901234567890e300"});
  ExpectNoNumbers('.', {std::string(310, '9'), "0." + std::string(400, '0') + "1e800"});
  ExpectNoNumbers(',', {"1,8e308", "0,0001e400"});
}

TEST(ParseNumber, ReadsTheLargestNumbers) {
  ExpectNumbers('.', {{"1.7976931348623157e308", kLargest},
                      {"-1.7976931348623158e+308", -kLargest},
                      {"0.00017976931348623157e312", kLargest},
                      {"179769313486231570000e288", kLargest}});
}

TEST(ParseNumber, UnderflowReadsAsZeroOfTheSameSign) {
  ExpectNumbers('.', {{"1e-400", 0.0},
                      {"-1e-400", -0.0},
                      {"1e-99999999999999999999", 0.0},
                      {"123456789.123456789e-400", 0.0},
                      {"2e-324", 0.0},
                      {"0.00000e-400", 0.0}});
  ExpectNumbers(',', {{"1,5e-400", 0.0}, {"0,0001e-330", 0.0}});
}

TEST(ParseNumber, ZerosBehindThePointCanOutweighThePositiveExponent) {
  const std::string far_down = "0." + std::string(700, '0') + "1e300";
  const std::string not_so_far = "0." + std::string(700, '0') + "1e701";
  ExpectNumbers('.', {{far_down, 0.0}, {not_so_far, 1.0}});
}

TEST(ParseNumber, ReadsTheSmallestNumbers) {
  ExpectNumbers('.', {{"4.9406564584124654e-324", kSmallest},
                      {"-3e-324", -kSmallest},
                      {"2.2250738585072014e-308", std::numeric_limits<double>::min()},
                      {"2.2250738585072011e-308", 0x0.fffffffffffffp-1022}});
}

TEST(ParseNumber, RoundsHalfwayCasesToEven) {
  ExpectNumbers('.', {{"9007199254740992", 9007199254740992.0},
                      {"9007199254740993", 9007199254740992.0},
                      {"9007199254740995", 9007199254740996.0},
                      {"9007199254740993.00000000000000000000000001", 9007199254740994.0},
                      {"18446744073709551616", 18446744073709551616.0},
                      {"0.500000000000000166533453693773481063544750213623046875",
                       0.500000000000000222044604925031308084726333618164062500}});
}

TEST(WriteNumber, WritesTheseTexts) {
  struct Case {
    double value;
    const char* text;
  };
  for (const Case& c : {Case{0.0, "0"},
                        {-0.0, "-0"},
                        {1.0, "1"},
                        {-1.0, "-1"},
                        {1.5, "1.5"},
                        {-12.25, "-12.25"},
                        {10.0, "10"},
                        {1200.0, "1200"},
                        {0.1, "0.1"},
                        {0.1 + 0.2, "0.30000000000000004"},
                        {1e14, "100000000000000"},
                        {123456789012345.6, "123456789012345.6"},
                        {999999999999999.9, "999999999999999.9"},
                        {1e15, "1E+15"},
                        {1.25e15, "1.25E+15"},
                        {9007199254740993.0, "9.007199254740992E+15"},
                        {1e-5, "0.00001"},
                        {1.25e-5, "0.0000125"},
                        {1e-6, "1E-06"},
                        {-1.25e-6, "-1.25E-06"},
                        {1.5e300, "1.5E+300"},
                        {1e-300, "1E-300"},
                        {kSmallest, "5E-324"},
                        {kLargest, "1.7976931348623157E+308"},
                        {-0.000012345678901234567, "-0.000012345678901234568"}}) {
    EXPECT_EQ(NumberText(c.value), c.text);
  }
}

TEST(WriteNumber, WritesWhatIsNoNumberInWords) {
  EXPECT_EQ(NumberText(std::numeric_limits<double>::quiet_NaN()), "nan");
  EXPECT_EQ(NumberText(std::numeric_limits<double>::infinity()), "inf");
  EXPECT_EQ(NumberText(-std::numeric_limits<double>::infinity()), "-inf");
}

TEST(WriteNumber, AppendNumberKeepsWhatIsThere) {
  std::string text = "x=";
  AppendNumber(text, 2.5);
  AppendNumber(text, -3.0);
  EXPECT_EQ(text, "x=2.5-3");
}

}  // namespace
}  // namespace tslm5
