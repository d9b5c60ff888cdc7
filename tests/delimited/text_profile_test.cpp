#include "delimited/text_profile.h"

#include <gtest/gtest.h>

#include <string>

#include "delimited/delimited_reader.h"

namespace tslm5::delimited {
namespace {

TextProfile ProfileOf(const std::string& text, std::size_t most_distinct = 100) {
  DelimitedReader reader(MemorySource(text));
  TextProfile profile(most_distinct);
  FieldBlock block;
  while (reader.Next(block)) profile.Add(block);
  return profile;
}

TEST(TextProfile, CountsTheClassesOfEachColumn) {
  const TextProfile profile = ProfileOf("a,b\n1,x\nNA,\"y\"\n2,x\n,7\nNA,\"8\"\n3,z\n");
  ASSERT_EQ(profile.Columns().size(), 2U);
  const ColumnProfile& a = profile.Columns()[0];
  EXPECT_EQ(a.numbers, 3);
  EXPECT_EQ(a.missing, 3);
  EXPECT_EQ(a.texts, 0);
  EXPECT_EQ(a.first_missing, 3);
  EXPECT_EQ(a.first_text, 0);
  ASSERT_EQ(a.missing_tokens.Entries().size(), 2U);
  EXPECT_EQ(a.missing_tokens.Entries()[0].text, "NA");
  EXPECT_EQ(a.missing_tokens.Entries()[0].count, 2);
  EXPECT_EQ(a.missing_tokens.Entries()[1].text, "");
  EXPECT_EQ(a.missing_tokens.Entries()[1].count, 1);
  const ColumnProfile& b = profile.Columns()[1];
  EXPECT_EQ(b.numbers, 2);
  EXPECT_EQ(b.texts, 4);
  EXPECT_EQ(b.quoted, 2);
  EXPECT_EQ(b.first_text, 2);
  ASSERT_EQ(b.categories.Entries().size(), 3U);
  EXPECT_EQ(b.categories.Entries()[0].text, "x");
  EXPECT_EQ(b.categories.Entries()[0].count, 2);
  EXPECT_EQ(b.categories.Entries()[2].text, "z");
}

TEST(TextProfile, HoldsNoMoreThanItsBoundAndSaysSo) {
  const TextProfile profile = ProfileOf("a,b\nx,1\ny,2\nz,3\nx,4\nz,5\n", 2);
  const DistinctTexts& categories = profile.Columns()[0].categories;
  ASSERT_EQ(categories.Entries().size(), 2U);
  EXPECT_EQ(categories.Entries()[0].count, 2);
  EXPECT_TRUE(categories.IsCut());
  EXPECT_EQ(profile.Columns()[0].texts, 5);
  EXPECT_FALSE(ProfileOf("a,b\nx,1\ny,2\n", 2).Columns()[0].categories.IsCut());
}

}  // namespace
}  // namespace tslm5::delimited
