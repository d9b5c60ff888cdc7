// Filling a data table from lines of text.
#include <gtest/gtest.h>

#include "platform/raised.h"
#include "storage/table_lite.h"
#include "storage/test_run.h"
#include "support/locale.h"

namespace tslm5 {
namespace {

TEST(TableLiteParseArray, StoresARowALine) {
  const TestRun run;
  const Ref<TableLite> table = run.Table(2);
  EXPECT_TRUE(table->ParseArray(Lines{"1 2.5", "-3 4e2"}));
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"1|2.5|1", "-3|400|2"}));
  EXPECT_EQ(run.Select("SELECT typeof(d0), typeof(d1) FROM TrainingSet"),
            Lines({"real|real", "real|real"}));
}

TEST(TableLiteParseArray, SendsARowAStatementInOneTransaction) {
  const TestRun run;
  run.Table(2)->ParseArray(Lines{"1 2.5", "3 4"});
  EXPECT_EQ(run.Log().statements,
            Lines({"BEGIN", "INSERT INTO TrainingSet VALUES ('1','2.5', 1);",
                   "INSERT INTO TrainingSet VALUES ('3','4', 2);", "COMMIT"}));
}

TEST(TableLiteParseArray, OfNoLinesIsAnEmptyTransaction) {
  const TestRun run;
  EXPECT_TRUE(run.Table(2)->ParseArray({}));
  EXPECT_EQ(run.Log().statements, Lines({"BEGIN", "COMMIT"}));
}

TEST(TableLiteParseArray, StoresNullForAnEmptyFieldAndForAMissingToken) {
  const TestRun run;
  run.Table(3)->ParseArray(Lines{"1 ? 3", "4  6", "NA . 9", "7 .x Null"});
  EXPECT_EQ(run.Select("SELECT d0, d1, d2 FROM TrainingSet"),
            Lines({"1|NULL|3", "4|NULL|6", "NULL|NULL|9", "7|NULL|NULL"}));
  EXPECT_EQ(run.Select("SELECT avg(d1), max(d1), avg(d0) FROM TrainingSet"),
            Lines({"NULL|NULL|4"}));
}

TEST(TableLiteParseArray, StoresWhatIsNoNumberAsText) {
  const TestRun run;
  run.Table(2)->ParseArray(Lines{"red 1,5"});
  EXPECT_EQ(run.Select("SELECT d0, typeof(d0), d1, typeof(d1) FROM TrainingSet"),
            Lines({"red|text|1,5|text"}));
}

TEST(TableLiteParseArray, TrimsALineOfBlanks) {
  const TestRun run;
  run.Table(2)->ParseArray(Lines{"  1 2 "});
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"1|2|1"}));
}

TEST(TableLiteParseArray, ReadsTheCommaOfACommaLocaleAsThePoint) {
  const ScopedLocale german("de_DE.UTF-8");
  const TestRun run;
  run.Table(2)->ParseArray(Lines{"1,5 2", "-0,25 1.5"});
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"1.5|2|1", "-0.25|1.5|2"}));
}

TEST(TableLiteParseArray, LeavesTheCommaOfAPointLocaleAlone) {
  const ScopedLocale british("en_GB.UTF-8");
  const TestRun run;
  run.Table(1)->ParseArray(Lines{"1,5"});
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"1,5|1"}));
}

TEST(TableLiteParseArray, DoesNotReopenTheRecordSet) {
  const TestRun run;
  const Ref<TableLite> table = run.Table(1);
  table->ParseArray(Lines{"1"});
  EXPECT_EQ(table->Rows(), 0);
  EXPECT_EQ(table->Columns(), 0);
}

struct RefusalCase {
  const char* name;
  Lines lines;
  std::int32_t number;
};

TEST(TableLiteParseArray, ALineThatCannotBeStoredLeavesTheTableAsItWas) {
  const RefusalCase cases[] = {
      {"too few values", {"1 2", "x"}, 1},
      {"too many values", {"1 2", "1 2 3"}, 1},
      {"an empty line", {"1 2", ""}, 1},
      {"an apostrophe", {"1 2", "it's 2"}, 41011},
      {"a hidden statement", {"1 2", "1 1');DROP TABLE TrainingSet;--"}, 41011},
      {"a NUL character", {"1 2", std::string("1 \0", 3)}, 41011},
  };
  for (const RefusalCase& c : cases) {
    SCOPED_TRACE(c.name);
    const TestRun run;
    const Ref<TableLite> table = run.Table(2);
    run.Execute("INSERT INTO TrainingSet VALUES (8, 9, 50)");
    EXPECT_EQ(RaisedNumber([&table, &c] { table->ParseArray(c.lines); }), c.number);
    EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"8|9|50"}));
    EXPECT_FALSE(run.InTransaction());
    EXPECT_TRUE(table->ParseArray(Lines{"1 2"}));
    EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"1|2|1", "8|9|50"}));
  }
}

TEST(TableLiteParseArray, SaysWhichCellIsRefused) {
  const TestRun run;
  const Ref<TableLite> table = run.Table(2);
  const Error error = Raised([&table] { table->ParseArray(Lines{"1 2", "3 it's"}); });
  EXPECT_EQ(error.Source(), "ParseArray");
  EXPECT_EQ(error.Description(),
            "Row 2, column 2 holds an apostrophe, which a data table does not take.");
}

TEST(TableLiteParseArray, OnATableThatHasARowOfThatNumberRaisesAndKeepsIt) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(1, {"5"});
  EXPECT_EQ(RaisedNumber([&table] { table->ParseArray(Lines{"6"}); }), 1555);
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"5|1"}));
}

TEST(TableLiteParseArray, ThatCannotBeCommittedKeepsNothing) {
  const TestRun run;
  const Ref<TableLite> table = run.Table(1);
  run.Log().FailAt(3, Error(13, "TSLMRep5", "database or disk is full"));
  EXPECT_EQ(RaisedNumber([&table] { table->ParseArray(Lines{"1"}); }), 13);
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines());
  EXPECT_FALSE(run.InTransaction());
}

TEST(TableLiteParseText, StoresTheLinesOfOneText) {
  const TestRun run;
  const Ref<TableLite> table = run.Table(2);
  EXPECT_TRUE(table->ParseText("1 2\n3 ?\n 5 6 "));
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"1|2|1", "3|NULL|2", "5|6|3"}));
}

TEST(TableLiteParseText, OfAnEmptyTextStoresNothing) {
  const TestRun run;
  EXPECT_TRUE(run.Table(1)->ParseText(""));
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines());
}

TEST(TableLiteParseText, ReadsTheCommaOfACommaLocaleAsThePoint) {
  const ScopedLocale french("fr_FR.UTF-8");
  const TestRun run;
  run.Table(1)->ParseText("1,5\n2");
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"1.5|1", "2|2"}));
}

TEST(TableLiteParseText, ALineThatCannotBeStoredLeavesTheTableAsItWas) {
  const TestRun run;
  const Ref<TableLite> table = run.Table(2);
  EXPECT_EQ(RaisedNumber([&table] { table->ParseText("1 2\n3"); }), 1);
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines());
  EXPECT_FALSE(run.InTransaction());
}

}  // namespace
}  // namespace tslm5
