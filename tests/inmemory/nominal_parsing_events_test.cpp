#include <gmock/gmock.h>

#include "contracts/event_args_objects.h"
#include "inmemory/nominal_set.h"
#include "support/temporary_folder.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NominalParsingEvents : public testing::Test {
 protected:
  NominalSet set_;
  Ref<RecordingMemoryEvents> events_ = set_.Listen();
};

TEST_F(NominalParsingEvents, TellOfTheLoadAndOfEveryRecord) {
  set_.Parse("x,y,z\n?,1,no\nb,2,yes\n\n", {.has_labels = true});
  EXPECT_THAT(events_->lines,
              ElementsAre("BeforeDataLoad 2 x 3", "RecordParsed 0 of 3", "RecordParsed 1 of 3",
                          "AfterDataLoad 2 x 3: Data load succeded."));
  const void* const self = set_.Object().get();
  EXPECT_THAT(events_->senders, ElementsAre(self, self));
}

TEST_F(NominalParsingEvents, OfAFileCarryTheCallersArgumentOrItsPath) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("data.csv", "a,1\r\nb,2\r\n");
  const Ref<IParseEventArgs> arguments = MakeParseEventArgs();
  arguments->put_Source("mine");
  arguments->put_ParseType(3);
  set_.ParseFile(path, {}, arguments.get());
  EXPECT_THAT(events_->sources, ElementsAre("mine 3", "mine 3"));
  EXPECT_EQ(arguments->Message(), "Data load succeded.");
  EXPECT_THAT(set_.Texts(), ElementsAre("a,#1", "b,#2"));
  events_->sources.clear();
  set_.ParseFile(path);
  EXPECT_THAT(events_->sources, ElementsAre(path + " 0", path + " 0"));
}

TEST_F(NominalParsingEvents, FindEverythingDoneAtTheLast) {
  Lines texts;
  std::string missing;
  events_->on_after_data_load = [&](IDataSet&, IParseEventArgs&) {
    texts = set_.Texts();
    missing = set_.Missing();
    EXPECT_EQ(set_->GetItem(0, 1), 2);
    EXPECT_FALSE(set_->IsReady());
  };
  set_.Parse("?,1\nb,2");
  EXPECT_THAT(texts, ElementsAre("?,#1", "b,#2"));
  EXPECT_EQ(missing, "1");
}

TEST_F(NominalParsingEvents, FindNoNumberForAWordThatHasNoCodeYet) {
  set_.Parse("?,7\na,8");
  Lines seen;
  events_->on_record_parsed = [&](IRecordParsedEventArgs& record) {
    EXPECT_TRUE(std::isnan(set_->GetItem(0, record.Current())));
    EXPECT_TRUE(std::isnan(set_.Nominal().GetItem(0, record.Current()).ToDouble()));
    EXPECT_EQ(set_.Missing(), "0");
    seen.push_back(set_->GetItemString(1, record.Current()));
  };
  set_.Parse("a,1\nb,2");
  EXPECT_THAT(seen, ElementsAre("1", "2"));
}

TEST_F(NominalParsingEvents, MayCancelTheLoadBeforehand) {
  set_.Parse("?,7\na,8");
  events_->lines.clear();
  events_->on_before_data_load = [](IDataSet&, IParseEventArgs& arguments) {
    arguments.put_Cancel(true);
  };
  set_.Parse("a,1\nb,2", {.category = 4});
  EXPECT_THAT(events_->lines, ElementsAre("BeforeDataLoad 2 x 2"));
  EXPECT_FALSE(set_.Nominal().IsReady());
  EXPECT_EQ(set_.Nominal().Rows(), 0);
  EXPECT_EQ(set_->DataSetType(), 1000);
  EXPECT_EQ(set_->ProblemCategory(), 4) << "the problem category stays";
  EXPECT_EQ(set_.Missing(), "0");
}

TEST_F(NominalParsingEvents, MayCancelTheLoadAtARecord) {
  events_->on_record_parsed = [](IRecordParsedEventArgs& record) {
    record.put_Cancel(record.Current() == 1);
  };
  set_.Parse("?,1\nb,2\nc,3");
  EXPECT_THAT(events_->lines, ElementsAre("BeforeDataLoad 3 x 2", "RecordParsed 0 of 2",
                                          "RecordParsed 1 of 2", "DataLoadCancelled 3 x 2"));
  EXPECT_EQ(set_.Nominal().Rows(), 0);
  EXPECT_EQ(set_->DataSetType(), 1000);
  EXPECT_EQ(set_.State().data, nullptr);
  EXPECT_EQ(set_.Missing(), "0");
  events_->on_record_parsed = nullptr;
  set_.Parse("?,1\nb,2\nc,3");
  EXPECT_THAT(set_.Texts(), ElementsAre("?,#1", "b,#2", "c,#3"));
}

