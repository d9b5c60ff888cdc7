// Handlers that do what handlers should not: throw, detach themselves, let go of the set, or use it
// in the middle of a load.
#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>

#include "datasetlite/lite_set.h"

namespace tslm5 {
namespace {

class DataSetLiteHandlers : public DataSetLiteTest {
 protected:
  DataSetLiteHandlers() {
    Parse("a,b\n1,2\n3,4\n", {.has_labels = true});
    before_ = set_.Everything();
    events_ = set_.Listen();
  }

  /// Makes `action` the handler of the events of the given names.
  template <class Action>
  void On(std::string_view event, Action action) {
    if (event == "before") {
      events_->on_before_data_load = [action](IDataSet&, IParseEventArgs&) mutable { action(); };
    } else if (event == "record") {
      events_->on_record_parsed = [action](IRecordParsedEventArgs&) mutable { action(); };
    } else {
      events_->on_after_data_load = [action](IDataSet&, IParseEventArgs&) mutable { action(); };
    }
  }

  void Quieten() {
    events_->on_before_data_load = nullptr;
    events_->on_record_parsed = nullptr;
    events_->on_after_data_load = nullptr;
  }

  void ExpectUsable() {
    Quieten();
    EXPECT_FALSE(run_.InTransaction());
    Parse("50,60,70\n");
    EXPECT_EQ(set_.Records(), (Lines{"50,60,70"}));
    EXPECT_TRUE(set_->IsReady());
  }

