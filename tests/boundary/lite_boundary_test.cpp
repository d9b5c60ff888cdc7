// Every event of every operation of a `DataSetLite`, and a handler there that throws, cancels,
// detaches itself, lets go of the set, or calls the set.
#include <gmock/gmock.h>

#include <stdexcept>

#include "boundary/boundary_case.h"
#include "datasetlite/lite_set.h"

namespace tslm5 {
namespace {

using testing::AnyOf;

const Lines kOld = {"1|2|1", "3|4|2"};
const Lines kNew = {"7|8|1", "9|10|2"};
const Lines kOfCallbacks = {"50|60|1", "70|80|2"};
const Lines kNoTable = {"no table"};

class LiteBoundary : public BoundaryCase<HookedEvents> {
 protected:
  LiteBoundary() {
    CreateRunTables(*run_.Connection());
    scene_.run = Variant(run_.Service());
  }

  void Restore() override {
    const LiteSet set(run_, kTraining);
    set->Parse(old_file_, kComma, false, kTraining, kRows);
    Listen(set.Object());
  }

  Lines Kept() override {
    return run_.Connection()->TableExists("TrainingSet") ? run_.TableRows("TrainingSet") : kNoTable;
  }

  static Operation Load(const char* name, std::function<std::string(IDataSet& set)> run) {
    return {name,
            [run = std::move(run)](IUnknown& set) { return run(Face<IDataSet>(set)); },
            "done",
            kNew,
            {"BeforeDataLoad", "RecordParsed", "RecordParsed", "AfterDataLoad"}};
  }

  std::vector<Operation> Operations() override {
    const auto parse = [](const std::string& path) {
      return [path](IDataSet& set) {
        set.Parse(path, kComma, false, kTraining, kRows);
        return "done";
      };
    };
    const auto replace = [path = new_file_](IDataSet& set) {
      set.Replace(path, kComma, false);
      return "done";
    };
    const auto set_data = [source = new_source_.Object().get()](IDataSet& set) {
      return set.SetData(source, kTraining) ? "done" : "false";
    };
    std::vector<Operation> all = {
        Check(new_file_, "", kOld),      Check(bad_file_, refusal_, kOld),
        Load("parse", parse(new_file_)), Load("parse of a bad file", parse(bad_file_)),
        Load("replace", replace),        Load("set data", set_data)};
    all[3].outcome = "41011";
    all[3].kept = kOld;
    all[3].events = {"BeforeDataLoad", "RecordParsed", "AfterDataLoad"};
    all[4].events.insert(all[4].events.begin(), "BeforeDataLoad");
    return all;
  }

  /// No transaction is left, what the set serves is what is stored, and a set can be loaded.
  void ExpectSound(const std::string& what) {
    EXPECT_FALSE(run_.InTransaction()) << what;
    LiteSet set = set_ ? LiteSet(set_) : LiteSet(run_, kTraining);
    if (!set.Records().empty() && set->DataSetType() == kTraining) {
      EXPECT_EQ(set->GetItem(0, 0), std::stod(Kept()[0])) << what;
    }
    EXPECT_EQ(RaisedNumber([&] { set->Parse(scene_.file, kComma, false, kTraining, kRows); }), 0)
        << what;
    EXPECT_EQ(set.Records(), (Lines{"50,60", "70,80"})) << what;
    EXPECT_EQ(Kept(), kOfCallbacks) << what;
  }

  TestRun run_;
  MemorySet new_source_{"7,8\n9,10"};
};

TEST_F(LiteBoundary, WhatAHandlerThrowsEndsTheOperation) {
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
      EXPECT_EQ(Kept(), event == "AfterDataLoad" ? operation.kept : kOld) << what;
      ExpectSound(what);
    }
  });
}

TEST_F(LiteBoundary, ACancelEndsTheOperationAndTakesItsRecordsBack) {
  AtEveryEvent([this](const Operation& operation, std::size_t place, const std::string& event) {
    const std::string outcome = Try(operation, place, [](const auto& cancel) { cancel(); });
    const std::string what = What(operation, place, "cancel");
    const bool sets_data = operation.name == "set data";
    if (event == "BeforeDataCheck") {
      EXPECT_EQ(outcome, "invalid: ") << what;
    } else if (event == "LoadFeedback") {
      EXPECT_EQ(outcome, "valid") << what;
    } else if (event == "BeforeDataLoad") {
      EXPECT_EQ(outcome, sets_data ? "false" : "done") << what;
      const bool is_silent = sets_data || (operation.name == "replace" && place == 0);
      EXPECT_EQ(events_->names.back(), is_silent ? "BeforeDataLoad" : "AfterDataLoad") << what;
      EXPECT_EQ(Kept(), sets_data ? kNoTable : kOld) << what;
    } else if (event == "RecordParsed") {
      EXPECT_EQ(outcome, sets_data ? "41019" : "done") << what;
      EXPECT_EQ(Kept(), kOld) << what;
    } else {
      EXPECT_EQ(outcome, operation.outcome) << what;
      EXPECT_EQ(Kept(), operation.kept) << what;
    }
    ExpectSound(what);
  });
}

TEST_F(LiteBoundary, AListenerMayDetachItselfAndHearsNoMore) {
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

TEST_F(LiteBoundary, AHandlerMayLetGoOfTheSet) {
  AtEveryEvent([this](const Operation& operation, std::size_t place, const std::string&) {
    const std::string what = What(operation, place, "release");
    const std::string outcome = Try(operation, place, [&](const auto&) {
      const std::int64_t living = LiveObjects::Count();
      set_.Reset();
      EXPECT_EQ(LiveObjects::Count(), living) << what << ": the operation holds it to its end";
    });
    EXPECT_EQ(outcome, operation.outcome) << what;
    EXPECT_EQ(events_->names.size(), operation.events.size()) << what;
    EXPECT_EQ(Kept(), operation.kept) << what;
    ExpectSound(what);
  });
}

TEST_F(LiteBoundary, AHandlerMayCallWhatOnlyLooks) {
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

TEST_F(LiteBoundary, AHandlerThatChangesTheSetLeavesOneLoadWhole) {
  AtEveryEvent([this](const Operation& operation, std::size_t place, const std::string&) {
    for (const Callback& callback : Callbacks()) {
      if (!callback.changes) continue;
      Restore();
      Try(operation, place, [&](const auto&) { Call(callback); });
      const std::string what = What(operation, place, callback.name);
      EXPECT_THAT(Kept(), AnyOf(kOld, kNew, kOfCallbacks, kNoTable)) << what;
      ExpectSound(what);
    }
  });
}

}  // namespace
}  // namespace tslm5
