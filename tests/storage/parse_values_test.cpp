// Filling a data table from an array of numbers, and from the values of one row.
#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "platform/raised.h"
#include "storage/table_lite.h"
#include "storage/test_run.h"
#include "support/locale.h"

namespace tslm5 {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

using Numbers = std::vector<double>;
using Fields = std::vector<Variant>;

TEST(TableLiteParseDoubleArray, StoresARowOfOneValueAnElement) {
  const TestRun run;
  run.Table(1)->ParseDoubleArray(Numbers{5, -0.5, kNan});
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"5|0", "-0.5|1", "NULL|2"}));
}

TEST(TableLiteParseDoubleArray, SendsItsStatementsInOneTransaction) {
  const TestRun run;
  run.Table(1)->ParseDoubleArray(Numbers{5, 1.0 / 3.0});
  EXPECT_EQ(run.Log().statements,
            Lines({"BEGIN", "INSERT INTO TrainingSet VALUES (5,0);",
                   "INSERT INTO TrainingSet VALUES (0.3333333333333333,1);", "COMMIT"}));
}

TEST(TableLiteParseDoubleArray, WritesThePointUnderACommaLocale) {
  const ScopedLocale german("de_DE.UTF-8");
  const TestRun run;
  run.Table(1)->ParseDoubleArray(Numbers{1.5});
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"1.5|0"}));
}

TEST(TableLiteParseDoubleArray, DoesNotReopenTheRecordSet) {
  const TestRun run;
  const Ref<TableLite> table = run.Table(1);
  table->ParseDoubleArray(Numbers{1});
  EXPECT_EQ(table->Rows(), 0);
}

TEST(TableLiteParseDoubleArray, OfNothingStoresNothing) {
  const TestRun run;
  run.Table(1)->ParseDoubleArray({});
  EXPECT_EQ(run.Log().statements, Lines({"BEGIN", "COMMIT"}));
}

TEST(TableLiteParseDoubleArray, AValueThatCannotBeStoredKeepsNothing) {
  const TestRun run;
  const Ref<TableLite> table = run.Table(1);
  EXPECT_EQ(RaisedNumber([&table] { table->ParseDoubleArray(Numbers{1, kInfinity, 3}); }), 6);
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines());
  EXPECT_FALSE(run.InTransaction());
}

TEST(TableLiteParseDoubleArray, OnAWiderTableRaises) {
  const TestRun run;
  const Ref<TableLite> table = run.Table(2);
  EXPECT_EQ(RaisedNumber([&table] { table->ParseDoubleArray(Numbers{1}); }), 1);
}

TEST(TableLiteParseFields, StoresOneRowThatHoldsItsNumber) {
  const TestRun run;
  run.Table(1)->ParseFields(Fields{1.5, 7});
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"1.5|7"}));
}

TEST(TableLiteParseFields, SendsOneStatementAlone) {
  const TestRun run;
  run.Table(2)->ParseFields(Fields{1.5, 0.1 + 0.2, 7});
  EXPECT_EQ(run.Log().statements,
            Lines({"INSERT INTO TrainingSet VALUES (1.5,0.30000000000000004,7);"}));
}

TEST(TableLiteParseFields, StoresNullForANullAndForNotANumber) {
  const TestRun run;
  run.Table(2)->ParseFields(Fields{Null{}, kNan, 3});
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"NULL|NULL|3"}));
}

TEST(TableLiteParseFields, TakesWhateverReadsAsANumber) {
  const TestRun run;
  run.Table(4)->ParseFields(Fields{"2.5", true, Variant(), " 1e3 ", "7"});
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"2.5|-1|0|1000|7"}));
}

TEST(TableLiteParseFields, RefusesATextThatIsNoNumber) {
  const TestRun run;
  const Ref<TableLite> table = run.Table(1);
  EXPECT_EQ(RaisedNumber([&table] { table->ParseFields(Fields{"1);--", 1}); }), 13);
  EXPECT_EQ(run.Log().statements, Lines());
}

TEST(TableLiteParseFields, WritesThePointUnderACommaLocale) {
  const ScopedLocale german("de_DE.UTF-8");
  const TestRun run;
  run.Table(1)->ParseFields(Fields{1.5, 7});
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"1.5|7"}));
}

TEST(TableLiteParseFields, OfNothingRaises) {
  const TestRun run;
  const Ref<TableLite> table = run.Table(1);
  EXPECT_EQ(RaisedNumber([&table] { table->ParseFields({}); }), 1);
}

TEST(TableLiteParseFields, OfARowNumberThatIsThereRaises) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(1, {"5"});
  EXPECT_EQ(RaisedNumber([&table] { table->ParseFields(Fields{6.0, 1}); }), 1555);
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"5|1"}));
}

}  // namespace
}  // namespace tslm5
