#include <gmock/gmock.h>

#include "contracts/event_args_objects.h"
#include "inmemory/memory_set.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TextParsingEvents : public testing::Test {
 protected:
  MemorySet set_;
  Ref<RecordingMemoryEvents> events_ = set_.Listen();
};

TEST_F(TextParsingEvents, TellOfTheLoadAndOfEveryRecord) {
  set_.Parse("1,2,3\n4,5,6\n\n");
  EXPECT_THAT(events_->lines,
              ElementsAre("BeforeDataLoad 2 x 3", "RecordParsed 0 of 3", "RecordParsed 1 of 3",
                          "AfterDataLoad 2 x 3: Data load succeded."));
  const void* const self = set_.Object().get();
  EXPECT_THAT(events_->senders, ElementsAre(self, self));
}

TEST_F(TextParsingEvents, CarryTheCallersArgument) {
  const Ref<IParseEventArgs> arguments = MakeParseEventArgs();
  arguments->put_Source("mine");
  arguments->put_ParseType(3);
  set_.Parse("1,2", {}, arguments.get());
  EXPECT_THAT(events_->sources, ElementsAre("mine 3", "mine 3"));
  EXPECT_EQ(events_->arguments.front(), arguments.get());
  EXPECT_EQ(events_->arguments.back(), arguments.get());
  EXPECT_EQ(arguments->Message(), "Data load succeded.");
  EXPECT_EQ(arguments->Rows(), 1);
  EXPECT_EQ(arguments->Columns(), 2);
}

TEST_F(TextParsingEvents, CarryOneOfTheirOwnWithoutIt) {
  set_.Parse("1,2");
  EXPECT_THAT(events_->sources, ElementsAre(" 0", " 0"));
  EXPECT_EQ(events_->arguments.front(), events_->arguments.back());
}

TEST_F(TextParsingEvents, ShareOneArgumentAmongTheRecords) {
  set_.Parse("1,2\n3,4\n5,6");
  ASSERT_EQ(events_->arguments.size(), 5u);
  EXPECT_EQ(events_->arguments[1], events_->arguments[2]);
  EXPECT_EQ(events_->arguments[1], events_->arguments[3]);
}

TEST_F(TextParsingEvents, TellRecordsOfTheColumnsThatAHandlerLeft) {
  events_->on_before_data_load = [](IDataSet&, IParseEventArgs& arguments) {
    arguments.put_Columns(7);
  };
  set_.Parse("1,2");
  EXPECT_EQ(events_->lines[1], "RecordParsed 0 of 7");
}

TEST_F(TextParsingEvents, FindTheSetReadyOnlyAfterTheLast) {
  set_.Parse("1,2");
  bool ready = true;
  bool dirty = false;
  events_->on_after_data_load = [&](IDataSet& sender, IParseEventArgs&) {
    ready = sender.IsReady();
    dirty = Query<IIsDirty>(&sender)->IsDirty();
  };
  set_.Parse("3,4");
  EXPECT_FALSE(ready);
  EXPECT_TRUE(dirty);
  EXPECT_TRUE(set_->IsReady());
}

TEST_F(TextParsingEvents, FindTheOldRecordsGone) {
  set_.Parse("1,2\n3,4");
  std::int32_t rows = -1;
  events_->on_before_data_load = [&rows](IDataSet& sender, IParseEventArgs&) {
    rows = sender.Rows();
    Query<IIsDirty>(&sender)->put_IsDirty(false);
  };
  set_.Parse("5,6");
  EXPECT_EQ(rows, 0);
  EXPECT_TRUE(set_.IsDirty()) << "whatever a handler says";
}

TEST_F(TextParsingEvents, FindTheRecordsSoFar) {
  Lines seen;
  events_->on_record_parsed = [&](IRecordParsedEventArgs& record) {
    seen.push_back(std::to_string(set_->Rows()) + ": " + set_->GetItemString(1, record.Current()));
  };
  set_.Parse("1,2\n3,4");
  EXPECT_THAT(seen, ElementsAre("2: 2", "2: 4"));
}

TEST_F(TextParsingEvents, MayCancelTheLoadBeforehand) {
  set_->SetProperty("5", "DelayTime");
  events_->on_before_data_load = [](IDataSet&, IParseEventArgs& arguments) {
    arguments.put_Cancel(true);
  };
  set_.Parse("1,2\n3,4");
  EXPECT_THAT(events_->lines, ElementsAre("BeforeDataLoad 2 x 2"));
  EXPECT_FALSE(set_->IsReady());
  EXPECT_EQ(set_->Rows(), 0);
  EXPECT_EQ(set_->Columns(), 2) << "the column count stays";
  EXPECT_EQ(set_->DataSetType(), 1000);
  EXPECT_FALSE(set_.IsDirty());
  EXPECT_EQ(RaisedNumber([&] { set_->GetProperty("DelayTime"); }), 5);
}

TEST_F(TextParsingEvents, MayCancelTheLoadAtARecord) {
  events_->on_record_parsed = [](IRecordParsedEventArgs& record) {
    record.put_Cancel(record.Current() == 1);
  };
  set_.Parse("1,2\n3,4\n5,6");
  EXPECT_THAT(events_->lines, ElementsAre("BeforeDataLoad 3 x 2", "RecordParsed 0 of 2",
                                          "RecordParsed 1 of 2", "DataLoadCancelled 3 x 2"));
  EXPECT_EQ(events_->senders.back(), set_.Object().get());
  EXPECT_EQ(events_->arguments.back(), events_->arguments.front());
  EXPECT_EQ(set_->Rows(), 0);
  EXPECT_EQ(set_->DataSetType(), 1000);
  EXPECT_FALSE(set_->IsReady());
}

