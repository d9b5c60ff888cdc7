#include "original/cell_texts.h"

#include <gmock/gmock.h>

#include <random>
#include <string>

#include "platform/raised.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;
using Row = std::vector<std::string_view>;

std::vector<std::string> RowOf(const CellTexts& table, std::int32_t row) {
  std::vector<std::string> texts;
  for (std::int32_t column = 0; column < table.Columns(); ++column) {
    texts.emplace_back(table.Text(column, row));
  }
  return texts;
}

CellTexts TwoRows() {
  CellTexts table(3, 3);
  table.AppendRow(Row{"a", "", "ccc"});
  table.AppendRow(Row{"", "é", ""});
  return table;
}

TEST(CellTexts, IsEmptyAtFirst) {
  const CellTexts table;
  EXPECT_EQ(table.Columns(), 0);
  EXPECT_EQ(table.Rows(), 0);
  EXPECT_EQ(RaisedNumber([&] { table.Text(0, 0); }), 9);
}

TEST(CellTexts, KeepsTheTextsOfEachRow) {
  const CellTexts table = TwoRows();
  EXPECT_THAT(RowOf(table, 0), ElementsAre("a", "", "ccc"));
  EXPECT_THAT(RowOf(table, 1), ElementsAre("", "é", ""));
  EXPECT_THAT(RowOf(table, 2), ElementsAre("", "", "")) << "not filled";
  EXPECT_EQ(table.FilledRows(), 2);
}

TEST(CellTexts, RaisesOutsideTheTable) {
  const CellTexts table = TwoRows();
  EXPECT_EQ(RaisedNumber([&] { table.Text(-1, 0); }), 9);
  EXPECT_EQ(RaisedNumber([&] { table.Text(3, 0); }), 9);
  EXPECT_EQ(RaisedNumber([&] { table.Text(0, -1); }), 9);
  EXPECT_EQ(RaisedNumber([&] { table.Text(0, 3); }), 9);
}

TEST(CellTexts, RaisesForARowTooMany) {
  CellTexts table = TwoRows();
  table.AppendRow(Row{"x", "y", "z"});
  EXPECT_EQ(RaisedNumber([&] { table.AppendRow(Row{"1", "2", "3"}); }), 9);
  EXPECT_THAT(RowOf(table, 2), ElementsAre("x", "y", "z"));
}

TEST(CellTexts, PutsAClassInTheLastCellAlone) {
  CellTexts table = TwoRows();
  table.AppendRow(Row{"x", "y", "z"});
  table.PutClass(0, true);
  table.PutClass(1, false);
  EXPECT_THAT(RowOf(table, 0), ElementsAre("a", "", "1"));
  EXPECT_THAT(RowOf(table, 1), ElementsAre("", "é", "0")) << "where there was no character";
  EXPECT_THAT(RowOf(table, 2), ElementsAre("x", "y", "z"));
}

TEST(CellTexts, PutsAClassInARowThatWasNotFilled) {
  CellTexts table(2, 4);
  table.AppendRow(Row{"a", "b"});
  table.PutClass(2, true);
  EXPECT_THAT(RowOf(table, 1), ElementsAre("", ""));
  EXPECT_THAT(RowOf(table, 2), ElementsAre("", "1"));
  table.PutClass(1, true);
  EXPECT_THAT(RowOf(table, 1), ElementsAre("", "1"));
  EXPECT_THAT(RowOf(table, 2), ElementsAre("", "1"));
  EXPECT_EQ(RaisedNumber([&] { table.PutClass(4, true); }), 9);
  EXPECT_EQ(RaisedNumber([&] { table.PutClass(-1, true); }), 9);
}

TEST(CellTexts, HasNoClassWithoutColumns) {
  CellTexts table(0, 1);
  table.AppendRow({});
  EXPECT_EQ(RaisedNumber([&] { table.PutClass(0, true); }), 9);
}

TEST(CellTexts, PutsCommasWhereAPointStandsBehindTheFirstCharacter) {
  CellTexts table(1, 8);
  const std::pair<const char*, const char*> cases[] = {
      {"3.5", "3,5"}, {".5", ".5"}, {"1.2.3", "1,2,3"}, {".5.5", ".5.5"},
      {"-.5", "-,5"}, {"", ""},     {"é.", "é,"},       {"x", "x"}};
  for (const auto& c : cases) {
    table.AppendRow(Row{c.first});
    table.PutDecimalCommas();
    EXPECT_EQ(table.Text(0, table.FilledRows() - 1), c.second);
  }
  EXPECT_EQ(table.Text(0, 1), ".5") << "the rows before stay";
}

TEST(CellTexts, KeepsAllTextsWhileItGrows) {
  std::mt19937 random(7);
  std::vector<std::vector<std::string>> rows(5000);
  CellTexts table(4, static_cast<std::int32_t>(rows.size()));
  for (std::size_t row = 0; row < rows.size(); ++row) {
    // Long rows late: no estimate of the first ones suffices.
    const std::size_t longest = row < 2500 ? 6 : 400;
    for (int column = 0; column < 4; ++column) {
      rows[row].emplace_back(random() % longest, static_cast<char>('a' + random() % 26));
    }
    table.AppendRow(Row(rows[row].begin(), rows[row].end()));
  }
  for (std::size_t row = 0; row < rows.size(); ++row) {
    ASSERT_EQ(RowOf(table, static_cast<std::int32_t>(row)), rows[row]) << row;
  }
}

}  // namespace
}  // namespace tslm5
