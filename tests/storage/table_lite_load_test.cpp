// Opening, saving and letting go of a data table.
#include <gtest/gtest.h>

#include "platform/raised.h"
#include "platform/test_objects.h"
#include "storage/table_lite.h"
#include "storage/test_run.h"

namespace tslm5 {
namespace {

TEST(TableLite, IsEmptyWhenNew) {
  const Ref<TableLite> table = MakeObject<TableLite>();
  EXPECT_EQ(table->TypeName(), "TableLite");
  EXPECT_EQ(table->TypeCode(), 0);
  EXPECT_EQ(table->Name(), "");
  EXPECT_EQ(table->Columns(), 0);
  EXPECT_EQ(table->Rows(), 0);
  EXPECT_FALSE(table->IsBinary());
}

TEST(TableLite, InitDoesNothing) {
  const Ref<TableLite> table = MakeObject<TableLite>();
  table->Init(7);
  EXPECT_EQ(table->TypeCode(), 0);
  EXPECT_EQ(RaisedNumber([&table] { table->DeleteAll(); }), 41001);
}

TEST(TableLite, WithoutARunRaises) {
  const Ref<TableLite> table = MakeObject<TableLite>();
  table->Init2(nullptr);
  EXPECT_EQ(RaisedNumber([&table] { table->Create(1, 1, true); }), 41001);
  EXPECT_EQ(RaisedNumber([&table] { table->ParseArray(Lines{"1"}); }), 41001);
  table->Init2(MakeObject<OneFace>().get());
  EXPECT_EQ(RaisedNumber([&table] { table->Create(1, 1, true); }), 41001);
}

TEST(TableLiteLoad, OpensTheTableOfTheType) {
  const TestRun run;
  run.Filled(2, {"1 2", "3 4"}, 2);
  const Ref<TableLite> table = MakeObject<TableLite>();
  EXPECT_TRUE(table->Load(Variant(run.Service()), 2));
  EXPECT_EQ(table->Name(), "TestingSet");
  EXPECT_EQ(table->Columns(), 2);
  EXPECT_EQ(table->Rows(), 2);
  EXPECT_EQ(run.Log().statements, Lines({"SELECT * FROM TestingSet;"}));
}

TEST(TableLiteLoad, OfAMissingTableIsFalseAndDoesNotRaise) {
  const TestRun run;
  const Ref<TableLite> table = MakeObject<TableLite>();
  EXPECT_FALSE(table->Load(Variant(run.Service()), 1));
  EXPECT_EQ(table->Rows(), 0);
  EXPECT_EQ(table->Columns(), 0);
  EXPECT_EQ(table->TypeCode(), 1);
}

TEST(TableLiteLoad, OfAMissingTableClosesTheOneBefore) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(1, {"1"});
  EXPECT_FALSE(table->Load(Variant(run.Service()), 2));
  EXPECT_EQ(table->Rows(), 0);
  EXPECT_EQ(table->Columns(), 0);
}

TEST(TableLiteLoad, OfATypeWithoutATableIsFalse) {
  const TestRun run;
  const Ref<TableLite> table = MakeObject<TableLite>();
  EXPECT_FALSE(table->Load(Variant(run.Service()), 4));
}

TEST(TableLiteLoad, TakesATypeCodeWrittenAsText) {
  const TestRun run;
  run.Filled(1, {"1"}, 2);
  const Ref<TableLite> table = MakeObject<TableLite>();
  EXPECT_TRUE(table->Load(Variant(run.Service()), "2"));
  EXPECT_EQ(table->TypeCode(), 2);
}

TEST(TableLiteLoad, OfWhatIsNoRunRaises) {
  const Ref<TableLite> table = MakeObject<TableLite>();
  EXPECT_EQ(RaisedNumber([&table] { table->Load(Variant(MakeObject<OneFace>()), 1); }), 41001);
  EXPECT_EQ(RaisedNumber([&table] { table->Load(Variant("run.db"), 1); }), 13);
}

TEST(TableLiteLoad, ThatRaisesLeavesTheTableOfBefore) {
  const TestRun run;
  run.Filled(2, {"5 6", "7 8"}, 2);
  const Ref<TableLite> table = run.Filled(1, {"1"});
  const Error damage(11, "TSLMRep5", "database disk image is malformed");
  run.Log().FailAt(1, damage);
  EXPECT_EQ(RaisedNumber([&table] { table->LoadRecordSet(); }), 11);
  EXPECT_EQ(table->Rows(), 1);
  run.Log().FailAt(1, damage);
  EXPECT_EQ(RaisedNumber([&] { table->Load(Variant(run.Service()), 2); }), 11);
  EXPECT_EQ(RaisedNumber([&] { table->Load(Variant(MakeObject<OneFace>()), 2); }), 41001);
  EXPECT_EQ(table->Name(), "TrainingSet");
  EXPECT_EQ(table->Rows(), 1);
  EXPECT_TRUE(table->LoadRecordSet()) << "and its connection";
}

TEST(TableLiteLoadRecordSet, OfATableThatWentIsFalse) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(1, {"1"});
  run.Execute("DROP TABLE TrainingSet");
  EXPECT_FALSE(table->LoadRecordSet());
  EXPECT_EQ(table->Columns(), 0);
}

