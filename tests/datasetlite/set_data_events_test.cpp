// The events of `SetData`, what a handler may do in them, and what is left of a load that failed.
#include <gmock/gmock.h>

#include <algorithm>
#include <new>

#include "datasetlite/lite_set.h"
#include "inmemory/memory_set.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

class DataSetLiteSetDataEvents : public DataSetLiteTest {
 protected:
  DataSetLiteSetDataEvents() {
    Parse("a,b\n7,8\n", {.has_labels = true});
    set_.SetDirty(false);
    before_ = set_.Everything();
    schema_ = run_.Schema();
    set_.Listen(events_);
  }

  bool SetData(std::int32_t type = data_set_type::kTraining) const {
    return set_->SetData(source_.Object().get(), type);
  }
  Error ErrorOfSetData() const {
    return Raised([this] { SetData(); });
  }
  /// Expects the rows of before and all that goes with them, in a set that is not ready.
  void ExpectTheOldRecords() const {
    Lines expected = before_;
    std::replace(expected.begin(), expected.end(), std::string("ready"), std::string("not ready"));
    std::replace(expected.begin(), expected.end(), std::string("clean"), std::string("dirty"));
    EXPECT_EQ(set_.Everything(), expected);
    EXPECT_EQ(run_.TableRows("TrainingSet"), (Lines{"7|8|1"}));
    EXPECT_EQ(run_.Schema(), schema_);
    EXPECT_FALSE(run_.InTransaction());
  }

  MemorySet source_{"1,2\n3,4\n5,6"};
  Ref<RecordingEvents> events_ = MakeObject<RecordingEvents>();
  Lines before_;
  Lines schema_;
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
  EXPECT_EQ(set_->Rows(), 0);
  EXPECT_FALSE(set_->IsReady());
  EXPECT_TRUE(set_.IsDirty());
  EXPECT_FALSE(run_.Connection()->TableExists("TrainingSet"));
  EXPECT_FALSE(run_.InTransaction());
}

TEST_F(DataSetLiteSetDataEvents, KeepTheOldRecordsWhenAHandlerThrowsBeforehand) {
  events_->on_before_data_load = [](IDataSet&, IParseEventArgs&) {
    throw Error(77, "Handler", "x");
  };
  EXPECT_THAT(ErrorOfSetData(), IsError(77, "Handler", "x"));
  EXPECT_EQ(events_->lines.back(), "AfterDataLoad 1 x 2: Data load failed.");
  ExpectTheOldRecords();
}

TEST_F(DataSetLiteSetDataEvents, KeepTheOldRecordsWhenAHandlerThrowsAtARecord) {
  events_->on_record_parsed = [](IRecordParsedEventArgs& record) {
    if (record.Current() == 1) throw std::bad_alloc();
  };
  EXPECT_EQ(ErrorOfSetData().Number(), 7);
  ExpectTheOldRecords();
}

TEST_F(DataSetLiteSetDataEvents, KeepTheOldRecordsUnderAnotherType) {
  events_->on_record_parsed = [](IRecordParsedEventArgs& record) { record.put_Cancel(true); };
  EXPECT_EQ(RaisedNumber([this] { SetData(data_set_type::kTesting); }), 41019);
  ExpectTheOldRecords();
}

TEST_F(DataSetLiteSetDataEvents, KeepTheOldRecordsWhenTheCommitFails) {
  int depth = 0;
  run_.Log().before = [&depth](std::string_view statement) {
    depth += statement == "BEGIN";
    if (statement == "COMMIT" && --depth == 0) throw Error(13, "Execute", "disk is full");
  };
  EXPECT_EQ(ErrorOfSetData().Number(), 13);
  run_.Log().before = nullptr;
  ExpectTheOldRecords();
}

TEST_F(DataSetLiteSetDataEvents, KeepTheOldRecordsWhenAHandlerTakesTheSetToAnotherRun) {
  const TestRun other;
  CreateRunTables(*other.Connection());
  events_->on_before_data_load = [&](IDataSet&, IParseEventArgs&) { set_.Load(other, 1); };
  EXPECT_EQ(ErrorOfSetData().Number(), 5);
  ExpectTheOldRecords();
  events_->on_before_data_load = nullptr;
  EXPECT_TRUE(SetData());
  EXPECT_EQ(run_.TableRows("TrainingSet").size(), 3u);
}

TEST_F(DataSetLiteSetDataEvents, MayCancelTheLoadAtARecord) {
  events_->on_record_parsed = [](IRecordParsedEventArgs& record) { record.put_Cancel(true); };
  EXPECT_THAT(ErrorOfSetData(), IsError(41019, "SetData", "Data load failed."));
  EXPECT_THAT(events_->lines, ElementsAre("BeforeDataLoad 3 x 2", "RecordParsed 0 of 2",
                                          "AfterDataLoad 1 x 2: Data load failed."));
  ExpectTheOldRecords();
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
  EXPECT_EQ(events_->lines.back(), "AfterDataLoad 1 x 2: Data load failed.");
  ExpectTheOldRecords();
}

TEST_F(DataSetLiteSetDataEvents, EndALoadThatTheDatabaseFails) {
  events_->on_record_parsed = [this](IRecordParsedEventArgs& record) {
    if (record.Current() == 0) run_.Log().FailAt(1, Error(13, "Execute", "disk is full"));
  };
  EXPECT_THAT(ErrorOfSetData(), IsError(13, "Execute", "disk is full"));
  EXPECT_EQ(events_->lines.back(), "AfterDataLoad 1 x 2: Data load failed.");
  ExpectTheOldRecords();
}

TEST_F(DataSetLiteSetDataEvents, TakeBackTheRecordsWhenTheExtraSetFails) {
  source_.State().extra_set = CellArray(2, 1);
  source_.State().extra_set_exists = true;
  run_.Log().before = [](std::string_view statement) {
    if (statement.starts_with("INSERT INTO TimeSeriesTestingSet")) throw Error(13, "Execute", "x");
  };
  EXPECT_EQ(ErrorOfSetData().Number(), 13);
  ExpectTheOldRecords();
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
