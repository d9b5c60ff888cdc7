#include "delimited/field_scanner.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <random>
#include <string>

namespace tslm5::delimited {
namespace {

/// A field as it is scanned where other text stands behind it.
class ScannedField {
 public:
  explicit ScannedField(const std::string& raw,
                        const FieldScanner& scanner = FieldScanner({}, '.', {}))
      : text_(raw + ",9.5" + std::string(kReadableBehind, '7')) {
    scanner.Scan(text_.data(), text_.data() + raw.size(), field, arena_);
  }
  Field field;

 private:
  std::string text_;
  TextArena arena_;
};

TEST(FieldScanner, TakesBlanksAndQuotesOff) {
  const struct {
    const char* raw;
    const char* text;
    bool is_quoted;
  } kCases[] = {
      {"a", "a", false},           {" a b\t", "a b", false},
      {"\"a\"", "a", true},        {" \"a\" ", "a", true},
      {"\" a \"", " a ", true},    {"\"a\"\"b\"", "a\"b", true},
      {"\"\"\"\"", "\"", true},    {"\"\"\"a\"\"\"", "\"a\"", true},
      {"\"a\"b", "ab", true},      {"\"a\"b\"c\"", "ab\"c\"", true},
      {"a\"b\"", "a\"b\"", false}, {"\"a", "\"a", false},
      {"\"", "\"", false},         {"\"a\nb\"", "a\nb", true},
  };
  for (const auto& [raw, text, is_quoted] : kCases) {
    const ScannedField scanned(raw);
    EXPECT_EQ(scanned.field.Text(), text) << raw;
    EXPECT_EQ(scanned.field.is_quoted, is_quoted) << raw;
    EXPECT_EQ(scanned.field.field_class, FieldClass::kText) << raw;
  }
}

TEST(FieldScanner, TellsNumbersAndMissingValues) {
  for (const char* number : {"1", "-1.5", "+2", ".5", "5.", "1e5", " 7 ", "\"8\"", "\" 9 \""}) {
    EXPECT_EQ(ScannedField(number).field.field_class, FieldClass::kNumber) << number;
  }
  for (const char* missing : {"", "  ", "\"\"", "NA", "\"NA\"", "?", ".", ".a", "null", "\" \""}) {
    EXPECT_EQ(ScannedField(missing).field.field_class, FieldClass::kMissing) << missing;
  }
  for (const char* text : {"1,5", "nan", "inf", "0x10", "1e", "1e400", "Na", "-", "1 2"}) {
    EXPECT_EQ(ScannedField(text).field.field_class, FieldClass::kText) << text;
  }
}

TEST(FieldScanner, TakesTokensOfTheUserLetterForLetter) {
  const FieldScanner scanner({}, '.', {"-999", "n/a"});
  EXPECT_EQ(ScannedField("-999", scanner).field.field_class, FieldClass::kMissing);
  EXPECT_EQ(ScannedField(" \"n/a\"", scanner).field.field_class, FieldClass::kMissing);
  EXPECT_EQ(ScannedField("-999.0", scanner).field.field_class, FieldClass::kNumber);
  EXPECT_EQ(ScannedField("N/A", scanner).field.field_class, FieldClass::kText);
}

TEST(FieldScanner, CountsLineEnds) {
  const std::string text = "a\r\nb\nc\rd\n\r";
  EXPECT_EQ(CountLineEnds(text.data(), text.data() + text.size()), 5U);
}

void ExpectValueOfFromChars(const std::string& text, char decimal) {
  double expected = 0.0;
  const auto [end, code] = std::from_chars(text.data(), text.data() + text.size(), expected);
  ASSERT_EQ(end, text.data() + text.size()) << text;
  if (code != std::errc{}) return;  // rounded up past the largest double
  std::string written = text;
  for (char& c : written) c = c == '.' ? decimal : c;
  const ScannedField scanned(written, FieldScanner({';', true}, decimal, {}));
  ASSERT_EQ(scanned.field.field_class, FieldClass::kNumber) << written;
  ASSERT_EQ(std::bit_cast<std::uint64_t>(scanned.field.value),
            std::bit_cast<std::uint64_t>(expected))
      << written;
}

TEST(FieldScanner, ReadsHardNumbersToTheLastBit) {
  for (const char* text : {"9007199254740993",
                           "9007199254740992.5",
                           "9007199254740991e22",
                           "9007199254740993e-22",
                           "1e22",
                           "1e23",
                           "123456789012345678e-5",
                           "2.2250738585072014e-308",
                           "2.2250738585072011e-308",
                           "4.9406564584124654e-324",
                           "1.7976931348623157e308",
                           "0.000000000000000000000000000000123456789",
                           "7.038531e-26",
                           "1.00000000000000011102230246251565",
                           "1.00000000000000011102230246251566",
                           "6.0221407599999999e23",
                           "-0.0",
                           "0e5",
                           "8.9884656743115795e307",
                           "3.5844466002796428e298",
                           "1234567890123456.5",
                           "0.1",
                           "0.3"}) {
    ExpectValueOfFromChars(text, '.');
    ExpectValueOfFromChars(text, ',');
  }
}

TEST(FieldScanner, ReadsRandomNumbersToTheLastBit) {
  std::mt19937_64 random(4);
  for (int i = 0; i < 100'000; ++i) {
    char buffer[64];
    const auto value = std::bit_cast<double>(random());
    if (!std::isfinite(value)) continue;
    const auto digits = static_cast<int>(random() % 19);
    const auto form =
        random() % 2 == 0 ? std::chars_format::scientific : std::chars_format::general;
    const auto written = std::to_chars(buffer, buffer + sizeof buffer, value, form, digits);
    ASSERT_EQ(written.ec, std::errc{});
    ExpectValueOfFromChars(std::string(buffer, written.ptr), random() % 2 == 0 ? '.' : ',');
    std::string plain = std::to_string(random() >> random() % 64);
    plain.insert(random() % (plain.size() + 1), 1, '.');
    ExpectValueOfFromChars(plain, '.');
  }
}

}  // namespace
}  // namespace tslm5::delimited
