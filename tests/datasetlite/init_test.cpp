#include <gtest/gtest.h>

#include "datasetlite/lite_set.h"
#include "tslm5/contracts/iterator.h"

namespace tslm5 {
namespace {

using DataSetLiteInit = DataSetLiteTest;

VariantArray Parameters(const TestRun& run, std::int32_t type) {
  return VariantArray({Variant(run.Service()), Variant(type)});
}

TEST_F(DataSetLiteInit, TakesTheRunAndTheTypeAndAnswersTrue) {
  const LiteSet set;
  EXPECT_EQ(set.As<IConstructor>()->Init(Parameters(run_, 2)), Variant(true));
  EXPECT_EQ(set->DataSetType(), 2);
  EXPECT_EQ(set->Name(), "Testing");
}

TEST_F(DataSetLiteInit, MakesNoTableAndLoadsNothing) {
  Parse("1,2\n3,4\n");
  const Lines schema = run_.Schema();
  const LiteSet set(run_, data_set_type::kTraining);
  EXPECT_EQ(set->Rows(), 0);
  EXPECT_FALSE(set->IsReady());
  EXPECT_EQ(run_.Schema(), schema);
}

TEST_F(DataSetLiteInit, IsEnoughForALoad) {
  const LiteSet set(run_, data_set_type::kTesting);
  ParseFile(set, File("1,2\n3,4\n"), {.type = data_set_type::kTesting});
  EXPECT_EQ(set.Records(), (Lines{"1,2", "3,4"}));
}

TEST_F(DataSetLiteInit, TakesItsParametersFromTheLowerBound) {
  VariantArray parameters;
  parameters.Redim(3, 4);
  parameters[3] = Variant(run_.Service());
  parameters[4] = 5;
  const LiteSet set;
  EXPECT_EQ(set.As<IConstructor>()->Init(parameters), Variant(true));
  EXPECT_EQ(set->DataSetType(), 5);
}

TEST_F(DataSetLiteInit, RefusesFewerThanTwoParameters) {
  const LiteSet set;
  for (const VariantArray& parameters : {VariantArray(), VariantArray({Variant(run_.Service())})}) {
    const Error error = Raised([&] { set.As<IConstructor>()->Init(parameters); });
    EXPECT_EQ(error.Number(), 41001);
    EXPECT_EQ(error.Description(), "Invalid parameter.");
  }
}

TEST_F(DataSetLiteInit, ChangesNothingWhenAParameterHasTheWrongKind) {
  const auto init = [this](Variant run, Variant type) {
    return RaisedNumber([&] { set_.As<IConstructor>()->Init(VariantArray({run, type})); });
  };
  EXPECT_EQ(init("run.db", 2), 13);
  EXPECT_EQ(init(Variant(run_.Service()), "two"), 13);
  EXPECT_EQ(set_->DataSetType(), 1);
  EXPECT_NO_THROW(Parse("1,2\n"));
}

TEST_F(DataSetLiteInit, MakesTheColumnCountBeAskedAnew) {
  Parse("1,2,3\n4,5,6\n");
  const Ref<IConstructor> constructor = set_.As<IConstructor>();
  constructor->Init(Parameters(run_, data_set_type::kTraining));
  const Ref<IIterator> iterator = set_.As<IIterator>();
  iterator->ResetIterator();
  Array<double> sample;
  EXPECT_TRUE(iterator->GetCurrentSample(sample));
  EXPECT_EQ(sample.Size(), 0U) << "no column is read while their number is not known";
}

TEST(DataSetLiteWithoutARun, RefusesWhatNeedsOne) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("data.csv", "1,2\n");
  const LiteSet set;
  const Ref<RecordingEvents> events = set.Listen();
  EXPECT_EQ(RaisedNumber([&] { set->Parse(path, separator_code::kComma, false, 1, 1); }), 41001);
  EXPECT_EQ(events->lines,
            (Lines{"BeforeDataLoad 2 x 2", "AfterDataLoad 0 x 2: Data load failed."}));
  EXPECT_EQ(RaisedNumber([&] { set->GetRowOriginalValue(0, 0); }), 41001);
  EXPECT_EQ(RaisedNumber([&] { set->GetRowOriginalValueByRecordId(1, 0); }), 41001);
  EXPECT_NO_THROW(set->Clear());
}

}  // namespace
}  // namespace tslm5
