#include "engine/figures_query.h"

#include <gmock/gmock.h>

namespace tslm5 {
namespace {

using ::testing::ElementsAre;

bool Parses(std::string_view sql) {
  FiguresQuery query;
  return ParseFiguresQuery(sql, query);
}

TEST(FiguresQuery, TakesTheSelectListOfColumnsApart) {
  FiguresQuery query;
  ASSERT_TRUE(ParseFiguresQuery(
      "SELECT  min(d0), MAX( d0 ) , avg(d1),median(d0), stdev(d1) , count(*) FROM t;", query));
  EXPECT_EQ(query.table, "t");
  EXPECT_EQ(query.condition, "");
  EXPECT_THAT(query.columns, ElementsAre("d0", "d1"));
  std::vector<std::string> texts;
  std::vector<std::size_t> columns;
  for (const FiguresQuery::Item& item : query.items) {
    texts.push_back(item.text);
    columns.push_back(item.column);
  }
  EXPECT_THAT(
      texts, ElementsAre("min(d0)", "MAX( d0 )", "avg(d1)", "median(d0)", "stdev(d1)", "count(*)"));
  EXPECT_THAT(columns, ElementsAre(0, 0, 1, 0, 1, 0));
  EXPECT_EQ(query.items[1].kind, FiguresQuery::Kind::kMaximum);
  EXPECT_EQ(query.items[4].kind, FiguresQuery::Kind::kDeviation);
}

TEST(FiguresQuery, TakesOneConditionOnANumber) {
  FiguresQuery query;
  ASSERT_TRUE(ParseFiguresQuery("SELECT min(a) FROM t WHERE b = -1.5E+20", query));
  EXPECT_EQ(query.condition, "b = -1.5E+20");
  EXPECT_THAT(query.columns, ElementsAre("a"));
}

TEST(FiguresQuery, LeavesEverythingElseAlone) {
  for (const char* sql : {
           "",
           "SELECT",
           "SELECT a FROM t",
           "SELECT min(a) AS x FROM t",
           "SELECT min(a)",
           "SELECT min(a, b) FROM t",
           "SELECT min(a + 1) FROM t",
           "SELECT sum(a) FROM t",
           "SELECT COUNT(*) FROM t",
           "SELECT COUNT(a) FROM t",
           "SELECT COUNT(DISTINCT a) FROM t",
           "SELECT min(a) FROM t, u",
           "SELECT min(a) FROM t AS x",
           "SELECT min(a) FROM \"t\"",
           "SELECT min(a) FROM t WHERE b = 'x'",
           "SELECT min(a) FROM t WHERE b > 1",
           "SELECT min(a) FROM t WHERE b = 1 AND c = 2",
           "SELECT min(a) FROM t WHERE b = +1",
           "SELECT min(a) FROM t GROUP BY b",
           "SELECT min(a) FROM t LIMIT 1",
           "SELECT min(a) FROM t; DROP TABLE t",
           "SELECT min(a) FROM t -- x",
           "SELECT min(1) FROM t",
           "SELECT min(a), FROM t",
           "EXPLAIN SELECT min(a) FROM t",
           "SELECT min(t.a) FROM t",
           "SELECT min(DISTINCT a) FROM t",
           "SELECT min(a) FROM main.t",
       }) {
    EXPECT_FALSE(Parses(sql)) << sql;
  }
}

}  // namespace
}  // namespace tslm5
