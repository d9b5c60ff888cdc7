// The property bag of `IDataSet`, and `IIsDirty`.
#include "conformance/set_under_test.h"

namespace tslm5 {
namespace {

class PropertiesConformance : public ConformanceTest {};
TSLM5_CONFORMANCE_SUITE(PropertiesConformance);

TEST_P(PropertiesConformance, TakeTheValueFirstAndGiveTheKeyBack) {
  EXPECT_EQ(set_->SetProperty("5", "DelayTime"), "DelayTime");
  EXPECT_EQ(set_->GetProperty("DelayTime"), "5");
}

TEST_P(PropertiesConformance, KeepTheLastWriteWhateverTheCaseOfTheKey) {
  set_->SetProperty("1", "separator");
  EXPECT_EQ(set_->SetProperty("2", "Separator"), "Separator");
  EXPECT_EQ(set_->GetProperty("SEPARATOR"), "2");
}

TEST_P(PropertiesConformance, UnderAnUnknownKeyAreEmptyOrAnError) {
  const Error error = Raised([&] { EXPECT_EQ(set_->GetProperty("nothing"), ""); });
  EXPECT_EQ(error.Number(), Means().unknown_property_error);
  EXPECT_EQ(error.Source(), error.Number() == 0 ? "" : "GetProperty");
}

TEST_P(PropertiesConformance, MakeTheSetDirty) {
  EXPECT_FALSE(As<IIsDirty>()->IsDirty());
  set_->SetProperty("1", "a");
  EXPECT_TRUE(As<IIsDirty>()->IsDirty());
}

TEST_P(PropertiesConformance, AreGoneAfterAReset) {
  set_->SetProperty("1", "a");
  As<IIsDirty>()->put_IsDirty(false);
  set_->ResetProperties();
  EXPECT_EQ(As<IIsDirty>()->IsDirty(), Means().reset_properties_makes_dirty);
  EXPECT_EQ(RaisedNumber([&] { EXPECT_EQ(set_->GetProperty("a"), ""); }),
            Means().unknown_property_error);
}

class IsDirtyConformance : public ConformanceTest {};
TSLM5_CONFORMANCE_SUITE(IsDirtyConformance);

TEST_P(IsDirtyConformance, ReadsAsWritten) {
  const Ref<IIsDirty> dirty = As<IIsDirty>();
  EXPECT_FALSE(dirty->IsDirty());
  dirty->put_IsDirty(true);
  EXPECT_TRUE(dirty->IsDirty());
  dirty->put_IsDirty(false);
  EXPECT_FALSE(dirty->IsDirty());
}

TEST_P(IsDirtyConformance, IsLeftAloneByReading) {
  Parse("1,2\n3,4\n");
  As<IIsDirty>()->put_IsDirty(false);
  set_->GetItem(0, 0);
  set_->GetLabel(0);
  set_->GetProperty("Separator");
  set_->put_ProblemCategory(2);
  VariantArray array;
  As<IVectorize>()->Vectorize(0, array, 0, -1);
  As<IIterator>()->ResetIterator();
  EXPECT_FALSE(As<IIsDirty>()->IsDirty());
}

}  // namespace
}  // namespace tslm5
