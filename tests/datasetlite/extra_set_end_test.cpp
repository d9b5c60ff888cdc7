// New data end the extra set of the old.
#include <gtest/gtest.h>

#include "datasetlite/lite_set.h"
#include "inmemory/in_memory_set.h"
#include "tslm5/contracts/extra_set.h"

namespace tslm5 {
namespace {

constexpr const char* kSamples = "TimeSeriesTestingSet";

class DataSetLiteExtraSetEnd : public DataSetLiteTest {
 protected:
  DataSetLiteExtraSetEnd() {
    Parse("1\n2\n3\n4\n5\n6\n");
    set_->SetProperty("2", "TestingSamples");
    set_->SetProperty("1", "EmbeddingDimension");
    set_->SetProperty("1", "DelayTime");
    set_->FormatDataAs(0);
  }

  bool HasExtraSet() const { return set_.As<IExtraSet>()->Exists(); }
  bool HasSamples() const { return run_.Connection()->TableExists(kSamples); }
  /// Expects that the samples are gone from the set, and from the run for whoever opens it.
  void ExpectEnd() const {
    EXPECT_FALSE(HasExtraSet());
    EXPECT_EQ(set_.As<IExtraSet>()->Rows(), 0);
    EXPECT_FALSE(HasSamples());
  }
  void ExpectSamples() const {
    ASSERT_TRUE(HasExtraSet());
    EXPECT_EQ(set_.As<IExtraSet>()->GetItem(0, 1), 6.0);
    EXPECT_EQ(run_.TableRows(kSamples), (Lines{"5|1", "6|2"}));
  }
};

TEST_F(DataSetLiteExtraSetEnd, ComesWithAFile) {
  ExpectSamples();
  Parse("7,8\n");
  ExpectEnd();
}

TEST_F(DataSetLiteExtraSetEnd, ComesWithAReplacement) {
  Replace("7,8\n", {.separator = separator_code::kSpace});
  ExpectEnd();
}

TEST_F(DataSetLiteExtraSetEnd, ComesWithAClearedSet) {
  set_->Clear();
  ExpectEnd();
  EXPECT_TRUE(set_.IsDirty());
}

TEST_F(DataSetLiteExtraSetEnd, ComesWithDataThatHaveNoSamples) {
  const Ref<IDataSet> source = MakeInMemorySet().As<IDataSet>();
  source->Parse(File("7,8\n"), separator_code::kComma, false, 1, 1);
  ASSERT_TRUE(set_->SetData(source.get(), data_set_type::kTraining));
  ExpectEnd();
}

TEST_F(DataSetLiteExtraSetEnd, IsABeginningWithDataThatHaveSamples) {
  const Ref<IDataSet> source = MakeInMemorySet().As<IDataSet>();
  source->Parse(File("10\n20\n30\n"), separator_code::kNone, false, 1, 1);
  source->SetProperty("1", "TestingSamples");
  source->SetProperty("1", "EmbeddingDimension");
  source->SetProperty("1", "DelayTime");
  ASSERT_TRUE(source->FormatDataAs(0));
  ASSERT_TRUE(set_->SetData(source.get(), data_set_type::kTraining));
  EXPECT_EQ(set_.As<IExtraSet>()->Rows(), 1);
  EXPECT_EQ(set_.As<IExtraSet>()->GetItem(0, 0), 30.0);
}

TEST_F(DataSetLiteExtraSetEnd, DoesNotComeWithALoadThatFails) {
  EXPECT_NE(RaisedNumber([this] { Parse("7,8\n9\n"); }), 0);
  ExpectSamples();
  run_.Log().before = [](std::string_view statement) {
    if (statement.starts_with("DROP TABLE TimeSeries")) throw Error(5, "", "database is locked");
  };
  EXPECT_EQ(RaisedNumber([this] { Parse("7,8\n"); }), 5);
  EXPECT_EQ(RaisedNumber([this] { set_->Clear(); }), 5);
  run_.Log().before = nullptr;
  ExpectSamples();
  EXPECT_EQ(set_.Records(), (Lines{"1,2", "2,3", "3,4"}));
  EXPECT_FALSE(run_.InTransaction());
}

TEST_F(DataSetLiteExtraSetEnd, DoesNotComeWithALoadThatIsStopped) {
  const Ref<RecordingEvents> events = set_.Listen();
  events->on_record_parsed = [](IRecordParsedEventArgs& record) { record.put_Cancel(true); };
  Parse("7,8\n");
  ExpectSamples();
  const Ref<IDataSet> source = MakeInMemorySet().As<IDataSet>();
  source->Parse(File("7,8\n"), separator_code::kComma, false, 1, 1);
  EXPECT_EQ(RaisedNumber([&] { set_->SetData(source.get(), data_set_type::kTraining); }), 41019);
  ExpectSamples();
}

TEST_F(DataSetLiteExtraSetEnd, OfAnotherSetThanTheTrainingSetLeavesTheSamplesInTheRun) {
  ParseFile(LiteSet(run_, 2), File("70\n80\n"), {.type = 2});
  const LiteSet testing;
  testing.Load(run_, data_set_type::kTesting);
  const Ref<IExtraSet> extra = testing.As<IExtraSet>();
  ASSERT_TRUE(extra->Exists());
  ParseFile(testing, File("90\n"), {.type = 2});
  EXPECT_FALSE(extra->Exists());
  testing.Load(run_, data_set_type::kTesting);
  ASSERT_TRUE(extra->Exists());
  testing->Clear();
  EXPECT_FALSE(extra->Exists());
  ExpectSamples();
}

}  // namespace
}  // namespace tslm5