TEST(TableLiteLoadRecordSet, KeepsWhatWasPutWithoutASave) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(2, {"1 2", "3 4"});
  ASSERT_TRUE(table->PutValue(0, 0, 9));
  EXPECT_TRUE(table->LoadRecordSet());
  double value = 0;
  EXPECT_TRUE(table->GetValue(0, 0, value));
  EXPECT_EQ(value, 9);
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"9|2|1", "3|4|2"}));
}

TEST(TableLiteLoad, OfAnotherTypeKeepsWhatWasPutWithoutASave) {
  const TestRun run;
  run.Filled(1, {"5"}, 2);
  const Ref<TableLite> table = run.Filled(1, {"1"});
  ASSERT_TRUE(table->PutValue(0, 0, 9));
  EXPECT_TRUE(table->Load(Variant(run.Service()), 2));
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"9|1"}));
  EXPECT_EQ(run.TableRows("TestingSet"), Lines({"5|1"}));
}

TEST(TableLiteLoadRecordSet, TellsOnceOfWhatItsTableRefuses) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(1, {"1"});
  run.Execute(
      "CREATE TRIGGER refuse BEFORE UPDATE ON TrainingSet BEGIN SELECT RAISE(ABORT, 'no'); END");
  ASSERT_TRUE(table->PutValue(0, 0, 9));
  EXPECT_EQ(RaisedNumber([&table] { table->LoadRecordSet(); }), 1811);  // refused by a trigger
  EXPECT_EQ(table->GetRow(0, " "), "1 ");
  EXPECT_TRUE(table->LoadRecordSet());
}

TEST(TableLiteSave, WithoutATableIsFalse) {
  EXPECT_FALSE(MakeObject<TableLite>()->Save());
  const TestRun run;
  EXPECT_FALSE(run.Table(1)->Save());
}

TEST(TableLiteSave, WritesWhatIsPending) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(1, {"1"});
  EXPECT_TRUE(table->Save());
  ASSERT_TRUE(table->PutValue(0, 0, 9));
  EXPECT_TRUE(table->Save());
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"9|1"}));
}

TEST(TableLiteSave, ThatFailsIsFalseAndDoesNotRaise) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(1, {"1"});
  run.Execute(
      "CREATE TRIGGER refuse BEFORE UPDATE ON TrainingSet BEGIN SELECT RAISE(ABORT, 'no'); END");
  ASSERT_TRUE(table->PutValue(0, 0, 9));
  EXPECT_FALSE(table->Save());
}

TEST(TableLiteDispose, ClosesTheRecordSetAndWritesWhatIsPending) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(1, {"1"});
  ASSERT_TRUE(table->PutValue(0, 0, 9));
  table->Dispose(true);
  EXPECT_EQ(table->Rows(), 0);
  EXPECT_EQ(table->Columns(), 0);
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"9|1"}));
  table->Dispose(true);  // a second time, there is nothing to close
}

TEST(TableLiteDispose, WithFalseDoesNothing) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(1, {"1"});
  table->Dispose(false);
  EXPECT_EQ(table->Rows(), 1);
}

TEST(TableLiteDispose, IsFollowedByALoadThatOpensTheTableAgain) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(1, {"1"});
  table->Dispose(true);
  EXPECT_TRUE(table->LoadRecordSet());
  EXPECT_EQ(table->Rows(), 1);
}

}  // namespace
}  // namespace tslm5