TEST_F(NominalParsingEvents, MayCancelAtTheLastRecord) {
  events_->on_record_parsed = [](IRecordParsedEventArgs& record) {
    record.put_Cancel(record.Current() == 1);
  };
  set_.Parse("a,1\nb,2");
  EXPECT_EQ(events_->lines.back(), "DataLoadCancelled 2 x 2");
  EXPECT_EQ(set_.State().data, nullptr);
}

TEST_F(NominalParsingEvents, MayReportAnErrorOfARecord) {
  events_->on_record_parsed = [](IRecordParsedEventArgs& record) { record.put_Error(7); };
  EXPECT_THAT(set_.ErrorOf("a,1\nb,2"), IsError(7));
  EXPECT_EQ(set_->DataSetType(), 1000);
}

TEST_F(NominalParsingEvents, EndBeforeAnErrorOfTheWholeText) {
  EXPECT_EQ(set_.ErrorOf("a,1\nb,1", {.category = 0}).Number(), 41026);
  EXPECT_THAT(events_->lines,
              ElementsAre("BeforeDataLoad 2 x 2", "RecordParsed 0 of 2", "RecordParsed 1 of 2"));
  events_->lines.clear();
  EXPECT_EQ(set_.ErrorOf("a,1\nb,?").Number(), 41025);
  EXPECT_THAT(events_->lines, ElementsAre("BeforeDataLoad 2 x 2", "RecordParsed 0 of 2"));
  events_->lines.clear();
  EXPECT_EQ(set_.ErrorOf("a,1\nb 2").Number(), 41024);
  EXPECT_THAT(events_->lines, IsEmpty());
}

TEST_F(NominalParsingEvents, LetAHandlerEmptyTheSet) {
  events_->on_record_parsed = [this](IRecordParsedEventArgs&) { set_->Clear(); };
  set_.Parse("a,1\nb,2");
  EXPECT_EQ(set_.Nominal().Rows(), 0);
  EXPECT_EQ(set_.State().data, nullptr);
  EXPECT_EQ(events_->lines.back(), "RecordParsed 0 of 2");
}

TEST_F(NominalParsingEvents, LetAHandlerParseAnotherText) {
  bool is_first = true;
  events_->on_record_parsed = [&](IRecordParsedEventArgs&) {
    if (std::exchange(is_first, false)) set_.Parse("?,8,9\nx,5,6");
  };
  set_.Parse("a,1\nb,2");
  EXPECT_THAT(set_.Texts(), ElementsAre("?,#8,#9", "x,#5,#6"));
  EXPECT_EQ(set_.Missing(), "1");
}

TEST_F(NominalParsingEvents, KeepNoTextsOfAParseBeforeTheRecords) {
  bool is_first = true;
  events_->on_before_data_load = [&](IDataSet&, IParseEventArgs&) {
    if (std::exchange(is_first, false)) set_.Parse("?,8\nx,5");
  };
  set_->put_ProblemCategory(2);
  std::string text = "1,2\n3,4";
  set_->ParseString(text, 2, false, 1, 1, nullptr);
  EXPECT_THAT(set_.Texts(), ElementsAre("#1,#2", "#3,#4"));
  EXPECT_EQ(set_.Missing(), "0");
}

TEST_F(NominalParsingEvents, LetAHandlerDropTheSet) {
  NominalSet* set = new NominalSet;
  const Ref<RecordingMemoryEvents> events = set->Listen();
  events->on_before_data_load = [&set](IDataSet&, IParseEventArgs&) {
    delete std::exchange(set, nullptr);
  };
  INominalDataSet& nominal = set->Nominal();
  std::string text = "a,1\nb,2";
  nominal.ParseString(text, 2, false, 1, 1, 2, nullptr);
  EXPECT_EQ(set, nullptr);
  EXPECT_EQ(events->lines.back(), "AfterDataLoad 2 x 2: Data load succeded.");
}

}  // namespace
}  // namespace tslm5
