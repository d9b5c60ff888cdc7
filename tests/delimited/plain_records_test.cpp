#include "delimited/plain_records.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "support/numeric_test.h"
#include "support/text_split.h"

namespace tslm5::delimited {
namespace {

constexpr MaskWay kWays[] = {MaskWay::kPortable, MaskWay::kSse2, MaskWay::kAvx2};

/// A text in memory of its own, so that a byte read behind it is found.
PlainRecords::Run CountIn(std::string_view text, const PlainShape& shape, MaskWay way,
                          std::size_t& end) {
  const auto bytes = std::make_unique<char[]>(text.size());
  std::copy(text.begin(), text.end(), bytes.get());
  const PlainRecords::Run run =
      PlainRecords(shape, way).Count(bytes.get(), bytes.get() + text.size());
  end = static_cast<std::size_t>(run.end - bytes.get());
  return run;
}

/// "records/bytes" of the plain beginning, the same in every way that the machine has.
std::string Counted(std::string_view text, const PlainShape& shape) {
  std::string counted;
  for (const MaskWay way : kWays) {
    if (!IsAvailable(way)) continue;
    std::size_t end = 0;
    const std::int64_t records = CountIn(text, shape, way, end).records;
    const std::string told = std::to_string(records) + "/" + std::to_string(end);
    EXPECT_TRUE(counted.empty() || counted == told) << "way " << static_cast<int>(way);
    counted = told;
  }
  return counted;
}

std::string Counted(std::string_view text, std::int64_t fields) {
  return Counted(text, {',', '.', fields});
}

TEST(PlainRecords, TakesNumbersBetweenSingleSeparators) {
  EXPECT_EQ(Counted("1,2\n3,4\n", 2), "2/8");
  EXPECT_EQ(Counted("1,2\n3,4", 2), "2/7");
  EXPECT_EQ(Counted("-1.5,+2,.5,3.\n1e5,1E-05,0e+0,12.e3\n", 4), "2/35");
  EXPECT_EQ(Counted("", 2), "0/0");
}

TEST(PlainRecords, EndsBeforeTheFirstOtherLine) {
  for (const std::string_view line :
       {"",      "1",     "1,2,3",   ",1",    "1,",    "1,,2",    "1, 2",   "1,x",
        "1,.",   "1,-",   "1,e5",    "1,1e",  "1,1e+", "1,1.2.3", "1,1e5.", "1,1e1e1",
        "1,1-2", "1,--2", "1,1e100", "1,.e5", "1,\t2", "1;2",     "1,2\r",  "1,0x1"}) {
    EXPECT_EQ(Counted("1,2\n" + std::string(line) + "\n3,4\n", 2), "1/4") << line;
  }
  EXPECT_EQ(Counted({"1,2\n1,\0\n", 8}, 2), "1/4");
}

TEST(PlainRecords, LeavesALongFieldToTheCarefulWay) {
  const std::string digits(200, '7');
  EXPECT_EQ(Counted("1,2\n3," + digits + "\n", 2), "1/4");
}

TEST(PlainRecords, TakesAnotherSeparatorAndDecimalSign) {
  EXPECT_EQ(Counted("1,5;2\n", {';', ',', 2}), "1/6");
  EXPECT_EQ(Counted("1.5;2\n", {';', ',', 2}), "0/0");
  EXPECT_EQ(Counted("1 2\n", {' ', '.', 2}), "1/4");
  EXPECT_EQ(Counted("1\n2.5\n", {'\0', '.', 1}), "2/6");
  EXPECT_EQ(Counted("1,5\n", {'\0', ',', 1}), "1/4");
}

TEST(PlainRecords, HasNoDecimalSignThatIsTheSeparator) {
  EXPECT_EQ(Counted("1,5\n1.5,2\n", {',', ',', 2}), "1/4");
  EXPECT_EQ(Counted({"1\0,2\n", 6}, {',', ',', 2}), "0/0");
}

bool HasLongExponent(std::string_view field) {
  const std::size_t mark = field.find_first_of("eE");
  if (mark == std::string_view::npos) return false;
  return field.size() - field.find_first_of("0123456789", mark) > 2;
}

/// The first records of a text by the plain rules, letter by letter.
std::string CountedSlowly(std::string_view text, const PlainShape& shape) {
  const std::string separator(shape.separator == '\0' ? 0 : 1, shape.separator);
  std::int64_t records = 0;
  std::size_t at = 0;
  while (at < text.size()) {
    const std::string_view line = text.substr(at, text.find('\n', at) - at);
    std::int64_t fields = 0;
    bool is_plain = !line.empty();
    FieldCursor cursor(line, separator);
    for (std::string_view field; cursor.Next(field); ++fields) {
      is_plain = is_plain && field.find(' ') == std::string_view::npos &&
                 (shape.decimal != shape.separator || field.find('.') == std::string_view::npos) &&
                 IsNumeric(field, shape.decimal) && !HasLongExponent(field);
    }
    if (!is_plain || fields != shape.fields) break;
    ++records;
    at = std::min(at + line.size() + 1, text.size());
  }
  return std::to_string(records) + "/" + std::to_string(at);
}

std::string RandomNumber(std::mt19937& random, char decimal) {
  const auto below = [&random](std::size_t limit) { return random() % limit; };
  std::string number = below(3) == 0 ? std::string(1, "+-"[below(2)]) : "";
  number += std::to_string(below(2) == 0 ? below(10) : below(100000000));
  if (decimal != '\0' && below(2) == 0) number += decimal + std::to_string(below(1000));
  if (below(5) == 0) number += std::string(1, "eE"[below(2)]) + std::to_string(below(100));
  return number;
}

TEST(PlainRecords, AgreeWithTheCarefulReadingOfRandomTexts) {
  constexpr std::string_view kOdd = "0123456789+-.,;eE \n\tx\r";
  std::mt19937 random(20260301);
  int plain_to_the_end = 0;
  for (int i = 0; i < 30'000 && !HasFailure(); ++i) {
    constexpr std::string_view kSeparators(",; \0|\t", 6);
    PlainShape shape;
    shape.separator = kSeparators[random() % kSeparators.size()];
    shape.decimal = random() % 4 == 0 ? ',' : '.';
    shape.fields = shape.separator == '\0' ? 1 : 1 + static_cast<std::int64_t>(random() % 5);
    const char decimal = shape.decimal == shape.separator ? '\0' : shape.decimal;
    std::string text;
    for (auto lines = random() % 12; lines > 0; --lines) {
      for (std::int64_t field = 0; field < shape.fields; ++field) {
        if (field > 0) text += shape.separator;
        text += RandomNumber(random, decimal);
      }
      text += '\n';
    }
    for (auto changes = random() % 3; changes > 0 && !text.empty(); --changes) {
      text[random() % text.size()] = kOdd[random() % kOdd.size()];
    }
    const std::string expected = CountedSlowly(text, shape);
    EXPECT_EQ(Counted(text, shape), expected)
        << testing::PrintToString(text) << " separator " << static_cast<int>(shape.separator)
        << " decimal " << shape.decimal << " fields " << shape.fields;
    if (expected.ends_with("/" + std::to_string(text.size()))) ++plain_to_the_end;
  }
  EXPECT_GT(plain_to_the_end, 5'000);
}

}  // namespace
}  // namespace tslm5::delimited
