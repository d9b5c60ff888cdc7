#include "inmemory/in_memory_set.h"

#include <gmock/gmock.h>

#include "inmemory/memory_set.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

template <class... Interfaces>
void ExpectOneIdentity(const Ref<IUnknown>& object) {
  const auto check = [&object](const auto& face, const char* name) {
    ASSERT_TRUE(face) << name;
    EXPECT_EQ(Query<IUnknown>(face), object) << name;
    EXPECT_EQ(face->TypeName(), "InMemorySet") << name;
    EXPECT_TRUE(Query<IDataSet>(face)) << name;
  };
  (check(object.As<Interfaces>(), __PRETTY_FUNCTION__), ...);
}

TEST(InMemorySet, IsOneObjectWithManyFaces) {
  ExpectOneIdentity<IDataSet, IInMemorySet, IIterator, IIsDirty, IPersistable, IExtraSet,
                    IVectorize, IConnectionPoint, IPropertySource>(MakeInMemorySet());
}

TEST(InMemorySet, HasNoFaceOfARunsDataSet) {
  const MemorySet set;
  EXPECT_FALSE(set.As<ICloneableEx>());
  EXPECT_FALSE(set.As<IConstructor>());
  EXPECT_FALSE(set.As<IDisposable>());
}

TEST(InMemorySet, LivesAsLongAsOneOfItsFaces) {
  Ref<IUnknown> object = MakeInMemorySet();
  const Ref<IVectorize> face = object.As<IVectorize>();
  object.As<IDataSet>()->put_DataSetType(2);
  object.Reset();
  EXPECT_EQ(Query<IDataSet>(face)->DataSetType(), 2);
}

TEST(InMemorySet, StartsEmpty) {
  const MemorySet set;
  EXPECT_EQ(set->Rows(), 0);
  EXPECT_EQ(set->Columns(), 0);
  EXPECT_EQ(set->TerminalCount(), -1);
  EXPECT_EQ(set->Name(), "");
  EXPECT_EQ(set->DataSetType(), 0);
  EXPECT_EQ(set->ProblemCategory(), 0);
  EXPECT_FALSE(set->IsReady());
  EXPECT_FALSE(set->HasLabels());
  EXPECT_EQ(set->DependentVarName(), "y");
  EXPECT_EQ(set->IndependentVarsPrefix(), "d");
  EXPECT_EQ(set->GetProperty("ReplacedNullValues"), "0");
  EXPECT_EQ(set.State().separator, 0);
  EXPECT_FALSE(set.IsDirty());
  EXPECT_EQ(set.As<IIterator>()->CurrentRow(), -1);
  EXPECT_EQ(set.As<IExtraSet>()->Rows(), 0);
  EXPECT_EQ(set.As<IExtraSet>()->Columns(), 0);
  EXPECT_FALSE(set.As<IExtraSet>()->Exists());
}

TEST(InMemorySet, CountsColumnsAgainWhenThereWereNone) {
  const MemorySet set;
  EXPECT_EQ(set->Columns(), 0);
  set.Parse("1,2,3\n4,5,6");
  EXPECT_EQ(set->Columns(), 3);
  EXPECT_EQ(set->TerminalCount(), 2);
  EXPECT_EQ(set.As<IExtraSet>()->Columns(), 3);
}

TEST(InMemorySet, KeepsDataAndExtraSetApart) {
  const MemorySet set("1,2,3,4\n5,6,7,8\n9,10,11,12");
  EXPECT_EQ(set->Rows(), 3);
  EXPECT_EQ(set.As<IExtraSet>()->Rows(), 0);
}

