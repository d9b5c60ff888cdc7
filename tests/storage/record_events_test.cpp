// What a listener of a data table hears while it is filled, and how it stops the fill.
#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "fakes/counting_table_sink.h"
#include "fakes/fake_data_set.h"
#include "platform/raised.h"
#include "platform/test_objects.h"
#include "storage/table_lite.h"
#include "storage/test_run.h"
#include "tslm5/platform/live_objects.h"

namespace tslm5 {
namespace {

using Integers = std::vector<std::int32_t>;

Ref<FakeDataSet> ThreeRows() {
  return MakeObject<FakeDataSet>(std::vector<std::vector<double>>{{1, 2}, {3, 4}, {5, 6}});
}

struct Fill {
  const char* name;
  std::function<bool(TableLite&)> run;
};

/// Each fill that raises events, with three rows of two columns.
const Fill kFills[] = {
    {"ParseDataSet", [](TableLite& table) { return table.ParseDataSet(*ThreeRows()); }},
    {"ParseArray",
     [](TableLite& table) {
       return table.ParseArray(Lines{"1 2", "3 4", "5 6"});
     }},
    {"ParseText", [](TableLite& table) { return table.ParseText("1 2\n3 4\n5 6"); }},
};

class RecordEvents : public testing::TestWithParam<Fill> {
 protected:
  RecordEvents() : table_(run_.Table(2)) {}

  Ref<CountingTableSink> Listen(std::size_t cancel_at = 0) {
    Ref<CountingTableSink> sink = MakeObject<CountingTableSink>(cancel_at);
    cookie_ = table_->Advise(sink.get());
    return sink;
  }
  bool RunFill() { return GetParam().run(*table_); }

