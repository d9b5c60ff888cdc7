#include "inmemory/delimiter_cursor.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace tslm5 {
namespace {

/// The places that a cursor gives for a text, in a buffer that ends with it.
std::vector<std::size_t> Places(const std::string& text, char separator) {
  const std::vector<char> bytes(text.begin(), text.end());  // no zero behind it
  DelimiterCursor cursor({bytes.data(), bytes.size()}, separator);
  std::vector<std::size_t> places;
  for (const char* p = cursor.Next(); p != bytes.data() + bytes.size(); p = cursor.Next()) {
    places.push_back(static_cast<std::size_t>(p - bytes.data()));
  }
  EXPECT_EQ(cursor.Next(), bytes.data() + bytes.size()) << "the end, again and again";
  return places;
}

std::vector<std::size_t> PlacesOneByOne(const std::string& text, char separator) {
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == separator || text[i] == '\n') places.push_back(i);
  }
  return places;
}

TEST(DelimiterCursor, GivesSeparatorsAndLineFeedsInOrder) {
  EXPECT_EQ(Places("1,22\n3,", ','), (std::vector<std::size_t>{1, 4, 6}));
}

TEST(DelimiterCursor, GivesLineFeedsAloneWithoutASeparator) {
  EXPECT_EQ(Places("1,2\n3", '\n'), (std::vector<std::size_t>{3}));
}

TEST(DelimiterCursor, GivesTheEndOfTheEmptyText) {
  EXPECT_TRUE(Places("", ',').empty());
}

TEST(DelimiterCursor, FindsEveryPlaceAtEveryLength) {
  std::mt19937 random(5);
  for (std::size_t size = 1; size < 300; ++size) {
    std::string text(size, '7');
    for (char& c : text) c = ",\n;7777"[random() % 7];
    ASSERT_EQ(Places(text, ','), PlacesOneByOne(text, ',')) << text;
  }
}

}  // namespace
}  // namespace tslm5