TEST(InMemorySet, IsNamedByItsType) {
  const MemorySet set;
  const struct {
    std::int32_t type;
    const char* name;
    const char* inner_name;
  } kCases[] = {{1, "Training", "Training"}, {2, "Testing", "Testing"}, {5, "", "Time Series"}};
  for (const auto& [type, name, inner_name] : kCases) {
    set.As<IInMemorySet>()->SetDataSetType(type);
    EXPECT_EQ(set->DataSetType(), type);
    EXPECT_EQ(set->Name(), name);
    EXPECT_EQ(set.State().name, inner_name);
  }
  set.As<IInMemorySet>()->SetDataSetType(3);
  EXPECT_EQ(set->DataSetType(), 3);
  EXPECT_EQ(set.State().name, "Time Series") << "a code without a name leaves it";
}

TEST(InMemorySet, KeepsItsInnerNameWhenTheTypeAloneIsWritten) {
  const MemorySet set;
  set.As<IInMemorySet>()->SetDataSetType(1);
  set->put_DataSetType(2);
  EXPECT_EQ(set.State().name, "Training");
  EXPECT_EQ(set->Name(), "Testing");
}

TEST(InMemorySet, IsEmptiedByClear) {
  const MemorySet set("1,2,3,4\n5,6,7,8\n9,10,11,12");
  set->put_ProblemCategory(2);
  set->SetProperty("5", "DelayTime");
  set.State().extra_set = CellArray(2, 4);
  set.State().extra_set_exists = true;
  set.State().replaced_missing_count = 3;
  set.As<IIterator>()->ResetIterator();
  set->Clear();
  EXPECT_EQ(set->Rows(), 0);
  EXPECT_EQ(set->Columns(), 4) << "the column count stays";
  EXPECT_EQ(set->ProblemCategory(), 2);
  EXPECT_EQ(set->GetProperty("ReplacedNullValues"), "3");
  EXPECT_EQ(set->DataSetType(), 1000);
  EXPECT_EQ(set->Name(), "");
  EXPECT_EQ(set.State().name, "");
  EXPECT_EQ(set.State().separator, -1);
  EXPECT_FALSE(set->IsReady());
  EXPECT_FALSE(set->HasLabels());
  EXPECT_FALSE(set.IsDirty());
  EXPECT_EQ(RaisedNumber([&] { set->GetProperty("DelayTime"); }), 5);
  EXPECT_EQ(RaisedNumber([&] { set->GetLabel(0); }), 9);
  EXPECT_EQ(set.As<IIterator>()->CurrentRow(), -1);
  EXPECT_FALSE(set.As<IExtraSet>()->Exists());
  EXPECT_EQ(set.As<IExtraSet>()->Rows(), 0);
}

TEST(InMemorySet, IsReadyAgainAfterTheNextParse) {
  const MemorySet set("1,2");
  set->Clear();
  set.Parse("3,4\n5,6");
  EXPECT_TRUE(set->IsReady());
  EXPECT_THAT(set.Records(), ElementsAre("3,4", "5,6"));
}

TEST(InMemorySet, LetsListenersAttachAndGo) {
  const MemorySet set;
  const Ref<RecordingMemoryEvents> events = MakeObject<RecordingMemoryEvents>();
  const std::int32_t cookie = set.As<IConnectionPoint>()->Advise(events.get());
  EXPECT_GT(cookie, 0);
  set.As<IConnectionPoint>()->Unadvise(cookie);
  set.Parse("1,2");
  EXPECT_THAT(events->lines, IsEmpty());
  EXPECT_EQ(RaisedNumber([&] { set.As<IConnectionPoint>()->Unadvise(cookie); }), 5);
  EXPECT_EQ(RaisedNumber([&] { set.As<IConnectionPoint>()->Advise(set.Object().get()); }), 13);
}

