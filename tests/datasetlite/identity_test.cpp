#include <gtest/gtest.h>

#include "datasetlite/data_set_lite.h"
#include "tslm5/contracts/deployment_data_set.h"
#include "tslm5/contracts/in_memory_set.h"
#include "tslm5/contracts/nominal_data_set.h"
#include "tslm5/engine/connection_service.h"
#include "tslm5/platform/dispatch.h"

namespace tslm5 {
namespace {

template <class I>
class DataSetLiteFace : public testing::Test {};

using Faces =
    testing::Types<IDataSet, IIterator, IIsDirty, IPersistable, ICloneableEx, IConstructor,
                   IDisposable, ILRServices, IExtraSet, IVectorize, IConnectionPoint,
                   INominalDataSetMetadata, IMissingMetadata, IDeploymentDataSet,
                   ITimeSeriesDataSet, ITimeSeriesChanges, IDataSetLite>;
TYPED_TEST_SUITE(DataSetLiteFace, Faces);

TYPED_TEST(DataSetLiteFace, BelongsToTheOneObject) {
  const Ref<IUnknown> object = MakeDataSetLite();
  const Ref<TypeParam> face = object.As<TypeParam>();
  ASSERT_TRUE(face);
  EXPECT_EQ(face.template As<IUnknown>().get(), object.get());
  EXPECT_NE(static_cast<IUnknown*>(face.get()), object.get()) << "a face is not the root";
  EXPECT_EQ(face->TypeName(), "DataSetLite");
}

TYPED_TEST(DataSetLiteFace, LeadsToAnotherFaceAndBack) {
  const Ref<TypeParam> face = MakeDataSetLite().As<TypeParam>();
  const Ref<ILRServices> services = face.template As<ILRServices>();
  const Ref<IDataSet> data_set = services.As<IDataSet>();
  ASSERT_TRUE(data_set);
  EXPECT_EQ(data_set.As<TypeParam>().get(), face.get());
}

TYPED_TEST(DataSetLiteFace, KeepsTheObjectAliveAlone) {
  const std::int64_t before = LiveObjects::Count();
  Ref<TypeParam> face = MakeDataSetLite().As<TypeParam>();
  EXPECT_EQ(LiveObjects::Count(), before + 1);
  EXPECT_EQ(face.template As<IDataSet>()->DependentVarName(), "y");
  face.Reset();
  EXPECT_EQ(LiveObjects::Count(), before);
}

TEST(DataSetLiteIdentity, IsOneCountForAllFaces) {
  const Ref<IUnknown> object = MakeDataSetLite();
  const Ref<IDataSet> data_set = object.As<IDataSet>();
  const Ref<IExtraSet> extra = object.As<IExtraSet>();
  EXPECT_EQ(data_set->AddRef(), 4U);
  EXPECT_EQ(extra->Release(), 3U);
}

TEST(DataSetLiteIdentity, TellsTwoObjectsApart) {
  const Ref<IDataSet> one = MakeDataSetLite().As<IDataSet>();
  const Ref<IDataSet> other = MakeDataSetLite().As<IDataSet>();
  EXPECT_NE(one.As<IUnknown>().get(), other.As<IUnknown>().get());
}

TEST(DataSetLiteIdentity, GivesNothingForAnInterfaceItDoesNotHave) {
  const Ref<IUnknown> object = MakeDataSetLite();
  const Uuid absent[] = {INominalDataSet::kId,
                         IInMemorySetEvents::kId,
                         IDataSetLiteEvents::kId,
                         IConnectionService::kId,
                         IDispatch::kId,
                         Uuid{},
                         Uuid{IDataSet::kId.high, IDataSet::kId.low + 1}};
  for (const Uuid& id : absent) {
    void* face = &face;
    EXPECT_FALSE(object->QueryInterface(id, &face)) << std::hex << id.high;
    EXPECT_EQ(face, nullptr) << std::hex << id.high;
    const Ref<IDataSet> data_set = object.As<IDataSet>();
    face = &face;
    EXPECT_FALSE(data_set->QueryInterface(id, &face)) << std::hex << id.high;
    EXPECT_EQ(face, nullptr) << std::hex << id.high;
  }
}

}  // namespace
}  // namespace tslm5