  TestRun run_;
  Ref<TableLite> table_;
  std::int32_t cookie_ = 0;
};

INSTANTIATE_TEST_SUITE_P(Fills, RecordEvents, testing::ValuesIn(kFills),
                         [](const auto& fill) { return std::string(fill.param.name); });

TEST_P(RecordEvents, TellOfEachRecordInTurn) {
  const auto sink = Listen();
  EXPECT_TRUE(RunFill());
  EXPECT_EQ(sink->currents, Integers({0, 1, 2}));
  EXPECT_EQ(sink->columns, Integers({2, 2, 2}));
  EXPECT_EQ(sink->errors, Integers({0, 0, 0}));
}

TEST_P(RecordEvents, ComeWhenTheRecordIsStored) {
  const auto sink = Listen();
  Lines rows_then;
  sink->handler = [this, &rows_then](IRecordParsedEventArgs&) {
    rows_then.push_back(run_.Select("SELECT count(*) FROM TrainingSet").front());
  };
  RunFill();
  EXPECT_EQ(rows_then, Lines({"1", "2", "3"}));
}

TEST_P(RecordEvents, CancelAtAnyRecordKeepsNoRowOfTheFill) {
  for (const std::size_t cancel_at : {1U, 2U, 3U}) {
    SCOPED_TRACE(cancel_at);
    run_.Execute("DELETE FROM TrainingSet");
    run_.Execute("INSERT INTO TrainingSet VALUES (8, 9, 50)");
    table_->LoadRecordSet();
    const auto sink = Listen(cancel_at);
    run_.Log().Clear();
    EXPECT_FALSE(RunFill());
    EXPECT_EQ(sink->currents.size(), cancel_at);
    EXPECT_EQ(run_.TableRows("TrainingSet"), Lines({"8|9|50"}));
    EXPECT_EQ(run_.Log().statements.back(), "ROLLBACK") << "and the record set is not reopened";
    EXPECT_EQ(table_->Rows(), 1);
    EXPECT_FALSE(run_.InTransaction());
    table_->Unadvise(cookie_);
  }
}

TEST_P(RecordEvents, OfOneFillShareTheirArguments) {
  const auto sink = Listen();
  std::vector<Ref<IRecordParsedEventArgs>> seen;
  sink->handler = [&seen](IRecordParsedEventArgs& arguments) {
    seen.emplace_back(&arguments);
    if (seen.size() == 1) arguments.put_Error(7);
  };
  EXPECT_TRUE(RunFill()) << "an error that a listener notes stops nothing";
  EXPECT_EQ(sink->errors, Integers({0, 7, 7}));
  EXPECT_EQ(seen.front(), seen.back());
}

TEST_P(RecordEvents, ReachEveryListenerAndAnyOneMayCancel) {
  const auto first = Listen(2);
  const auto second = Listen();
  EXPECT_FALSE(RunFill());
  EXPECT_EQ(first->currents, Integers({0, 1}));
  EXPECT_EQ(second->currents, Integers({0, 1}));
}

TEST_P(RecordEvents, ALaterListenerMayTakeACancelBack) {
  const auto first = Listen(2);
  const auto second = Listen();
  second->handler = [](IRecordParsedEventArgs& arguments) { arguments.put_Cancel(false); };
  EXPECT_TRUE(RunFill());
  EXPECT_EQ(second->currents, Integers({0, 1, 2}));
}

TEST_P(RecordEvents, ErrorsOfAListenerPassAndNothingIsKept) {
  const auto sink = Listen();
  sink->handler = [](IRecordParsedEventArgs& arguments) {
    if (arguments.Current() == 1) throw Error(321, "listener", "no more");
  };
  const Error error = Raised([this] { RunFill(); });
  EXPECT_EQ(error.Number(), 321);
  EXPECT_EQ(error.Source(), "listener");
  EXPECT_EQ(run_.TableRows("TrainingSet"), Lines());
  EXPECT_FALSE(run_.InTransaction());
}

TEST_P(RecordEvents, EndWithTheAttachment) {
  const auto sink = Listen();
  sink->handler = [this](IRecordParsedEventArgs&) { table_->Unadvise(cookie_); };
  EXPECT_TRUE(RunFill());
  EXPECT_EQ(sink->currents, Integers({0}));
}

TEST_P(RecordEvents, AListenerMayLetGoOfTheTable) {
  const auto sink = Listen();
  sink->handler = [this](IRecordParsedEventArgs&) { table_.Reset(); };
  TableLite& table = *table_;
  EXPECT_TRUE(GetParam().run(table));
  EXPECT_EQ(sink->currents, Integers({0, 1, 2}));
  EXPECT_EQ(run_.Select("SELECT count(*) FROM TrainingSet"), Lines({"3"}));
}

TEST(RecordEventsOfOneFill, StartAtTheRowCounterOfADataSet) {
  const TestRun run;
  const Ref<TableLite> table = run.Table(2);
  table->ParseDataSet(*ThreeRows());
  const auto sink = MakeObject<CountingTableSink>();
  table->Advise(sink.get());
  table->ParseDataSet(*ThreeRows());
  EXPECT_EQ(sink->currents, Integers({3, 4, 5}));
}

TEST(RecordEventsOfOneFill, AreNotPreparedWhenNobodyListens) {
  const TestRun run;
  const Ref<TableLite> table = run.Table(2);
  const auto source = ThreeRows();
  std::int64_t alive = 0;
  source->before_cell = [&alive](std::int32_t, std::int32_t) { alive = LiveObjects::Count(); };
  table->ParseDataSet(*source);
  const std::int64_t alive_without_listener = alive;
  table->Dispose(true);
  const auto sink = MakeObject<CountingTableSink>();
  table->Advise(sink.get());
  table->ParseDataSet(*source);
  EXPECT_EQ(alive - alive_without_listener, 2) << "the sink and one argument object";
}

TEST(RecordEventsOfOneFill, ComeFromNoOtherFill) {
  const TestRun run;
  const Ref<TableLite> table = run.Table(1);
  const auto sink = MakeObject<CountingTableSink>(std::size_t{1});
  table->Advise(sink.get());
  table->ParseDoubleArray(std::vector<double>{1, 2});
  table->ParseFields(std::vector<Variant>{1.0, 9});
  EXPECT_EQ(sink->currents, Integers());
  EXPECT_EQ(run.TableRows("TrainingSet"), Lines({"1|0", "2|1", "1|9"}));
}

TEST(RecordEventsOfOneFill, TakeOnlyAListenerOfTables) {
  const Ref<TableLite> table = MakeObject<TableLite>();
  EXPECT_EQ(RaisedNumber([&table] { table->Advise(MakeObject<OneFace>().get()); }), 13);
  EXPECT_EQ(RaisedNumber([&table] { table->Unadvise(1); }), 5);
}

}  // namespace
}  // namespace tslm5