TEST(InMemorySet, IsClonedDeep) {
  const MemorySet original;
  original.Parse("a,b\n1,2\n3,4", {.has_labels = true, .type = 2});
  original->SetProperty("5", "DelayTime");
  original->put_ProblemCategory(2);
  original->put_IndependentVarsPrefix("x");
  original->put_DependentVarName("z");
  original.As<IIterator>()->ResetIterator();
  original.State().extra_set = CellArray(1, 2);
  original.State().extra_set_exists = true;
  original.State().replaced_missing_count = 4;
  const Ref<RecordingMemoryEvents> events = original.Listen();
  const MemorySet clone(Query<IUnknown>(original.As<IInMemorySet>()->Clone()));

  original.As<IExtraSet>()->SetItem(0, 0, 9);
  original->SetProperty("6", "DelayTime");
  original.State().data->Put(0, 0, 99);
  EXPECT_TRUE(clone->IsReady());
  EXPECT_TRUE(clone.IsDirty());
  EXPECT_THAT(clone.Records(), ElementsAre("1,2", "3,4"));
  EXPECT_THAT(clone.Labels(), ElementsAre("a", "b"));
  EXPECT_TRUE(clone->HasLabels());
  EXPECT_EQ(clone->DataSetType(), 2);
  EXPECT_EQ(clone.State().name, "Testing");
  EXPECT_EQ(clone.State().separator, 2);
  EXPECT_EQ(clone->ProblemCategory(), 2);
  EXPECT_EQ(clone->IndependentVarsPrefix(), "x");
  EXPECT_EQ(clone->DependentVarName(), "z");
  EXPECT_EQ(clone->GetProperty("DelayTime"), "5");
  EXPECT_EQ(clone->GetProperty("ReplacedNullValues"), "4");
  EXPECT_EQ(clone.As<IIterator>()->CurrentRow(), 0);
  EXPECT_TRUE(clone.As<IExtraSet>()->Exists());
  EXPECT_EQ(clone.As<IExtraSet>()->GetItem(0, 0), 0);
  clone.Parse("7,8");
  EXPECT_THAT(events->lines, IsEmpty()) << "listeners are not taken along";
  EXPECT_THAT(original.Records(), ElementsAre("99,2", "3,4"));
}

TEST(InMemorySet, IsClonedEmptyToo) {
  const MemorySet set(Query<IUnknown>(MemorySet().As<IInMemorySet>()->Clone()));
  EXPECT_EQ(set->Rows(), 0);
  EXPECT_EQ(set->Columns(), 0);
  EXPECT_FALSE(set->IsReady());
}

TEST(InMemorySet, KeepsTheOneColumnOfASeriesInAClone) {
  const MemorySet source;
  source.State().extra_set = CellArray(2, 3);
  source.State().extra_set_exists = true;
  source.State().column_count = 3;
  const MemorySet series;
  ASSERT_TRUE(series->SetData(source.Object().get(), 5));
  const MemorySet clone(Query<IUnknown>(series.As<IInMemorySet>()->Clone()));
  EXPECT_EQ(clone->Columns(), 1);
}

TEST(InMemorySet, RemovesEmptyLinesAtTheEndOfAText) {
  const MemorySet set;
  const struct {
    const char* before;
    const char* after;
  } kCases[] = {
      {"a\nb\n\n", "a\nb"}, {"\n\n", ""}, {"", ""}, {"a\n\nb", "a\n\nb"}, {"a\n \n", "a\n "}};
  for (const auto& [before, after] : kCases) {
    std::string text = before;
    EXPECT_EQ(set.As<IInMemorySet>()->RemoveEmptyLinesAtEnd(text), after);
    EXPECT_EQ(text, after);
  }
}

TEST(InMemorySet, LivesInNoRun) {
  const MemorySet set("1,2");
  EXPECT_FALSE(set.As<IPersistable>()->Load(Variant(), Variant()));
  EXPECT_THAT(set.Records(), ElementsAre("1,2"));
  EXPECT_THAT(Raised([&] { set.As<IPersistable>()->Save(Variant(), Variant()); }),
              IsError(-10000, "IPersistable_Save", "NOT IMPLEMENTED"));
}

}  // namespace
}  // namespace tslm5
