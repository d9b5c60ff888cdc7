// The interfaces of a data table.
#include <gtest/gtest.h>

#include "platform/raised.h"
#include "platform/test_objects.h"
#include "storage/table_lite.h"
#include "storage/test_run.h"
#include "tslm5/contracts/lifecycle.h"

namespace tslm5 {
namespace {

TEST(TableLiteFacets, AreOneObject) {
  const Ref<TableLite> table = MakeObject<TableLite>();
  const auto persistable = Query<IPersistable>(table);
  const auto cloneable = Query<ICloneableEx>(persistable);
  const auto disposable = Query<IDisposable>(cloneable);
  ASSERT_TRUE(persistable && cloneable && disposable);
  const Ref<IUnknown> identity = Query<IUnknown>(table);
  EXPECT_EQ(Query<IUnknown>(persistable), identity);
  EXPECT_EQ(Query<IUnknown>(cloneable), identity);
  EXPECT_EQ(Query<IUnknown>(disposable), identity);
  EXPECT_EQ(Query<IPersistable>(disposable), persistable);
}

TEST(TableLiteFacets, ShareTheTypeName) {
  const Ref<TableLite> table = MakeObject<TableLite>();
  EXPECT_EQ(Query<IPersistable>(table)->TypeName(), "TableLite");
  EXPECT_EQ(Query<ICloneableEx>(table)->TypeName(), "TableLite");
  EXPECT_EQ(Query<IDisposable>(table)->TypeName(), "TableLite");
}

TEST(TableLiteFacets, AreNoOtherInterface) {
  EXPECT_FALSE(Query<IConstructor>(MakeObject<TableLite>()));
}

TEST(TableLiteFacets, KeepTheTableAlive) {
  const TestRun run;
  Ref<TableLite> table = run.Filled(1, {"1"});
  const auto persistable = Query<IPersistable>(table);
  table.Reset();
  EXPECT_EQ(CountOf(*persistable), 1U);
  EXPECT_TRUE(persistable->Save({}, {}));
}

TEST(TableLiteFacets, LoadAndSaveThroughPersistable) {
  const TestRun run;
  run.Filled(1, {"4"}, 2);
  const Ref<TableLite> table = MakeObject<TableLite>();
  const auto persistable = Query<IPersistable>(table);
  EXPECT_FALSE(persistable->Save({}, {}));
  EXPECT_TRUE(persistable->Load(Variant(run.Service()), 2));
  EXPECT_EQ(table->Rows(), 1);
  ASSERT_TRUE(table->PutValue(0, 0, 5));
  EXPECT_TRUE(persistable->Save("ignored", "ignored"));
  EXPECT_EQ(run.TableRows("TestingSet"), Lines({"5|1"}));
  EXPECT_FALSE(persistable->Load(Variant(run.Service()), 5));
}

TEST(TableLiteFacets, CloneThroughCloneable) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(1, {"4"});
  const Ref<IUnknown> clone = Query<ICloneableEx>(table)->Clone("2");
  EXPECT_EQ(clone->TypeName(), "TableLite");
  EXPECT_FALSE(clone == Query<IUnknown>(table));
  EXPECT_TRUE(Query<IPersistable>(clone)->Save({}, {}));
  EXPECT_EQ(run.TableRows("TestingSet"), Lines({"4|1"}));
  EXPECT_EQ(RaisedNumber([&table] { Query<ICloneableEx>(table)->Clone(1); }), 41015);
}

TEST(TableLiteFacets, DisposeThroughDisposable) {
  const TestRun run;
  const Ref<TableLite> table = run.Filled(1, {"4"});
  const auto disposable = Query<IDisposable>(table);
  disposable->Dispose(false);
  EXPECT_EQ(table->Rows(), 1);
  disposable->Dispose(true);
  EXPECT_EQ(table->Rows(), 0);
}

}  // namespace
}  // namespace tslm5
