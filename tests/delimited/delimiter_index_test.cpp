#include "delimited/delimiter_index.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace tslm5::delimited {
namespace {

using Places = std::vector<std::uint32_t>;

constexpr MaskWay kWays[] = {MaskWay::kPortable, MaskWay::kSse2, MaskWay::kAvx2};

/// `text` with room behind it that can be read, and holds what would be delimiters.
std::string WithRoom(const std::string& text) {
  return text + std::string(kReadableBehind, ',');
}

Places PlacesOf(const DelimiterIndex& index) {
  return {index.Places(), index.Places() + index.Count()};
}

/// The places that the careful way finds, record after record. A quote that stays open ends it.
Places Careful(const std::string& text, const DelimiterRules& rules) {
  DelimiterIndex index(rules);
  const std::string readable = WithRoom(text);
  std::size_t begin = 0;
  while (begin < text.size()) {
    if (index.AddRecord(readable.data(), begin, text.size()).end !=
        DelimiterIndex::RecordEnd::kFound) {
      break;
    }
    begin = index.Places()[index.Count() - 1] + 1;
  }
  return PlacesOf(index);
}

/// The places that the fast way finds, and how far it looked.
Places Fast(const std::string& text, const DelimiterRules& rules, MaskWay way,
            std::size_t& looked_at) {
  DelimiterIndex index(rules, way);
  looked_at = index.AddFast(WithRoom(text).data(), 0, text.size());
  return PlacesOf(index);
}

TEST(DelimiterIndex, FindsSeparatorsAndLineEnds) {
  EXPECT_EQ(Careful("a,b\nc\r\nd\r", {}), (Places{1, 3, 5, 6, 8}));
  EXPECT_EQ(Careful("a b\tc\n", {' ', true}), (Places{1, 3, 5}));
  EXPECT_EQ(Careful("a,b;c\n", {'\0', true}), (Places{5}));
}

TEST(DelimiterIndex, PassesOverWhatIsQuoted) {
  EXPECT_EQ(Careful("\"a,b\",c\n", {}), (Places{5, 7}));
  EXPECT_EQ(Careful("\"a\n\"\"b\",c\n", {}), (Places{7, 9}));
  EXPECT_EQ(Careful("a\"b,c\"\n", {}), (Places{3, 6})) << "a quote within a field is text";
  EXPECT_EQ(Careful(" \"a,b\" ,c\n", {}), (Places{7, 9})) << "blanks before a quote";
  EXPECT_EQ(Careful("\"a,b\",c\n", {',', false}), (Places{2, 5, 7})) << "quotes switched off";
}

TEST(DelimiterIndex, TellsWhereAnUnclosedQuoteOpened) {
  const std::string text = WithRoom("ab,\"c,d\n");
  DelimiterIndex index({});
  const auto result = index.AddRecord(text.data(), 0, 8);
  EXPECT_EQ(result.end, DelimiterIndex::RecordEnd::kUnclosed);
  EXPECT_EQ(result.opening_quote, 3U);
  index.Clear();
  EXPECT_EQ(index.AddRecord(text.data(), 0, 8, 3).end, DelimiterIndex::RecordEnd::kFound);
  EXPECT_EQ(PlacesOf(index), (Places{2, 5, 7}));
}

TEST(DelimiterIndex, StopsBeforeAQuoteInAnUnusualPlace) {
  std::string usual(100, 'x');
  usual += ",\"a,b\"\n";
  std::size_t looked_at = 0;
  EXPECT_EQ(Fast(usual, {}, BestMaskWay(), looked_at), (Places{100, 106}));
  EXPECT_EQ(looked_at, usual.size());
  const std::string unusual = usual + "a\"b\n";
  EXPECT_EQ(Fast(unusual, {}, BestMaskWay(), looked_at), Places{});
  EXPECT_EQ(looked_at, 64U);
}

/// Mostly the stuff of quoted fields, so that each kind of border is met at each place of a chunk.
std::string RandomText(std::mt19937_64& random) {
  constexpr const char* kPieces[] = {",",
                                     ",",
                                     "\n",
                                     "\r\n",
                                     "\"",
                                     "\"\"",
                                     "\"a\"",
                                     " ",
                                     "\t",
                                     "x",
                                     "12.5",
                                     ";",
                                     "|",
                                     "\"b,c\"",
                                     "\r",
                                     "\"\n\"",
                                     ",\"d\",",
                                     "\"e\"\"f\"",
                                     "long text without any"};
  std::string text;
  const std::size_t pieces = random() % 120;
  const bool is_tame = random() % 2 == 0;
  for (std::size_t i = 0; i < pieces; ++i) {
    const char* const piece = kPieces[random() % std::size(kPieces)];
    const bool is_quote = piece[0] == '"';
    if (is_tame && is_quote && !text.empty() && text.back() != ',' && text.back() != '\n') {
      text += ',';
    }
    text += is_tame && is_quote ? "\"q,\"\"\n\"," : piece;
  }
  return text;
}

/// How many of `places` stand in records that end before `looked_at`.
std::size_t CountInWholeRecords(const std::string& text, const Places& places,
                                std::size_t looked_at) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < places.size() && places[i] < looked_at; ++i) {
    if (text[places[i]] == '\n' || text[places[i]] == '\r') count = i + 1;
  }
  return count;
}

