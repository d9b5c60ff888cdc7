#include "delimited/delimited_reader.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "support/locale.h"
#include "tslm5/platform/error.h"

namespace tslm5::delimited {
namespace {

using Rows = std::vector<std::vector<std::string>>;

/// Gives the bytes of a text in pieces of random sizes, as a pipe may.
class RandomPieces : public ByteSource {
 public:
  RandomPieces(std::string_view bytes, std::uint32_t seed)
      : ByteSource("pieces"), rest_(bytes), random_(seed) {}

  std::size_t Read(char* to, std::size_t room) override {
    const std::size_t count = std::min({room, rest_.size(), std::size_t{1} + random_() % 5000});
    rest_.copy(to, count);
    rest_.remove_prefix(count);
    return count;
  }

 private:
  std::string_view rest_;
  std::mt19937 random_;
};

/// The records to the end, each cell as its class and its text.
Rows ReadRows(DelimitedReader& reader) {
  Rows rows;
  FieldBlock block;
  while (reader.Next(block)) {
    EXPECT_EQ(block.FirstRecord(), static_cast<std::int64_t>(rows.size()));
    for (std::size_t i = 0; i < block.Records(); ++i) {
      auto& row = rows.emplace_back();
      for (std::size_t k = 0; k < block.Columns(); ++k) {
        const Field& field = block.Record(i)[k];
        row.push_back("nmt"[static_cast<int>(field.field_class)] + std::string(field.Text()));
      }
    }
  }
  return rows;
}

Rows ReadRows(const std::string& text, const ReadOptions& options = {}) {
  DelimitedReader reader(MemorySource(text), options);
  return ReadRows(reader);
}

TEST(DelimitedReader, GivesTheSameRecordsUnderEveryLocale) {
  const std::string text = "x;y\n3,5;4,2\n1.5;2\n";
  const Rows rows = ReadRows(text);
  EXPECT_EQ(rows, (Rows{{"n3,5", "n4,2"}, {"t1.5", "n2"}}));
  for (const char* locale : {"de_DE.UTF-8", "en_US.UTF-8", "C"}) {
    const ScopedLocale scope(locale);
    EXPECT_EQ(ReadRows(text), rows) << locale;
    EXPECT_EQ(ReadRows("a,b\n1.5,2\n"), (Rows{{"n1.5", "n2"}})) << locale;
  }
}

TEST(DelimitedReader, ReadsRecordsAcrossWindowsHoweverTheBytesCome) {
  std::mt19937 random(3);
  std::string text = "a,b,c\r\n";
  Rows expected;
  while (text.size() < 2'000'000) {
    const std::string number = std::to_string(random());
    const std::string word(random() % 40, static_cast<char>('a' + random() % 26));
    text += number + ",\"" + word + "\"\"" + "\r\n\"," + word + "x\r\n";
    expected.push_back({"n" + number, "t" + word + "\"\r\n", "t" + word + "x"});
  }
  for (const MaskWay way : {MaskWay::kPortable, BestMaskWay()}) {
    DelimitedReader reader(std::make_unique<RandomPieces>(text, 1), {}, way);
    EXPECT_TRUE(ReadRows(reader) == expected);
    EXPECT_EQ(reader.Counts().records, static_cast<std::int64_t>(expected.size()));
    EXPECT_EQ(reader.Counts().lines, static_cast<std::int64_t>(1 + 2 * expected.size()));
    EXPECT_TRUE(reader.Findings().All().empty());
  }
}

TEST(DelimitedReader, TakesALineEndThatTwoWindowsShareForOne) {
  std::string text;
  for (int i = 0; i < 80'000; ++i) text += "1,2\r\n";
  for (std::size_t shift = 0; shift < 5; ++shift) {  // a window ends at each place of a record
    const std::string shifted = std::string(shift, '0') + text;
    DelimitedReader reader(MemorySource(shifted));
    EXPECT_EQ(ReadRows(reader).size(), 80'000U) << shift;
    EXPECT_EQ(reader.Counts().lines, 80'000) << shift;
    EXPECT_EQ(reader.Counts().empty_lines, 0) << shift;
  }
}

TEST(DelimitedReader, ReadsARecordThatIsLongerThanAWindow) {
  const std::string word(1'000'000, 'x');
  EXPECT_EQ(ReadRows("a,b\n\"" + word + "\n\",1\n" + word + ",2\n"),
            (Rows{{"t" + word + "\n", "n1"}, {"t" + word, "n2"}}));
}

TEST(DelimitedReader, ReadsOnBehindAQuoteThatNobodyCloses) {
  std::string text = "name,size\na,1\n\"b,2\n";
  for (int i = 0; i < 900'000; ++i) text += "c,12\n";  // more than a record may have
  DelimitedReader reader(MemorySource(text));
  FieldBlock block;
  while (reader.Next(block)) {
  }
  EXPECT_EQ(reader.Counts().records, 900'002);
  EXPECT_EQ(reader.Counts().lines, 900'003);
  ASSERT_EQ(reader.Findings().All().size(), 1U);
  EXPECT_EQ(
      Message(reader.Findings().All()[0]),
      "line 3, column 1: the quotes that begin \"\"b,2\" are not closed: close them, or double "
      "each quote that is part of the text");
}

TEST(DelimitedReader, RefusesALineThatDoesNotEnd) {
  const std::string text = "1,2\n" + std::string(std::size_t{9} << 20, 'x');
  try {
    ReadRows(text);
    ADD_FAILURE() << "nothing was raised";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), error_number::kInvalidData);
    EXPECT_EQ(error.Description(),
              "the text: line 2 does not end within 4 MiB: this is no delimited text");
  }
}

TEST(DelimitedReader, TakesTheWidthOfTheFirstRecordBehindManyEmptyLines) {
  std::string text(600'000, '\n');
  text += "1,2\n";
  EXPECT_EQ(ReadRows(text, {.separator = ','}), (Rows{{"n1", "n2"}}));
}

TEST(DelimitedReader, CountsEmptyLinesAndTheFirstGap) {
  const std::string text = "\na,b\n\n1,2\n \n3,4\n\n";
  DelimitedReader reader(MemorySource(text));
  EXPECT_EQ(ReadRows(reader), (Rows{{"n1", "n2"}, {"n3", "n4"}}));
  EXPECT_EQ(reader.Counts().lines, 7);
  EXPECT_EQ(reader.Counts().empty_lines, 3) << "behind the header";
  EXPECT_EQ(reader.Counts().first_gap, 5);
}

TEST(DelimitedReader, KeepsTheFirstOfSeveralGaps) {
  const std::string text = "a,b\n1,2\n\n3,4\n\n5,6\n";
  DelimitedReader reader(MemorySource(text));
  EXPECT_EQ(ReadRows(reader).size(), 3U);
  EXPECT_EQ(reader.Counts().first_gap, 3);
}

TEST(DelimitedReader, FindsAFurtherBlockThatContradictsTheDecimalSign) {
  std::string text = "a;b\n";
  for (int i = 0; i < 200'000; ++i) text += "1;2\n";
  text += "3,5;4\n";
  DelimitedReader reader(MemorySource(text));
  FieldBlock block;
  while (reader.Next(block)) {
  }
  EXPECT_EQ(reader.Findings().Count(FindingCode::kDecimalContradicted), 1);
  const Finding* const finding = reader.Findings().First(FindingCode::kDecimalContradicted);
  ASSERT_NE(finding, nullptr);
  EXPECT_EQ(
      Message(*finding),
      "line 200002, column 1: \"3,5\" is a number with the other decimal sign and was read as "
      "text: set the decimal sign");
}

TEST(DelimitedReader, RefusesOptionsThatMeanNothing) {
  for (const ReadOptions& options :
       {ReadOptions{.separator = 'x'}, {.decimal = ';'}, {.preamble_lines = -1}}) {
    EXPECT_THROW(DelimitedReader(MemorySource("1"), options), Error);
  }
}

TEST(DelimitedReader, AllWaysGiveTheSameOfRandomBytes) {
  std::mt19937 random(9);
  for (int i = 0; i < 400; ++i) {
    std::string text(random() % 400, ' ');
    for (char& c : text) c = "aé1.5,,;\"\"\n\r\t -"[random() % 16];
    std::vector<Rows> rows;
    for (const MaskWay way : {MaskWay::kPortable, MaskWay::kSse2, MaskWay::kAvx2}) {
      if (!IsAvailable(way)) continue;
      DelimitedReader reader(MemorySource(text), {.separator = ',', .encoding = "windows-1252"},
                             way);
      rows.push_back(ReadRows(reader));
      ASSERT_EQ(rows.back(), rows.front()) << text;
      const auto& counts = reader.Counts();
      const std::int64_t header = reader.TextDialect().has_header ? 1 : 0;
      ASSERT_GE(counts.lines, counts.records + counts.uneven_records + counts.empty_lines + header)
          << text;
    }
  }
}

}  // namespace
}  // namespace tslm5::delimited
