// The events of `Parse` and `Replace`: which, in which order, with what in them.
#include <gtest/gtest.h>

#include "datasetlite/lite_set.h"

namespace tslm5 {
namespace {

class DataSetLiteEvents : public DataSetLiteTest {
 protected:
  Ref<RecordingEvents> events_ = set_.Listen();
};

TEST_F(DataSetLiteEvents, OfALoadComeInOrder) {
  Parse("1,2\n3,4\n5,6");
  EXPECT_EQ(events_->lines, (Lines{
                                "BeforeDataLoad 3 x 2",
                                "RecordParsed 0 of 2",
                                "RecordParsed 1 of 2",
                                "RecordParsed 2 of 2",
                                "AfterDataLoad 3 x 2: Data load succeded.",
                            }));
}

TEST_F(DataSetLiteEvents, OfAReplacementBeginTwice) {
  Parse("1,2\n");
  events_->lines.clear();
  Replace("3,4,5\n6,7,8\n");
  EXPECT_EQ(events_->lines, (Lines{
                                "BeforeDataLoad 0 x 0",
                                "BeforeDataLoad 3 x 3",
                                "RecordParsed 0 of 3",
                                "RecordParsed 1 of 3",
                                "AfterDataLoad 2 x 3: Data changing succeded.",
                            }));
}

TEST_F(DataSetLiteEvents, CountTheEmptyRowAtTheEndBeforeTheLoadOnly) {
  for (const char* bytes : {"1 2\n3 4\n", "1 2\r\n3 4\r\n", "1 2\n3 4\n\n\n"}) {
    events_->lines.clear();
    Parse(bytes, {.separator = separator_code::kSpace});
    EXPECT_EQ(events_->lines.front(), "BeforeDataLoad 3 x 2") << bytes;
    EXPECT_EQ(events_->lines.back(), "AfterDataLoad 2 x 2: Data load succeded.") << bytes;
  }
  events_->lines.clear();
  Parse("1 2\n3 4", {.separator = separator_code::kSpace});
  EXPECT_EQ(events_->lines.front(), "BeforeDataLoad 2 x 2");
}

TEST_F(DataSetLiteEvents, DoNotCountTheLabelsRow) {
  Parse("a,b\n1,2\n3,4", {.has_labels = true});
  EXPECT_EQ(events_->lines.front(), "BeforeDataLoad 2 x 2");
  EXPECT_EQ(events_->lines.back(), "AfterDataLoad 2 x 2: Data load succeded.");
}

TEST_F(DataSetLiteEvents, NameTheFileAndItsKindOfParse) {
  Parse("1,2\n");
  const std::string source = folder_.PathOf("data.csv") + " 0";
  EXPECT_EQ(events_->sources, (Lines{source, source}));
  Replace("1,2\n");
  EXPECT_EQ(events_->sources, (Lines{source, source, source, source, source}));
}

TEST_F(DataSetLiteEvents, AreSentByTheSetItself) {
  Parse("1,2\n");
  Replace("1,2\n");
  EXPECT_EQ(events_->senders, std::vector<const void*>(5, set_.Object().get()));
}

TEST_F(DataSetLiteEvents, CarryOneArgumentObjectALoadAndOneForItsRecords) {
  Parse("1,2\n3,4\n");
  const std::vector<const void*>& arguments = events_->arguments;
  ASSERT_EQ(arguments.size(), 4U);
  EXPECT_EQ(arguments[0], arguments[3]);
  EXPECT_EQ(arguments[1], arguments[2]);
  EXPECT_NE(arguments[0], arguments[1]);
}

TEST_F(DataSetLiteEvents, KeepWhatAHandlerSetsForTheRecordsAfterIt) {
  std::vector<std::int32_t> errors;
  events_->on_record_parsed = [&](IRecordParsedEventArgs& arguments) {
    errors.push_back(arguments.Error());
    arguments.put_Error(7);
  };
  Parse("1,2\n3,4\n");
  EXPECT_EQ(errors, (std::vector<std::int32_t>{0, 7})) << "and an error set is no failure";
  EXPECT_EQ(set_->Rows(), 2);
}

TEST_F(DataSetLiteEvents, EndBeforeTheSetIsReadyButWhenItIsDirty) {
  std::vector<bool> flags;
  events_->on_after_data_load = [&](IDataSet& sender, IParseEventArgs&) {
    flags = {sender.IsReady(), Query<IIsDirty>(&sender)->IsDirty(), sender.Rows() == 2};
  };
  Parse("1,2\n3,4\n");
  EXPECT_EQ(flags, (std::vector<bool>{false, true, true}));
  EXPECT_TRUE(set_->IsReady());
}

TEST_F(DataSetLiteEvents, BeginBeforeTheOldRecordsGo) {
  Parse("1,2\n");
  Lines seen;
  events_->on_before_data_load = [&](IDataSet&, IParseEventArgs&) {
    seen.push_back(set_.Records().at(0));
  };
  Parse("3,4\n");
  Replace("5,6\n");
  EXPECT_EQ(seen, (Lines{"1,2", "3,4", "3,4"}));
}

TEST_F(DataSetLiteEvents, ReachEveryListenerInTheOrderOfAttachment) {
  std::string order;
  events_->on_record_parsed = [&](IRecordParsedEventArgs&) { order += "1"; };
  const Ref<RecordingEvents> second = set_.Listen();
  second->on_record_parsed = [&](IRecordParsedEventArgs&) { order += "2"; };
  Parse("1,2\n3,4\n");
  EXPECT_EQ(order, "1212");
  EXPECT_EQ(second->lines, events_->lines);
}

TEST_F(DataSetLiteEvents, ReachAListenerThatAttachesOnTheWay) {
  const Ref<RecordingEvents> late = MakeObject<RecordingEvents>();
  events_->on_before_data_load = [&](IDataSet&, IParseEventArgs&) { set_.Listen(late); };
  Parse("1,2\n");
  EXPECT_EQ(late->lines,
            (Lines{"RecordParsed 0 of 2", "AfterDataLoad 1 x 2: Data load succeded."}));
}

TEST_F(DataSetLiteEvents, EndWithTheDetachment) {
  const Ref<RecordingEvents> other = MakeObject<RecordingEvents>();
  const std::int32_t cookie = set_.Listen(other);
  set_.As<IConnectionPoint>()->Unadvise(cookie);
  Parse("1,2\n");
  EXPECT_TRUE(other->lines.empty());
}

TEST_F(DataSetLiteEvents, NeedAListenerOfTheRightKind) {
  const Ref<IConnectionPoint> point = set_.As<IConnectionPoint>();
  EXPECT_EQ(RaisedNumber([&] { point->Advise(nullptr); }), 13);
  EXPECT_EQ(RaisedNumber([&] { point->Advise(run_.Service().get()); }), 13);
  EXPECT_EQ(RaisedNumber([&] { point->Unadvise(99); }), 5);
}

TEST_F(DataSetLiteEvents, OfAMissingFileAreOneFailure) {
  EXPECT_EQ(RaisedNumber([&] { ParseFile(set_, folder_.PathOf("absent.csv")); }), 53);
  EXPECT_EQ(events_->lines, (Lines{"AfterDataLoad 0 x 0: Data load failed."}));
  EXPECT_EQ(events_->sources, (Lines{folder_.PathOf("absent.csv") + " 0"}));
}

TEST_F(DataSetLiteEvents, OfAFailureCountTheRowsOfBefore) {
  Parse("1,2\n3,4\n");
  events_->lines.clear();
  EXPECT_NE(RaisedNumber([&] { Parse("5,6\n7,it's\n8,9\n"); }), 0);
  EXPECT_EQ(events_->lines, (Lines{"BeforeDataLoad 4 x 2", "RecordParsed 0 of 2",
                                   "AfterDataLoad 2 x 2: Data load failed."}));
}

TEST_F(DataSetLiteEvents, OfAnEmptyFileNameAreNone) {
  const Error error = Raised([&] { ParseFile(set_, ""); });
  EXPECT_EQ(error.Number(), 41001);
  EXPECT_EQ(error.Source(), "");
  EXPECT_EQ(error.Description(), "");
  EXPECT_TRUE(events_->lines.empty());
}

TEST_F(DataSetLiteEvents, AreOfTheLoadAloneThroughTheOtherOperations) {
  Parse("1,2\n");
  events_->lines.clear();
  set_.Save(run_, 1);
  set_.Load(run_, 1);
  set_->SetLabels("a b");
  set_->Clear();
  set_.As<IDisposable>()->Dispose(true);
  EXPECT_TRUE(events_->lines.empty());
}

}  // namespace
}  // namespace tslm5
