#include "host/program/nearest_texts.h"

#include <gtest/gtest.h>

namespace tslm5::host {
namespace {

TEST(NearestTexts, DistanceCountsCharacters) {
  EXPECT_EQ(EditDistance("", ""), 0u);
  EXPECT_EQ(EditDistance("", "abc"), 3u);
  EXPECT_EQ(EditDistance("abc", ""), 3u);
  EXPECT_EQ(EditDistance("kitten", "sitting"), 3u);
  EXPECT_EQ(EditDistance("größe", "grosse"), 3u);
  EXPECT_EQ(EditDistance("é", "e"), 1u);
}

TEST(NearestTexts, DistanceLooksAtTheBeginningOfLongTexts) {
  const std::string beginning(60, 'a');
  EXPECT_EQ(EditDistance(beginning + "b", beginning + "ccc"), 0u);
}

TEST(NearestTexts, ListsTheNearestFirst) {
  EXPECT_EQ(NearestList("blu", {"green", "red", "blue"}), "\"blue\", \"red\", \"green\"");
  EXPECT_EQ(NearestList("x", {}), "none");
}

TEST(NearestTexts, ListsADozenAndCountsTheRest) {
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < 100; ++i) {
    texts.push_back("far away " + std::string(1 + i % 9, 'x'));
  }
  texts.emplace_back("near");
  const std::string list = NearestList("near!", texts);
  EXPECT_EQ(list.substr(0, 6), "\"near\"");
  EXPECT_EQ(list.substr(list.size() - 12), " and 89 more");
}

}  // namespace
}  // namespace tslm5::host
