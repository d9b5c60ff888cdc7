// The filling of statement templates.
#include <gtest/gtest.h>

#include "storage/run_statements.h"

namespace tslm5 {
namespace {

TEST(FillStatement, ReplacesEveryOccurrence) {
  EXPECT_EQ(FillStatement("min(d<XX>), max(d<XX>)", {{"<XX>", "7"}}), "min(d7), max(d7)");
}

TEST(FillStatement, FillsSeveralPlaceholdersInAnyOrder) {
  EXPECT_EQ(FillStatement("<B> <A><B>", {{"<A>", "1"}, {"<B>", "2"}}), "2 12");
}

TEST(FillStatement, LeavesAValueThatLooksLikeAPlaceholderAlone) {
  EXPECT_EQ(FillStatement("<A> <B>", {{"<A>", "<B>"}, {"<B>", "<A>"}}), "<B> <A>");
}

TEST(FillStatement, LeavesAPlaceholderThatValuesMakeUpTogetherAlone) {
  EXPECT_EQ(FillStatement("<A>B>", {{"<A>", "<"}, {"<B>", "filled"}}), "<B>");
}

TEST(FillStatement, LeavesAnUnknownMarkAlone) {
  EXPECT_EQ(FillStatement("a <> b < <NO> <A", {{"<A>", "1"}}), "a <> b < <NO> <A");
}

TEST(FillStatement, FindsAPlaceholderRightBehindAMark) {
  EXPECT_EQ(FillStatement("<<A>>", {{"<A>", "1"}}), "<1>");
}

TEST(FillStatement, TakesEmptyTextsAndNoValues) {
  EXPECT_EQ(FillStatement("", {{"<A>", "1"}}), "");
  EXPECT_EQ(FillStatement("x<A>y", {{"<A>", ""}}), "xy");
  EXPECT_EQ(FillStatement("x<A>y", {}), "x<A>y");
}

TEST(FillStatement, CaseCounts) {
  EXPECT_EQ(FillStatement("<a> <A>", {{"<A>", "1"}}), "<a> 1");
}

TEST(InsertRowHead, EndsWhereTheValuesStand) {
  EXPECT_EQ(InsertRowHead("TestingSet"), "INSERT INTO TestingSet VALUES (");
}

}  // namespace
}  // namespace tslm5
