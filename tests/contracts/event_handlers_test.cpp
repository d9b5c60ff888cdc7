#include "tslm5/contracts/event_handlers.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "contracts/event_args_objects.h"
#include "fakes/fake_data_set.h"
#include "tslm5/platform/connection_point.h"

namespace tslm5 {
namespace {

class EventHandlersTest : public testing::Test {
 protected:
  /// Sets every handler to one that notes its event, checking the arguments.
  void HandleAll() {
    handlers_->on_before_data_check = [this](IParseEventArgs& args) { Note("1", args); };
    handlers_->on_after_data_check = [this](IParseEventArgs& args) { Note("2", args); };
    handlers_->on_load_feedback = [this](IParseEventArgs& args) { Note("3", args); };
    handlers_->on_before_data_load = [this](IDataSet& sender, IParseEventArgs& args) {
      EXPECT_EQ(&sender, sender_.get());
      Note("4", args);
    };
    handlers_->on_after_data_load = [this](IDataSet& sender, IParseEventArgs& args) {
      EXPECT_EQ(&sender, sender_.get());
      Note("5", args);
    };
    handlers_->on_data_load_cancelled = [this](IParseEventArgs& args) { Note("6", args); };
    handlers_->on_record_parsed = [this](IRecordParsedEventArgs& args) {
      EXPECT_EQ(&args, record_.get());
      log_ += "7";
    };
  }

  void Note(const char* event, IParseEventArgs& args) {
    EXPECT_EQ(&args, args_.get());
    log_ += event;
  }

  /// Raises every event once, in the order of declaration, through the sink interface.
  void RaiseAll() {
    IDataSetLiteEvents& sink = *handlers_;
    sink.BeforeDataCheck(args_.get());
    sink.AfterDataCheck(args_.get());
    sink.LoadFeedback(args_.get());
    sink.BeforeDataLoad(sender_.get(), args_.get());
    sink.AfterDataLoad(sender_.get(), args_.get());
    sink.DataLoadCancelled(args_.get());
    sink.RecordParsed(record_.get());
  }

  const Ref<EventHandlers> handlers_ = MakeObject<EventHandlers>();
  const Ref<IParseEventArgs> args_ = MakeParseEventArgs();
  const Ref<IRecordParsedEventArgs> record_ = MakeRecordParsedEventArgs();
  const Ref<FakeDataSet> sender_ = MakeObject<FakeDataSet>(std::vector<std::vector<double>>{});
  std::string log_;
};

TEST_F(EventHandlersTest, EachEventCallsItsOwnHandlerWithItsArguments) {
  HandleAll();
  RaiseAll();
  EXPECT_EQ(log_, "1234567");
}

TEST_F(EventHandlersTest, EventsWithoutAHandlerPass) {
  EXPECT_NO_THROW(RaiseAll());
  handlers_->on_load_feedback = [this](IParseEventArgs& args) { Note("3", args); };
  RaiseAll();
  EXPECT_EQ(log_, "3");
}

TEST_F(EventHandlersTest, WhatAHandlerSetsReachesTheRaiser) {
  handlers_->on_before_data_load = [](IDataSet&, IParseEventArgs& args) { args.put_Cancel(true); };
  handlers_->on_record_parsed = [](IRecordParsedEventArgs& args) { args.put_Error(7); };
  RaiseAll();
  EXPECT_TRUE(args_->Cancel());
  EXPECT_EQ(record_->Error(), 7);
}

TEST_F(EventHandlersTest, WhatAHandlerThrowsPasses) {
  handlers_->on_after_data_check = [](IParseEventArgs&) { throw std::runtime_error("stop"); };
  EXPECT_THROW(RaiseAll(), std::runtime_error);
}

TEST_F(EventHandlersTest, AttachesAsASink) {
  HandleAll();
  SinkList<IDataSetLiteEvents> sinks;
  const std::int32_t cookie = sinks.Advise(handlers_.get());
  sinks.Fire([this](IDataSetLiteEvents& sink) { sink.LoadFeedback(args_.get()); });
  sinks.Unadvise(cookie);
  sinks.Fire([this](IDataSetLiteEvents& sink) { sink.AfterDataCheck(args_.get()); });
  EXPECT_EQ(log_, "3");
  EXPECT_EQ(handlers_->TypeName(), "EventHandlers");
}

}  // namespace
}  // namespace tslm5