  Lines before_;
  Ref<RecordingEvents> events_;
};

TEST_F(DataSetLiteHandlers, ThatThrowBeforeOrInALoadUndoIt) {
  for (const char* event : {"before", "record"}) {
    On(event, [] { throw Error(4711, "Handler", "enough"); });
    events_->lines.clear();
    const Error error = Raised([&] { Parse("7,8,9\n"); });
    EXPECT_EQ(error.Number(), 4711);
    EXPECT_EQ(error.Source(), "Handler");
    EXPECT_EQ(events_->lines.back(), "AfterDataLoad 2 x 3: Data load failed.");
    EXPECT_EQ(set_.Everything(), before_);
    Quieten();
  }
  ExpectUsable();
}

TEST_F(DataSetLiteHandlers, ThatThrowAnythingElseAreHeardAsAnError) {
  On("record", [] { throw std::runtime_error("no Error"); });
  const Error error = Raised([&] { Parse("7,8,9\n"); });
  EXPECT_EQ(error.Number(), 51);
  EXPECT_EQ(error.Description(), "no Error");
  EXPECT_EQ(events_->lines.back(), "AfterDataLoad 2 x 3: Data load failed.");
  EXPECT_EQ(set_.Everything(), before_);
  ExpectUsable();
}

TEST_F(DataSetLiteHandlers, ThatThrowAfterALoadDoNotUndoIt) {
  On("after", [] { throw Error(4711); });
  EXPECT_EQ(RaisedNumber([&] { Parse("7,8,9\n"); }), 4711);
  EXPECT_EQ(set_.Records(), (Lines{"7,8,9"}));
  ExpectUsable();
}

TEST_F(DataSetLiteHandlers, ThatThrowAfterAFailureAreHeardInItsPlace) {
  On("after", [] { throw Error(4711); });
  EXPECT_EQ(RaisedNumber([&] { Parse("7,8\n9\n"); }), 4711);
  EXPECT_EQ(set_.Everything(), before_);
  ExpectUsable();
}

TEST_F(DataSetLiteHandlers, ThatThrowAtTheFirstEventOfAReplacementEndIt) {
  On("before", [] { throw Error(4711); });
  EXPECT_EQ(RaisedNumber([&] { Replace("7,8,9\n"); }), 4711);
  EXPECT_EQ(events_->lines, (Lines{"BeforeDataLoad 0 x 0"}));
  EXPECT_EQ(set_.Everything(), before_);
}

TEST_F(DataSetLiteHandlers, MayDetachThemselvesAtAnyPoint) {
  for (const char* event : {"before", "record", "after"}) {
    const Ref<RecordingEvents> other = MakeObject<RecordingEvents>();
    const std::int32_t cookie = set_.Listen(other);
    On(event, [this, cookie, gone = false]() mutable {
      if (!gone) set_.As<IConnectionPoint>()->Unadvise(cookie);
      gone = true;
    });
    Parse("7,8\n9,10\n");
    EXPECT_EQ(set_->Rows(), 2) << event;
    EXPECT_FALSE(other->lines.empty()) << "one detached in an event still gets this one";
    EXPECT_TRUE(other->lines.back().starts_with(event == std::string_view("before") ? "Before"
                                                : event == std::string_view("record")
                                                    ? "RecordParsed 0"
                                                    : "After"))
        << other->lines.back();
    Quieten();
  }
}

TEST_F(DataSetLiteHandlers, MayLetGoOfTheSetAtAnyPoint) {
  for (const char* event : {"before", "record", "after"}) {
    for (const bool replaces : {false, true}) {
      for (const char* bytes :
           {"7,8\n9,10\n", "7,8\n9,it's\n"}) {  // a good file and one that fails
        LiteSet set(run_, 1);
        set.Listen(events_);
        IDataSet* const data_set = set.operator->();
        On(event, [&set] { set.Reset(); });
        const std::string path = File(bytes);
        try {
          if (replaces) {
            data_set->Replace(path, separator_code::kComma, false);
          } else {
            data_set->Parse(path, separator_code::kComma, false, 1, 1);
          }
        } catch (const Error& error) {
          EXPECT_STREQ(bytes, "7,8\n9,it's\n") << error.what();
        }
        EXPECT_FALSE(set.Object()) << event;
        Quieten();
      }
    }
  }
  EXPECT_EQ(run_.Select("SELECT d0 FROM TrainingSet"), (Lines{"7", "9"}));
  EXPECT_FALSE(run_.InTransaction());
}

TEST_F(DataSetLiteHandlers, MayLetGoOfTheSetAndCancel) {
  LiteSet set(run_, 1);
  set.Listen(events_);
  IDataSet* const data_set = set.operator->();
  events_->on_record_parsed = [&set](IRecordParsedEventArgs& arguments) {
    set.Reset();
    arguments.put_Cancel(true);
  };
  data_set->Parse(File("7,8\n"), separator_code::kComma, false, 1, 1);
  EXPECT_EQ(events_->lines.back(), "AfterDataLoad 0 x 2: Data load failed.");
  EXPECT_EQ(set_.Everything(), before_);
}

TEST_F(DataSetLiteHandlers, MayReadTheSetAtAnyPoint) {
  for (const char* event : {"before", "record", "after"}) {
    On(event, [this] { set_.Everything(); });
    Parse("a,b,c\n7,8,9\n10,11,12\n", {.has_labels = true});
    EXPECT_EQ(set_.Records(), (Lines{"7,8,9", "10,11,12"})) << event;
    EXPECT_EQ(set_.Labels(), (Lines{"a", "b", "c"})) << event;
    Quieten();
  }
}

TEST_F(DataSetLiteHandlers, MayCloseTheSetAtAnyPoint) {
  for (const char* event : {"before", "record"}) {
    On(event, [this] { set_.As<IDisposable>()->Dispose(true); });
    Parse("7,8,9\n");
    EXPECT_EQ(set_.Records(), (Lines{"7,8,9"})) << event;
    Quieten();
  }
  On("after", [this] { set_.As<IDisposable>()->Dispose(true); });
  Parse("7,8,9\n");
  EXPECT_EQ(set_->Rows(), 0);
  ExpectUsable();
}

TEST_F(DataSetLiteHandlers, ThatClearTheSetInALoadMakeItFail) {
  On("record", [this] { set_->Clear(); });
  EXPECT_NE(RaisedNumber([&] { Parse("7,8,9\n10,11,12\n"); }), 0);
  EXPECT_EQ(run_.TableRows("TrainingSet"), (Lines{"1|2|1", "3|4|2"}));
  ExpectUsable();
}

TEST_F(DataSetLiteHandlers, SeeTheSetAsBeforeWhenALoadFailed) {
  Lines seen;
  On("after", [&] { seen = set_.Everything(); });
  EXPECT_NE(
      RaisedNumber([&] { Parse("7|8\n9\n", {.separator = separator_code::kBar, .type = 2}); }), 0);
  EXPECT_EQ(seen, before_);
  seen.clear();
  events_->on_record_parsed = [](IRecordParsedEventArgs& arguments) { arguments.put_Cancel(true); };
  Parse("7|8\n", {.separator = separator_code::kBar});
  EXPECT_EQ(seen, before_);
}

TEST_F(DataSetLiteHandlers, MayLoadAnotherFileWhenALoadFailed) {
  const std::string good = folder_.Write("good.csv", "p|q|r\n7|8|9\n");
  On("after", [this, good, once = true]() mutable {
    if (std::exchange(once, false)) {
      ParseFile(set_, good, {.separator = separator_code::kBar, .has_labels = true, .type = 2});
    }
  });
  EXPECT_NE(RaisedNumber([&] { Parse("1,2\n3\n"); }), 0) << "the first failure is still told";
  EXPECT_EQ(set_.Records(), (Lines{"7,8,9"}));
  EXPECT_EQ(set_.Labels(), (Lines{"p", "q", "r"}));
  EXPECT_EQ(set_->DataSetType(), 2);
  EXPECT_EQ(set_->GetProperty("Separator"), "|");
}

TEST_F(DataSetLiteHandlers, CannotSendAReplacementToAnotherFile) {
  const std::string other = folder_.Write("other.csv", "70,80\n");
  events_->on_before_data_load = [&](IDataSet&, IParseEventArgs& arguments) {
    arguments.put_Source(other);
  };
  Replace("7,8\n");
  EXPECT_EQ(set_.Records(), (Lines{"7,8"}));
}

}  // namespace
}  // namespace tslm5
