#include "tslm5/component/create_object.h"

#include <gtest/gtest.h>

#include "platform/raised.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/deployment_data_set.h"
#include "tslm5/contracts/event_args.h"
#include "tslm5/contracts/run_schema.h"

namespace tslm5 {
namespace {

TEST(CreateObject, MakesANewObjectWithItsDefaults) {
  const Ref<IDataSet> set = CreateObject<IDataSet>(class_id::kDataSetLite);
  EXPECT_EQ(set->TypeName(), "DataSetLite");
  EXPECT_EQ(set->IndependentVarsPrefix(), "d");
  const Ref<IDataSet> other = CreateObject<IDataSet>(class_id::kDataSetLite);
  set->put_IndependentVarsPrefix("x");
  EXPECT_EQ(other->IndependentVarsPrefix(), "d");
}

TEST(CreateObject, MakesEveryOtherClass) {
  EXPECT_EQ(CreateObject<IDataSet>(class_id::kInMemorySet)->TypeName(), "InMemorySet");
  EXPECT_EQ(CreateObject<IDeploymentDataSet>(class_id::kOriginalDataSet)->TypeName(),
            "OriginalDataSet");
  EXPECT_EQ(CreateObject<IParseEventArgs>(class_id::kParseEventArgs)->Rows(), 0);
  EXPECT_EQ(CreateObject<IRecordParsedEventArgs>(class_id::kRecordParsedEventArgs)->Current(), 0);
  EXPECT_EQ(CreateObject<IRunSchema>(class_id::kRunSchema)->NewestVersion(), 1);
}

TEST(CreateObject, RaisesForAnUnknownClass) {
  const Error error = Raised([] { CreateObject<IDataSet>(Uuid{1, 2}); });
  EXPECT_EQ(error.Number(), 429);
  EXPECT_EQ(error.Source(), "CreateObject");
}

TEST(CreateObject, RaisesForAnInterfaceThatTheClassLacksAndKeepsNothing) {
  EXPECT_EQ(RaisedNumber([] { CreateObject<IRunSchema>(class_id::kDataSetLite); }), 429);
  EXPECT_EQ(DllCanUnloadNow(), TSLM5_OK);
}

TEST(CreateObject, DoesNotTrustALibraryThatGivesNothingForDone) {
  const auto gives_nothing = [](const void*, const void*, void**) -> std::int32_t {
    return TSLM5_OK;
  };
  EXPECT_FALSE(MakeByClassObject<IDataSet>(gives_nothing, class_id::kDataSetLite));
}

}  // namespace
}  // namespace tslm5