TEST(DelimiterIndex, FastWaysAgreeWithTheCarefulOne) {
  std::mt19937_64 random(5);
  constexpr char kSeparators[] = {',', ';', '\t', ' ', '|', '\0'};
  std::size_t looked_to_end = 0;
  for (int i = 0; i < 20'000; ++i) {
    const std::string text = RandomText(random) + "\n";
    const DelimiterRules rules{kSeparators[random() % std::size(kSeparators)], random() % 8 != 0};
    const Places careful = Careful(text, rules);
    for (const MaskWay way : kWays) {
      if (!IsAvailable(way)) continue;
      std::size_t looked_at = 0;
      const Places fast = Fast(text, rules, way, looked_at);
      looked_to_end += looked_at == text.size() ? 1U : 0U;
      // Of the record in which it stopped the fast way has some places or none.
      const auto in_whole_records = CountInWholeRecords(text, careful, looked_at);
      ASSERT_GE(fast.size(), in_whole_records) << text;
      const std::size_t shared = std::min(fast.size(), careful.size());
      ASSERT_TRUE(std::equal(fast.begin(), fast.begin() + static_cast<std::ptrdiff_t>(shared),
                             careful.begin()))
          << text;
    }
  }
  EXPECT_GT(looked_to_end, 10'000U);
}

TEST(DelimiterIndex, AllWaysGiveTheSameMasks) {
  std::mt19937_64 random(6);
  std::string text(1024, ' ');
  for (char& c : text) c = static_cast<char>(random());
  for (std::size_t i = 0; i < text.size(); i += 3) text[i] = ",;\t\n\r\" |"[random() % 8];
  for (const SeparatorPair pair : {SeparatorPair{',', ','}, {' ', '\t'}, {'\n', '\n'}}) {
    std::vector<ChunkMasks> expected(text.size() / kChunkBytes);
    MaskFunctionOf(MaskWay::kPortable)(text.data(), expected.size(), pair, expected.data());
    for (const MaskWay way : kWays) {
      if (!IsAvailable(way)) continue;
      std::vector<ChunkMasks> masks(expected.size());
      MaskFunctionOf(way)(text.data(), masks.size(), pair, masks.data());
      for (std::size_t i = 0; i < masks.size(); ++i) {
        EXPECT_EQ(masks[i].delimiters, expected[i].delimiters);
        EXPECT_EQ(masks[i].quotes, expected[i].quotes);
      }
    }
  }
}

}  // namespace
}  // namespace tslm5::delimited
