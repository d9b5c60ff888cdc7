// The events of `SetData`, what a handler may do in them, and what is left of a load that failed.
#include <gmock/gmock.h>

#include "datasetlite/lite_set.h"
#include "inmemory/memory_set.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

class DataSetLiteSetDataEvents : public DataSetLiteTest {
 protected:
  DataSetLiteSetDataEvents() {
    Parse("7,8\n");
    set_.SetDirty(false);
    set_.Listen(events_);
  }

  bool SetData(std::int32_t type = data_set_type::kTraining) const {
    return set_->SetData(source_.Object().get(), type);
  }
  Error ErrorOfSetData() const {
    return Raised([this] { SetData(); });
  }
  void ExpectNothingLoaded() const {
    EXPECT_EQ(set_->Rows(), 0);
    EXPECT_FALSE(set_->IsReady());
    EXPECT_TRUE(set_.IsDirty());
    EXPECT_FALSE(run_.Connection()->TableExists("TrainingSet"));
    EXPECT_FALSE(run_.InTransaction());
  }

  MemorySet source_{"1,2\n3,4\n5,6"};
  Ref<RecordingEvents> events_ = MakeObject<RecordingEvents>();
};

TEST_F(DataSetLiteSetDataEvents, TellOfTheLoadAndOfEveryRecord) {
  EXPECT_TRUE(SetData());
  EXPECT_THAT(events_->lines,
              ElementsAre("BeforeDataLoad 3 x 2", "RecordParsed 0 of 2", "RecordParsed 1 of 2",
                          "RecordParsed 2 of 2", "AfterDataLoad 3 x 2: Data load succeded."));
  const void* const self = set_.Object().get();
  EXPECT_THAT(events_->senders, ElementsAre(self, self));
  EXPECT_THAT(events_->sources, ElementsAre(" 0", " 0"));
  EXPECT_EQ(events_->arguments.front(), events_->arguments.back());
}

TEST_F(DataSetLiteSetDataEvents, FindTheSetReadyOnlyAfterTheLast) {
  bool ready = true;
  events_->on_after_data_load = [&](IDataSet& sender, IParseEventArgs&) {
    ready = sender.IsReady();
  };
  SetData();
  EXPECT_FALSE(ready);
  EXPECT_TRUE(set_->IsReady());
}

TEST_F(DataSetLiteSetDataEvents, FindTheOldRecordsGone) {
  std::int32_t rows = -1;
  std::int32_t type = -1;
  events_->on_before_data_load = [&](IDataSet& sender, IParseEventArgs&) {
    rows = sender.Rows();
    type = sender.DataSetType();
  };
  SetData(2);
  EXPECT_EQ(rows, 0);
  EXPECT_EQ(type, 2);
}

TEST_F(DataSetLiteSetDataEvents, MayCancelTheLoadBeforehand) {
  events_->on_before_data_load = [](IDataSet&, IParseEventArgs& arguments) {
    arguments.put_Cancel(true);
  };
  EXPECT_FALSE(SetData());
  EXPECT_THAT(events_->lines, ElementsAre("BeforeDataLoad 3 x 2"));
  ExpectNothingLoaded();
}

TEST_F(DataSetLiteSetDataEvents, MayCancelTheLoadAtARecord) {
  events_->on_record_parsed = [](IRecordParsedEventArgs& record) { record.put_Cancel(true); };
  EXPECT_THAT(ErrorOfSetData(), IsError(41019, "SetData", "Data load failed."));
  EXPECT_THAT(events_->lines, ElementsAre("BeforeDataLoad 3 x 2", "RecordParsed 0 of 2",
                                          "AfterDataLoad 0 x 2: Data load failed."));
  ExpectNothingLoaded();
}

TEST_F(DataSetLiteSetDataEvents, LeaveASetThatLoadsAgain) {
  events_->on_record_parsed = [](IRecordParsedEventArgs& record) { record.put_Cancel(true); };
  ErrorOfSetData();
  events_->on_record_parsed = nullptr;
  EXPECT_TRUE(SetData());
  EXPECT_THAT(set_.Records(), ElementsAre("1,2", "3,4", "5,6"));
  EXPECT_EQ(set_->GetRowOriginalIndex(0), 1);
}

TEST_F(DataSetLiteSetDataEvents, DoNotLookAtTheErrorOfARecord) {
  events_->on_record_parsed = [](IRecordParsedEventArgs& record) { record.put_Error(7); };
  EXPECT_TRUE(SetData());
  EXPECT_EQ(set_->Rows(), 3);
}

TEST_F(DataSetLiteSetDataEvents, EndALoadThatTheSourceFails) {
  events_->on_record_parsed = [this](IRecordParsedEventArgs&) { source_->Clear(); };
  EXPECT_THAT(ErrorOfSetData(), IsSubscriptError());
  EXPECT_EQ(events_->lines.back(), "AfterDataLoad 0 x 2: Data load failed.");
  ExpectNothingLoaded();
}

TEST_F(DataSetLiteSetDataEvents, EndALoadThatTheDatabaseFails) {
  events_->on_record_parsed = [this](IRecordParsedEventArgs& record) {
    if (record.Current() == 0) run_.Log().FailAt(1, Error(13, "Execute", "disk is full"));
  };
  EXPECT_THAT(ErrorOfSetData(), IsError(13, "Execute", "disk is full"));
  EXPECT_EQ(events_->lines.back(), "AfterDataLoad 0 x 2: Data load failed.");
  ExpectNothingLoaded();
}

TEST_F(DataSetLiteSetDataEvents, TakeBackTheRecordsWhenTheExtraSetFails) {
  source_.State().extra_set = CellArray(2, 1);
  source_.State().extra_set_exists = true;
  run_.Log().before = [](std::string_view statement) {
    if (statement.starts_with("INSERT INTO TimeSeriesTestingSet")) throw Error(13, "Execute", "x");
  };
  EXPECT_EQ(ErrorOfSetData().Number(), 13);
  ExpectNothingLoaded();
  EXPECT_FALSE(run_.Connection()->TableExists("TimeSeriesTestingSet"));
  EXPECT_FALSE(set_.As<IExtraSet>()->Exists());
}

TEST_F(DataSetLiteSetDataEvents, LetAHandlerReadTheFiguresOfTheOldRecordsOnceMore) {
  set_->CalculateStatistics(nullptr);
  events_->on_before_data_load = [this](IDataSet&, IParseEventArgs&) {
    set_.Load(run_, data_set_type::kTraining);
    EXPECT_EQ(set_->GetMax(0, 0, 0), 7.0);
  };
  EXPECT_TRUE(SetData());
  EXPECT_EQ(set_->GetMax(0, 0, 0), 5.0);
  EXPECT_FALSE(set_->HasGlobalRecordStatistics());
}

TEST_F(DataSetLiteSetDataEvents, LetAHandlerDropTheSet) {
  events_->on_before_data_load = [this](IDataSet&, IParseEventArgs&) { set_.Reset(); };
  SetData();
  EXPECT_EQ(events_->lines.back(), "AfterDataLoad 3 x 2: Data load succeded.");
  EXPECT_EQ(run_.TableRows("TrainingSet").size(), 3u);
}

}  // namespace
}  // namespace tslm5
