// Handlers that end the transaction of a load, or leave one of their own open.
#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <utility>

#include "datasetlite/lite_set.h"

namespace tslm5 {
namespace {

/// A run object that lends a connection as it is.
class PlainRun final : public CountedObject<IConnectionService> {
 public:
  explicit PlainRun(Ref<IConnection> connection) : connection_(std::move(connection)) {}
  std::string_view TypeName() override { return "Run"; }
  Variant GetConnection() override { return Variant(connection_); }

 private:
  ~PlainRun() override = default;
  Ref<IConnection> connection_;
};

class DataSetLiteEndingHandlers : public DataSetLiteTest {
 protected:
  DataSetLiteEndingHandlers() {
    set_.As<IConstructor>()->Init(VariantArray(
        {Variant(MakeObject<PlainRun>(connection_)), Variant(data_set_type::kTraining)}));
    Parse("a,b\n1,2\n3,4\n", {.has_labels = true});
    before_ = set_.Everything();
    events_ = set_.Listen();
  }

  /// Loads other records, with `action` as the handler of each.
  template <class Action>
  Error RaisedByLoading(Action action) {
    events_->on_record_parsed = [action](IRecordParsedEventArgs&) mutable { action(); };
    return Raised([&] { Parse("7,8,9\n10,11,12\n"); });
  }

  void ExpectUndone() {
    EXPECT_EQ(set_.Everything(), before_);
    EXPECT_FALSE(run_.InTransaction());
    EXPECT_EQ(run_.TableRows("TrainingSet"), (Lines{"1|2|1", "3|4|2"}));
  }

  Ref<IConnection> connection_ = run_.Connection();
  Lines before_;
  Ref<RecordingEvents> events_;
};

TEST_F(DataSetLiteEndingHandlers, UndoTheLoad) {
  for (const std::function<void()>& end : std::initializer_list<std::function<void()>>{
           [&] { connection_->RollbackTrans(); }, [&] { connection_->CommitTrans(); },
           [&] { connection_->Execute("COMMIT"); }, [&] { connection_->Execute("ROLLBACK"); }}) {
    const Error error = RaisedByLoading(end);
    EXPECT_EQ(error.Number(), error_number::kInvalidCall);
    EXPECT_EQ(error.Description(),
              "The innermost transaction belongs to an operation that is still running, and only"
              " that ends it.");
    ExpectUndone();
  }
}

TEST_F(DataSetLiteEndingHandlers, ThatPassOverTheErrorUndoTheLoadAllTheSame) {
  for (const bool commits : {true, false}) {
    const Error error = RaisedByLoading([this, commits] {
      RaisedNumber([&] { commits ? connection_->CommitTrans() : connection_->RollbackTrans(); });
    });
    EXPECT_EQ(error.Number(), error_number::kInvalidCall);
    EXPECT_EQ(error.Description(),
              "The transaction of a running operation was to be ended by somebody else, an event"
              " handler for instance; the operation's changes are undone.");
    ExpectUndone();
  }
}

TEST_F(DataSetLiteEndingHandlers, ThatLeaveATransactionOpenUndoTheLoad) {
  const Error error = RaisedByLoading([this, done = false]() mutable {
    if (!std::exchange(done, true)) connection_->BeginTrans();
  });
  EXPECT_EQ(error.Number(), error_number::kInvalidCall);
  ExpectUndone();
}

TEST_F(DataSetLiteEndingHandlers, MayBeginAndEndTransactionsOfTheirOwn) {
  const Error error = RaisedByLoading([this] {
    connection_->BeginTrans();
    connection_->Execute("INSERT INTO RunParameters VALUES ('n', 'e', 1, 1)");
    connection_->CommitTrans();
  });
  EXPECT_EQ(error.Number(), 0);
  EXPECT_EQ(run_.TableRows("TrainingSet"), (Lines{"7|8|9|1", "10|11|12|2"}));
  EXPECT_EQ(run_.TableRows("RunParameters").size(), 2U);
}

}  // namespace
}  // namespace tslm5
