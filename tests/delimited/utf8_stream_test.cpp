#include "delimited/utf8_stream.h"

#include <gtest/gtest.h>

#include <string>

#include "tslm5/platform/error.h"

namespace tslm5::delimited {
namespace {

constexpr std::size_t kBlock = 65'536;

std::string Decode(Utf8Stream& stream) {
  std::string text;
  std::string piece(1000, '\0');
  while (const std::size_t count = stream.Read(piece.data(), piece.size())) {
    text.append(piece, 0, count);
  }
  return text;
}

std::string Decode(const std::string& bytes, const std::string& encoding = {}) {
  Utf8Stream stream(MemorySource(bytes), encoding);
  return Decode(stream);
}

TEST(Utf8Stream, TakesUtf8AsItIsAcrossBlocks) {
  for (std::size_t before = kBlock - 5; before < kBlock + 2; ++before) {
    const std::string text = std::string(before, 'x') + "é€😀z";
    EXPECT_EQ(Decode(text), text) << before;
  }
}

TEST(Utf8Stream, DropsOneMark) {
  EXPECT_EQ(Decode("\xEF\xBB\xBF\xEF\xBB\xBFz"), "\xEF\xBB\xBFz");
  EXPECT_EQ(Decode("\xEF\xBB\xBFz", "UTF-8"), "z");
  EXPECT_EQ(Decode(std::string("\xFF\xFEz\0", 4)), "z");
  EXPECT_EQ(Decode(std::string("\xFE\xFF\0z", 4)), "z");
}

TEST(Utf8Stream, DecidesByTheFirstBlockThatIsNotAscii) {
  const std::string ascii(3 * kBlock, 'x');
  EXPECT_EQ(Decode(ascii + "\xE9"), ascii + "é");
  const std::string bytes = "é" + ascii + "\xE9!";
  Utf8Stream stream(MemorySource(bytes));
  EXPECT_EQ(Decode(stream), "é" + ascii + "\uFFFD!");
  EXPECT_EQ(stream.Encoding(), "UTF-8");
  EXPECT_EQ(stream.InvalidCount(), 1);
  EXPECT_EQ(stream.FirstInvalidOffset(), static_cast<std::int64_t>(2 + ascii.size()));
}

TEST(Utf8Stream, ReplacesACharacterThatIsCutAtTheEnd) {
  EXPECT_EQ(Decode("a\xE2\x82", "UTF-8"), "a\uFFFD\uFFFD");
}

TEST(Utf8Stream, ConvertsAcrossBlocks) {
  std::u16string units;
  std::string expected;
  for (int i = 0; i < 50'000; ++i) {
    units += u"aé😀";
    expected += "aé😀";
  }
  const std::string bytes(reinterpret_cast<const char*>(units.data()), 2 * units.size());
  EXPECT_EQ(Decode(bytes, "UTF-16LE"), expected);
}

TEST(Utf8Stream, CountsNulBytes) {
  const std::string bytes =
      std::string("ab\0c", 4) + std::string(kBlock, 'x') + std::string(1, '\0');
  Utf8Stream stream(MemorySource(bytes));
  EXPECT_EQ(Decode(stream), bytes);
  EXPECT_EQ(stream.NulCount(), 2);
  EXPECT_EQ(stream.FirstNulOffset(), 2);
}

TEST(Utf8Stream, RefusesAnUnknownEncoding) {
  try {
    Utf8Stream stream(MemorySource("a"), "nonsense");
    ADD_FAILURE() << "nothing was raised";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), error_number::kInvalidArgument);
    EXPECT_EQ(error.Description(),
              "unknown encoding \"nonsense\"; use a name such as UTF-8 or windows-1252");
  }
}

}  // namespace
}  // namespace tslm5::delimited
