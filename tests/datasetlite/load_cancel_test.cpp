// Handlers that cancel a load, at each point.
#include <gtest/gtest.h>

#include "datasetlite/lite_set.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

class DataSetLiteCancel : public DataSetLiteTest {
 protected:
  static void Cancel(IDataSet&, IParseEventArgs& arguments) { arguments.put_Cancel(true); }

  /// Makes the listener cancel at the record `number`, counted from 0.
  void CancelAtRecord(std::int32_t number) const {
    events_->on_record_parsed = [number](IRecordParsedEventArgs& arguments) {
      if (arguments.Current() == number) arguments.put_Cancel(true);
    };
  }

  Ref<RecordingEvents> events_ = set_.Listen();
};

TEST_F(DataSetLiteCancel, BeforeALoadKeepsTheRecordsYetEndsAsASuccess) {
  Parse("a,b\n1,2\n3,4\n", {.has_labels = true});
  const Lines before = set_.Everything();
  events_->lines.clear();
  events_->on_before_data_load = Cancel;
  Parse("7|8|9\n", {.separator = separator_code::kBar, .type = 2});
  EXPECT_EQ(events_->lines,
            (Lines{"BeforeDataLoad 2 x 3", "AfterDataLoad 2 x 3: Data load succeded."}));
  EXPECT_EQ(set_.Everything(), before) << "labels, type and separator are those of the records";
  EXPECT_TRUE(run_.ColumnNames("TestingSet").empty());
}

TEST_F(DataSetLiteCancel, BeforeALoadMakesTheSetDirtyAndReady) {
  events_->on_before_data_load = Cancel;
  Parse("1,2\n");
  EXPECT_EQ(events_->lines.back(), "AfterDataLoad 0 x 2: Data load succeded.");
  EXPECT_TRUE(set_.IsDirty());
  EXPECT_TRUE(set_->IsReady());
  EXPECT_EQ(set_->Rows(), 0);
  EXPECT_TRUE(run_.ColumnNames("TrainingSet").empty());
}

TEST_F(DataSetLiteCancel, AtTheFirstEventOfAReplacementEndsItWithoutAnother) {
  Parse("a,b\n1,2\n", {.has_labels = true});
  set_.SetDirty(false);
  const Lines before = set_.Everything();
  events_->lines.clear();
  events_->on_before_data_load = Cancel;
  Replace("7|8|9\n", {.separator = separator_code::kBar});
  EXPECT_EQ(events_->lines, (Lines{"BeforeDataLoad 0 x 0"}));
  EXPECT_EQ(set_.Everything(), before);
}

TEST_F(DataSetLiteCancel, AtTheFirstEventOfAReplacementComesBeforeTheFileIsLookedAt) {
  events_->on_before_data_load = Cancel;
  EXPECT_NO_THROW(set_->Replace("", separator_code::kComma, false));
  EXPECT_NO_THROW(set_->Replace(folder_.PathOf("absent.csv"), 7, false));
}

TEST_F(DataSetLiteCancel, AtTheSecondEventOfAReplacementKeepsTheRecords) {
  Parse("a,b\n1,2\n3,4\n", {.has_labels = true});
  const Lines before = set_.Everything();
  events_->lines.clear();
  events_->on_before_data_load = [](IDataSet&, IParseEventArgs& arguments) {
    if (arguments.Columns() > 0) arguments.put_Cancel(true);
  };
  Replace("7,8,9\n");
  EXPECT_EQ(events_->lines, (Lines{"BeforeDataLoad 0 x 0", "BeforeDataLoad 2 x 3",
                                   "AfterDataLoad 2 x 3: Data changing succeded."}));
  EXPECT_EQ(set_.Everything(), before);
}

TEST_F(DataSetLiteCancel, AtARecordGivesTheEarlierRecordsBack) {
  for (const std::int32_t at : {0, 1, 2}) {
    Parse("a,b\n1,2\n3,4\n", {.has_labels = true});
    set_.SetDirty(false);
    const Lines before = set_.Everything();
    events_->lines.clear();
    CancelAtRecord(at);
    EXPECT_NO_THROW(Parse("7|8|9\n10|11|12\n13|14|15", {.separator = separator_code::kBar}));
    EXPECT_EQ(events_->lines.size(), static_cast<std::size_t>(at) + 3) << "no record after it";
    EXPECT_EQ(events_->lines.back(), "AfterDataLoad 2 x 3: Data load failed.");
    EXPECT_EQ(set_.Everything(), before) << at;
    EXPECT_EQ(run_.TableRows("TrainingSet"), (Lines{"1|2|1", "3|4|2"})) << at;
    EXPECT_EQ(run_.ColumnNames("TrainingSetBackup"), "d0,d1,row") << at;
    events_->on_record_parsed = nullptr;
  }
}