TEST_F(TextParsingEvents, FindTheSetEmptiedWhenItWasCancelled) {
  events_->on_record_parsed = [](IRecordParsedEventArgs& record) { record.put_Cancel(true); };
  std::int32_t type = 0;
  events_->on_data_load_cancelled = [&type](IDataSet& sender, IParseEventArgs&) {
    type = sender.DataSetType();
  };
  set_.Parse("1,2");
  EXPECT_EQ(type, 1000);
}

TEST_F(TextParsingEvents, MayReportAnErrorOfARecord) {
  for (const bool cancel : {false, true}) {
    events_->lines.clear();
    events_->on_record_parsed = [cancel](IRecordParsedEventArgs& record) {
      record.put_Error(7);
      record.put_Cancel(cancel);
    };
    EXPECT_THAT(set_.ErrorOf("1,2\n3,4"), IsError(7));
    EXPECT_THAT(events_->lines, ElementsAre("BeforeDataLoad 2 x 2", "RecordParsed 0 of 2"));
    EXPECT_EQ(set_->DataSetType(), 1000);
    EXPECT_EQ(set_->Rows(), 0);
  }
}

TEST_F(TextParsingEvents, IgnoreAnErrorBelowOne) {
  events_->on_record_parsed = [](IRecordParsedEventArgs& record) { record.put_Error(-7); };
  set_.Parse("1,2\n3,4");
  EXPECT_TRUE(set_->IsReady());
  events_->on_record_parsed = [](IRecordParsedEventArgs& record) { record.put_Cancel(true); };
  set_.Parse("1,2\n3,4");
  EXPECT_EQ(events_->lines.back(), "DataLoadCancelled 2 x 2");
}

TEST_F(TextParsingEvents, LetAHandlerDropTheSet) {
  events_->on_before_data_load = [this](IDataSet&, IParseEventArgs&) { set_.Reset(); };
  set_.Parse("1,2\n3,4");
  EXPECT_EQ(events_->lines.back(), "AfterDataLoad 2 x 2: Data load succeded.");
}

TEST_F(TextParsingEvents, LetAHandlerEmptyTheSet) {
  events_->on_record_parsed = [this](IRecordParsedEventArgs&) { set_->Clear(); };
  set_.Parse("1,2\n3,4\n5,6");
  EXPECT_EQ(set_->Rows(), 0);
  EXPECT_FALSE(set_->IsReady());
  EXPECT_EQ(events_->lines.back(), "RecordParsed 0 of 2");
}

TEST_F(TextParsingEvents, LetAHandlerParseAnotherText) {
  bool is_first = true;
  events_->on_record_parsed = [&](IRecordParsedEventArgs&) {
    if (std::exchange(is_first, false)) set_.Parse("7,8,9");
  };
  set_.Parse("1,2\n3,4");
  EXPECT_THAT(set_.Records(), ElementsAre("7,8,9"));
  EXPECT_TRUE(set_->IsReady());
}

TEST_F(TextParsingEvents, PassOnWhatAHandlerRaises) {
  events_->on_record_parsed = [](IRecordParsedEventArgs&) { throw Error(77, "handler", "own"); };
  EXPECT_THAT(set_.ErrorOf("1,2\n3,4"), IsError(77, "handler", "own"));
  EXPECT_FALSE(set_->IsReady());
  EXPECT_EQ(set_->Rows(), 0);
}

TEST_F(TextParsingEvents, ThatThrowLeaveTheRecordsOfBefore) {
  set_.Parse("7,8\n9,10");
  const Lines before = set_.Everything();
  events_->on_record_parsed = [this](IRecordParsedEventArgs& record) {
    if (record.Current() == 0) return;
    set_->SetProperty("5", "DelayTime");
    throw Error(77, "handler", "own");
  };
  EXPECT_THAT(set_.ErrorOf("1,2\n3,4"), IsError(77, "handler", "own"));
  EXPECT_EQ(set_.Everything(), before);
}

TEST_F(TextParsingEvents, ThatThrowLeaveWhatAHandlerHasParsed) {
  set_.Parse("7,8\n9,10");
  bool is_first = true;
  events_->on_record_parsed = [&](IRecordParsedEventArgs&) {
    if (!std::exchange(is_first, false)) return;
    set_.Parse("4,5,6");
    throw Error(77, "handler", "own");
  };
  EXPECT_THAT(set_.ErrorOf("1,2\n3,4"), IsError(77, "handler", "own"));
  EXPECT_THAT(set_.Records(), ElementsAre("4,5,6"));
  EXPECT_TRUE(set_->IsReady());
}

TEST_F(TextParsingEvents, ReachAListenerThatCameDuringTheLoad) {
  const Ref<RecordingMemoryEvents> late = MakeObject<RecordingMemoryEvents>();
  const MemorySet set;
  const Ref<RecordingMemoryEvents> first = MakeObject<RecordingMemoryEvents>();
  const std::int32_t cookie = set.As<IConnectionPoint>()->Advise(first.get());
  first->on_before_data_load = [&](IDataSet&, IParseEventArgs&) {
    set.As<IConnectionPoint>()->Unadvise(cookie);
    set.As<IConnectionPoint>()->Advise(late.get());
  };
  set.Parse("1,2");
  EXPECT_THAT(first->lines, ElementsAre("BeforeDataLoad 1 x 2"));
  EXPECT_THAT(late->lines,
              ElementsAre("RecordParsed 0 of 2", "AfterDataLoad 1 x 2: Data load succeded."));
}

}  // namespace
}  // namespace tslm5
