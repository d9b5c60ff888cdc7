// Every event of every operation of an `InMemorySet`, through both of its set interfaces, and a
// handler there that throws, cancels, detaches itself, lets go of the set, or calls the set.
#include <gmock/gmock.h>

#include <stdexcept>

#include "boundary/boundary_case.h"
#include "contracts/event_args_objects.h"
#include "inmemory/nominal_set.h"
#include "tslm5/contracts/nominal_data_set.h"

namespace tslm5 {
namespace {

using testing::AnyOf;

const Lines kOld = {"1,2", "3,4"};
const Lines kNew = {"7,8", "9,10"};
const Lines kCoded = {"1,0", "2,1"};
const Lines kOfCallbacks = {"50,60", "70,80"};
const Lines kEmpty = {};

class MemoryBoundary : public BoundaryCase<HookedMemoryEvents> {
 protected:
  void Restore() override {
    const MemorySet set;
    set.ParseFile(old_file_);
    Listen(set.Object());
  }

  Lines Kept() override { return set_ ? MemorySet(set_).Records() : kEmpty; }

  static Operation Load(const char* name, std::function<void(IUnknown& set)> run) {
    return {name,
            [run = std::move(run)](IUnknown& set) {
              run(set);
              return "done";
            },
            "done",
            kNew,
            {"BeforeDataLoad", "RecordParsed", "RecordParsed", "AfterDataLoad"}};
  }

  std::vector<Operation> Operations() override {
    const auto parse = [](const std::string& path) {
      return [path](IUnknown& set) {
        Face<IDataSet>(set).Parse(path, kComma, false, kTraining, kRows);
      };
    };
    const auto parse_text = [](IUnknown& set) {
      std::string text = "7,8\n9,10\n";
      const Ref<IParseEventArgs> arguments = MakeParseEventArgs();
      Face<IDataSet>(set).ParseString(text, kComma, false, kTraining, kRows, arguments.get());
    };
    const auto parse_words = [words = words_file_](IUnknown& set) {
      const Ref<IParseEventArgs> arguments = MakeParseEventArgs();
      Face<INominalDataSet>(set).Parse(words, kComma, false, kTraining, kRows,
                                       problem_category::kTimeSeries, arguments.get());
    };
    const auto parse_word_text = [](IUnknown& set) {
      std::string text = "red,no\nblue,yes\n";
      const Ref<IParseEventArgs> arguments = MakeParseEventArgs();
      Face<INominalDataSet>(set).ParseString(text, kComma, false, kTraining, kRows,
                                             problem_category::kTimeSeries, arguments.get());
    };
    std::vector<Operation> all = {Check(new_file_, "", kOld),
                                  Check(bad_file_, refusal_, kOld),
                                  Load("parse", parse(new_file_)),
                                  Load("parse of a bad file", parse(bad_file_)),
                                  Load("parse of a text", parse_text),
                                  Load("parse of words", parse_words),
                                  Load("parse of a text of words", parse_word_text)};
    all[3].outcome = "41011";
    all[3].kept = kOld;
    all[3].events = {"BeforeDataLoad", "RecordParsed"};
    all[5].kept = kCoded;
    all[6].kept = kCoded;
    return all;
  }

  /// A set can be parsed again, through both interfaces.
  void ExpectSound(const std::string& what) {
    const NominalSet set(set_);
    EXPECT_EQ(RaisedNumber([&] { set.ParseFile(words_file_); }), 0) << what;
    EXPECT_EQ(set.Texts(), (Lines{"red,no", "blue,yes"})) << what;
    EXPECT_EQ(RaisedNumber([&] { set->Parse(scene_.file, kComma, false, kTraining, kRows); }), 0)
        << what;
    EXPECT_EQ(set.Records(), kOfCallbacks) << what;
    EXPECT_TRUE(set->IsReady()) << what;
  }

