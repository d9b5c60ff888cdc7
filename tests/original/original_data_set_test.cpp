// One object, three faces; and what a new one holds.
#include "original/original_data_set.h"

#include <gtest/gtest.h>

#include "original/original_run.h"
#include "tslm5/contracts/extra_set.h"
#include "tslm5/contracts/is_dirty.h"
#include "tslm5/platform/live_objects.h"

namespace tslm5 {
namespace {

template <class I>
class OriginalFace : public testing::Test {};

using Faces = testing::Types<IDeploymentDataSet, IDataSet, IPersistable>;
TYPED_TEST_SUITE(OriginalFace, Faces);

TYPED_TEST(OriginalFace, BelongsToTheOneObject) {
  const Ref<IUnknown> object = MakeOriginalDataSet();
  const Ref<TypeParam> face = object.As<TypeParam>();
  ASSERT_TRUE(face);
  EXPECT_EQ(face.template As<IUnknown>().get(), object.get());
  EXPECT_NE(static_cast<IUnknown*>(face.get()), object.get()) << "a face is not the root";
  EXPECT_EQ(face->TypeName(), "OriginalDataSet");
}

TYPED_TEST(OriginalFace, LeadsToAnotherFaceAndBack) {
  const Ref<TypeParam> face = MakeOriginalDataSet().As<TypeParam>();
  const Ref<IDataSet> data_set = face.template As<IDataSet>();
  const Ref<IDeploymentDataSet> view = data_set.As<IDeploymentDataSet>();
  ASSERT_TRUE(view);
  EXPECT_EQ(view.As<TypeParam>().get(), face.get());
}

TYPED_TEST(OriginalFace, KeepsTheObjectAliveAlone) {
  const std::int64_t before = LiveObjects::Count();
  Ref<TypeParam> face = MakeOriginalDataSet().As<TypeParam>();
  EXPECT_EQ(LiveObjects::Count(), before + 1);
  EXPECT_EQ(face.template As<IDataSet>()->GetRowNumber(0), 1);
  face.Reset();
  EXPECT_EQ(LiveObjects::Count(), before);
}

TEST(OriginalDataSet, HasNoOtherFace) {
  const Ref<IUnknown> object = MakeOriginalDataSet();
  EXPECT_FALSE(object.As<IExtraSet>());
  EXPECT_FALSE(object.As<IIsDirty>());
  EXPECT_FALSE(object.As<ICloneableEx>());
  EXPECT_FALSE(object.As<IConnection>());
}

TEST(OriginalDataSet, IsEmptyAtFirst) {
  const OriginalView view;
  EXPECT_EQ(view->Rows(), 0);
  EXPECT_EQ(view->Columns(), 0);
  EXPECT_EQ(view->TerminalCount(), -1);
  EXPECT_FALSE(view->HasLabels());
  EXPECT_EQ(view->GetTargetMax(), 0);
  EXPECT_EQ(view->GetDataSetRows(1), 0);
  EXPECT_EQ(view->GetDataSetRows(2), 0);
  EXPECT_FALSE(view->HasMissingValues(0));
  EXPECT_EQ(RaisedNumber([&] { view->GetItem(0, 0); }), 9);
  EXPECT_EQ(RaisedNumber([&] { view->GetLabel(0); }), 9);
  EXPECT_EQ(RaisedNumber([&] { view->GetRowOriginalIndex(0); }), 9);
  EXPECT_EQ(RaisedNumber([&] { view->IsColumnCategorical(0); }), 9);
}

TEST(OriginalDataSet, NumbersRowsByPlaceInOneFaceAndByKeyInTheOther) {
  const OriginalRun run;
  const OriginalView view;
  view.Open(run, data_set_type::kTesting);
  EXPECT_EQ(view->GetRowOriginalIndex(0), 5);
  EXPECT_EQ(view->GetRowOriginalIndex(1), 9);
  EXPECT_EQ(view.DataSet()->GetRowOriginalIndex(0), 1);
  EXPECT_EQ(view.DataSet()->GetRowOriginalIndex(1), 2);
  EXPECT_EQ(view.DataSet()->GetRowNumber(0), 1);
  EXPECT_EQ(view.DataSet()->GetRowNumber(41), 42) << "without a look at the data";
}

TEST(OriginalDataSet, ServesTheSameCellsAndShapeThroughBothFaces) {
  const OriginalRun run;
  const OriginalView view;
  view.Open(run, data_set_type::kTraining);
  EXPECT_EQ(view.DataSet()->Rows(), 2);
  EXPECT_EQ(view.DataSet()->Columns(), 3);
  EXPECT_EQ(view.DataSet()->TerminalCount(), 2);
  EXPECT_EQ(view.DataSet()->GetItemString(0, 1), "blue");
  EXPECT_EQ(view->GetItem(0, 1), "blue");
  EXPECT_EQ(view.DataSet()->GetItem(1, 0), 0) << "numbers are not served";
}

}  // namespace
}  // namespace tslm5