TEST_F(DataSetLiteCancel, AtARecordGivesTheRecordsOfAnotherTypeBack) {
  ParseFile(LiteSet(run_, 2), File("1,2\n"), {.type = 2});
  Parse("3,4\n");
  const Lines before = set_.Everything();
  CancelAtRecord(0);
  Parse("7,8,9\n", {.type = 2});
  EXPECT_EQ(set_.Everything(), before);
  EXPECT_EQ(run_.TableRows("TestingSet"), (Lines{"1|2|1"}));
}

TEST_F(DataSetLiteCancel, AtARecordWithoutEarlierRecordsLeavesAnEmptyTable) {
  for (const std::int32_t at : {0, 1}) {
    const TestRun run;
    const LiteSet set(run, 1);
    set.Listen(events_);
    events_->lines.clear();
    CancelAtRecord(at);
    EXPECT_NO_THROW(ParseFile(set, File("a|b|c\n7|8|9\n10|11|12\n"),
                              {.separator = separator_code::kBar, .has_labels = true, .type = 2}));
    EXPECT_EQ(events_->lines.back(), "AfterDataLoad 0 x 3: Data load failed.");
    EXPECT_EQ(set->Rows(), 0);
    EXPECT_EQ(set->Columns(), 3);
    EXPECT_FALSE(set->IsReady());
    EXPECT_FALSE(set.IsDirty());
    EXPECT_EQ(set->DataSetType(), 2) << "type and labels are those of the empty table";
    EXPECT_EQ(set.Labels(), (Lines{"a", "b", "c"}));
    EXPECT_EQ(set->GetProperty("Separator"), "|");
    EXPECT_EQ(run.ColumnNames("TestingSet"), "d0,d1,d2,row");
    EXPECT_TRUE(run.TableRows("TestingSet").empty());
    EXPECT_FALSE(run.InTransaction());
  }
}

TEST_F(DataSetLiteCancel, AtARecordOfAReplacementSaysThatTheChangeFailed) {
  Parse("1,2\n3,4\n");
  events_->lines.clear();
  CancelAtRecord(0);
  EXPECT_NO_THROW(Replace("7,8,9\n"));
  EXPECT_EQ(events_->lines.back(), "AfterDataLoad 2 x 3: Data changing failed.");
  EXPECT_EQ(set_.Records(), (Lines{"1,2", "3,4"}));
}

TEST_F(DataSetLiteCancel, AfterALoadComesTooLate) {
  events_->on_after_data_load = Cancel;
  Parse("1,2\n");
  EXPECT_EQ(set_.Records(), (Lines{"1,2"}));
  EXPECT_TRUE(set_->IsReady());
}

TEST_F(DataSetLiteCancel, IsSeenByTheListenersBehind) {
  events_->on_before_data_load = Cancel;
  const Ref<RecordingEvents> second = set_.Listen();
  std::vector<bool> seen;
  second->on_before_data_load = [&](IDataSet&, IParseEventArgs& arguments) {
    seen.push_back(arguments.Cancel());
  };
  Parse("1,2\n");
  EXPECT_THAT(seen, ElementsAre(true));
}

TEST_F(DataSetLiteCancel, MayBeTakenBackByAListenerBehind) {
  events_->on_before_data_load = Cancel;
  const Ref<RecordingEvents> second = set_.Listen();
  second->on_before_data_load = [](IDataSet&, IParseEventArgs& arguments) {
    arguments.put_Cancel(false);
  };
  Parse("1,2\n");
  EXPECT_EQ(set_->Rows(), 1);
}

TEST_F(DataSetLiteCancel, LeavesTheNextLoadAsGoodAsAnyOther) {
  CancelAtRecord(1);
  Parse("7,8\n9,10\n");
  events_->on_record_parsed = nullptr;
  events_->lines.clear();
  Parse("1,2\n3,4");
  EXPECT_EQ(events_->lines,
            (Lines{"BeforeDataLoad 2 x 2", "RecordParsed 0 of 2", "RecordParsed 1 of 2",
                   "AfterDataLoad 2 x 2: Data load succeded."}));
  EXPECT_EQ(run_.TableRows("TrainingSet"), (Lines{"1|2|1", "3|4|2"}));
}

}  // namespace
}  // namespace tslm5