  const std::string words_file_ = folder_.Write("words.csv", "red,no\nblue,yes\n");
};

TEST_F(MemoryBoundary, WhatAHandlerThrowsEndsTheOperationAndLeavesTheSet) {
  AtEveryEvent([this](const Operation& operation, std::size_t place, const std::string& event) {
    for (const bool is_error : {true, false}) {
      Restore();
      const std::string outcome = Try(operation, place, [is_error](const auto&) {
        if (is_error) throw Error(4711, "Handler", "enough");
        throw std::runtime_error("no Error");
      });
      const std::string what = What(operation, place, "throw");
      if (event == "AfterDataCheck" && operation.outcome != "valid") {
        EXPECT_EQ(outcome, operation.outcome) << what;
      } else if (IsOfTheCheck(event)) {
        EXPECT_EQ(outcome, is_error ? "invalid: enough" : "invalid: no Error") << what;
      } else {
        EXPECT_EQ(outcome, is_error ? "4711" : "51") << what;
      }
      EXPECT_EQ(Kept(), kOld) << what;
      ExpectSound(what);
    }
  });
}

TEST_F(MemoryBoundary, ACancelEndsTheOperationAndEmptiesTheSet) {
  AtEveryEvent([this](const Operation& operation, std::size_t place, const std::string& event) {
    const std::string outcome = Try(operation, place, [](const auto& cancel) { cancel(); });
    const std::string what = What(operation, place, "cancel");
    if (event == "BeforeDataCheck") {
      EXPECT_EQ(outcome, "invalid: ") << what;
    } else if (event == "LoadFeedback") {
      EXPECT_EQ(outcome, "valid") << what;
    } else if (event == "BeforeDataLoad" || event == "RecordParsed") {
      EXPECT_EQ(outcome, "done") << what;
      EXPECT_EQ(Kept(), kEmpty) << what;
      EXPECT_EQ(events_->names.back(), event == "RecordParsed" ? "DataLoadCancelled" : event)
          << what;
    } else {
      EXPECT_EQ(outcome, operation.outcome) << what;
      EXPECT_EQ(Kept(), operation.kept) << what;
    }
    ExpectSound(what);
  });
}

TEST_F(MemoryBoundary, AListenerMayDetachItselfAndHearsNoMore) {
  AtEveryEvent([this](const Operation& operation, std::size_t place, const std::string&) {
    const std::string outcome = Try(
        operation, place, [this](const auto&) { set_.As<IConnectionPoint>()->Unadvise(cookie_); });
    const std::string what = What(operation, place, "detach");
    EXPECT_EQ(outcome, operation.outcome) << what;
    EXPECT_EQ(events_->names.size(), place + 1) << what;
    EXPECT_EQ(Kept(), operation.kept) << what;
    ExpectSound(what);
  });
}

TEST_F(MemoryBoundary, AHandlerMayLetGoOfTheSet) {
  AtEveryEvent([this](const Operation& operation, std::size_t place, const std::string&) {
    const std::string what = What(operation, place, "release");
    const std::string outcome = Try(operation, place, [&](const auto&) {
      const std::int64_t living = LiveObjects::Count();
      set_.Reset();
      EXPECT_EQ(LiveObjects::Count(), living) << what << ": the operation holds it to its end";
    });
    EXPECT_EQ(outcome, operation.outcome) << what;
    EXPECT_EQ(events_->names.size(), operation.events.size()) << what;
  });
}

TEST_F(MemoryBoundary, AHandlerMayCallWhatOnlyLooks) {
  AtEveryEvent([this](const Operation& operation, std::size_t place, const std::string&) {
    const std::string outcome = Try(operation, place, [this](const auto&) {
      for (const Callback& callback : Callbacks()) {
        if (!callback.changes) Call(callback);
      }
    });
    const std::string what = What(operation, place, "look");
    EXPECT_EQ(outcome, operation.outcome) << what;
    EXPECT_EQ(Kept(), operation.kept) << what;
    ExpectSound(what);
  });
}

TEST_F(MemoryBoundary, AHandlerThatChangesTheSetLeavesOneParseWhole) {
  AtEveryEvent([this](const Operation& operation, std::size_t place, const std::string&) {
    for (const Callback& callback : Callbacks()) {
      if (!callback.changes) continue;
      Restore();
      Try(operation, place, [&](const auto&) { Call(callback); });
      const std::string what = What(operation, place, callback.name);
      EXPECT_THAT(Kept(), AnyOf(kOld, kNew, kCoded, kOfCallbacks, kEmpty)) << what;
      ExpectSound(what);
    }
  });
}

}  // namespace
}  // namespace tslm5
