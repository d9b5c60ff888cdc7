#include "datacheck/data_check.h"

#include <gmock/gmock.h>

#include <stdexcept>
#include <string>

#include "datacheck/check_file.h"
#include "datacheck/invalid_position.h"
#include "tslm5/contracts/event_handlers.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

constexpr std::string_view kAfter = "AfterDataCheck";

TEST(DataCheck, LetsAsManyRowsPassAsTheLimitAndOneMore) {
  DataCheckRules rules;
  rules.most_row_index = 3;
  CheckEvents events;
  EXPECT_TRUE(CheckBytes(SoundRows(4), events, rules).result);
  const CheckOutcome refused = CheckBytes(SoundRows(5), events, rules);
  EXPECT_FALSE(refused.result);
  EXPECT_EQ(refused.message, "The number of rows must be less than or equal to 3.");
}

TEST(DataCheck, CountsNoEmptyRowAtTheEndAgainstTheLimit) {
  DataCheckRules rules;
  rules.most_row_index = 3;
  CheckEvents events;
  EXPECT_TRUE(CheckBytes(SoundRows(4) + "\n\n \n;\n", events, rules).result);
}

TEST(DataCheck, LetsAsManyColumnsPassAsTheLimitAndOneMore) {
  DataCheckRules rules;
  rules.most_column_index = 3;
  CheckEvents events;
  EXPECT_TRUE(CheckBytes("1,2,3,4\n", events, rules).result);
  const CheckOutcome refused = CheckBytes("1,2,3,4,5\n", events, rules);
  EXPECT_FALSE(refused.result);
  EXPECT_EQ(refused.message, "Invalid dataset. Too many columns.");
}

TEST(DataCheck, HasItsUsualLimits) {
  EXPECT_EQ(DataCheckRules().most_row_index, 20000000);
  EXPECT_EQ(DataCheckRules().most_column_index, 1000000);
  EXPECT_FALSE(DataCheckRules().checks_response);
}

TEST(DataCheck, NeedsNoListenerAtAll) {
  const SinkList<IDataSetLiteEvents> nobody;
  SinkDataCheckListener<IDataSetLiteEvents> listener(nobody);
  EXPECT_TRUE(CheckBytes(SoundRows(25), listener).result);
  const CheckOutcome refused = CheckBytes("1,2\n3,x\n", listener);
  EXPECT_FALSE(refused.result);
  EXPECT_EQ(refused.message, "Invalid <DATASET>. Value in row 2, column 2. is invalid: x");
}

TEST(DataCheck, TellsEverySinkInItsTurn) {
  SinkList<IDataSetLiteEvents> sinks;
  std::string told;
  for (const char name : {'a', 'b'}) {
    const Ref<EventHandlers> sink = MakeObject<EventHandlers>();
    sink->on_before_data_check = [&told, name](auto&) { told += {name, '1', ' '}; };
    sink->on_load_feedback = [&told, name](IParseEventArgs& arguments) {
      if (arguments.Message() == "Checking row 1") told += {name, '2', ' '};
    };
    sink->on_after_data_check = [&told, name](auto&) { told += {name, '3', ' '}; };
    sinks.Advise(sink.get());
  }
  SinkDataCheckListener<IDataSetLiteEvents> listener(sinks);
  EXPECT_TRUE(CheckBytes("1,2\n", listener).result);
  EXPECT_EQ(told, "a1 b1 a2 b2 a3 b3 ");
}

TEST(DataCheck, GoesOnWhenItsListenerGoesAway) {
  SinkList<IDataSetLiteEvents> sinks;
  const Ref<EventHandlers> sink = MakeObject<EventHandlers>();
  const std::int32_t cookie = sinks.Advise(sink.get());
  int after = 0;
  sink->on_load_feedback = [&sinks, cookie](IParseEventArgs& arguments) {
    if (arguments.Message() == "Checking row 11") sinks.Unadvise(cookie);
  };
  sink->on_after_data_check = [&after](auto&) { ++after; };
  SinkDataCheckListener<IDataSetLiteEvents> listener(sinks);
  EXPECT_FALSE(CheckBytes(SoundRows(25) + "3,x\n", listener).result);
  EXPECT_EQ(after, 0);
}

TEST(DataCheck, CarriesFileNameAndParseTypeInOneObjectForAllEvents) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("data.txt", SoundRows(3));
  CheckEvents events;
  IParseEventArgs* first = nullptr;
  events.handler = [&first, &path](const CheckEvent& event, IParseEventArgs& arguments) {
    if (event.name == "BeforeDataCheck") first = &arguments;
    EXPECT_EQ(&arguments, first);
    EXPECT_EQ(arguments.Source(), path);
    EXPECT_EQ(arguments.ParseType(), 0);
    EXPECT_EQ(arguments.Columns(), 0);
  };
  EXPECT_TRUE(CheckPath(path, events).result);
  EXPECT_NE(first, nullptr);
}

TEST(DataCheck, MayGiveItsMessageInTheStringThatNamedTheFile) {
  const TemporaryFolder folder;
  std::string name = folder.Write("data.txt", "1;2\n");
  CheckEvents events;
  EXPECT_FALSE(CheckDataFile(name, false, separator_code::kComma, {}, events, name));
  EXPECT_EQ(name,
            "Either the separator is invalid or there are non-numeric values in the first data "
            "row.");
}

TEST(DataCheck, EndsWithTheWordsOfAListenerThatThrowsAtTheStart) {
  CheckEvents events;
  events.handler = [](const CheckEvent& event, IParseEventArgs&) {
    if (event.name == "BeforeDataCheck") throw Error(5, "listener", "its words");
  };
  const CheckOutcome outcome = CheckBytes(SoundRows(3), events);
  EXPECT_FALSE(outcome.result);
  EXPECT_EQ(outcome.message, "its words");
  EXPECT_THAT(events.MessagesOf(kAfter), ElementsAre("its words"));
}

TEST(DataCheck, EndsWithTheWordsOfAListenerThatThrowsDuringTheRows) {
  LastInvalidPosition() = {.column = 77, .row = 88};
  CheckEvents events;
  events.handler = [](const CheckEvent& event, IParseEventArgs&) {
    if (event.message == "Checking row 11") throw std::runtime_error("its words");
  };
  const CheckOutcome outcome = CheckBytes(SoundRows(25), events);
  EXPECT_FALSE(outcome.result);
  EXPECT_EQ(outcome.message, "its words");
  EXPECT_EQ(events.seen.back(), (CheckEvent{"AfterDataCheck", "its words", 10}));
  EXPECT_EQ(LastInvalidPosition().row, 88);
}

TEST(DataCheck, KeepsARefusalWhoseListenerThrows) {
  CheckEvents events;
  events.handler = [](const CheckEvent& event, IParseEventArgs&) {
    if (event.name == kAfter) throw std::runtime_error("its words");
  };
  const CheckOutcome outcome = CheckBytes("1,2\n3,x\n", events);
  EXPECT_FALSE(outcome.result);
  EXPECT_EQ(outcome.message, "Invalid <DATASET>. Value in row 2, column 2. is invalid: x");
  EXPECT_THAT(events.MessagesOf(kAfter), ElementsAre("Value in row 2, column 2. is invalid: x"));
}

TEST(DataCheck, LetsNoErrorOfAListenerOutAtTheEndEither) {
  CheckEvents events;
  events.handler = [](const CheckEvent& event, IParseEventArgs&) {
    if (event.name == kAfter) throw std::runtime_error("its words");
  };
  const CheckOutcome outcome = CheckBytes(SoundRows(3), events);
  EXPECT_FALSE(outcome.result);
  EXPECT_EQ(outcome.message, "its words");
  EXPECT_THAT(events.MessagesOf(kAfter), ElementsAre("Data check completed.", "its words"));
}

TEST(DataCheck, HearsACancelAtAnyEarlierFeedbackAtRow1) {
  for (const char* at :
       {"Checking the separator...", "Checking data...",
        "Checking data: Removing duplicate separators...", "Checking data: Clearing empty rows...",
        "Checking data: Removing invalid characters...", "Checking row 1"}) {
    CheckEvents events(at);
    const CheckOutcome outcome = CheckBytes(SoundRows(25), events);
    EXPECT_TRUE(outcome.result) << at;
    EXPECT_EQ(outcome.message, "untouched") << at;
    const std::vector<CheckEvent> end(events.seen.end() - 3, events.seen.end());
    EXPECT_THAT(end, ElementsAre(CheckEvent{"LoadFeedback", "Checking row 1", 0},
                                 CheckEvent{"AfterDataCheck", "Data check cancelled.", 0},
                                 CheckEvent{"AfterDataCheck", "Data check completed.", 25}))
        << at;
  }
}

TEST(DataCheck, HearsACancelAtToldRowsOnly) {
  for (const int row : {1, 11, 21, 25}) {
    CheckEvents events("Checking row " + std::to_string(row));
    EXPECT_TRUE(CheckBytes(SoundRows(25), events).result) << row;
    const std::vector<CheckEvent> end(events.seen.end() - 2, events.seen.end());
    EXPECT_THAT(end, ElementsAre(CheckEvent{"AfterDataCheck", "Data check cancelled.", row - 1},
                                 CheckEvent{"AfterDataCheck", "Data check completed.", 25}));
  }
}

TEST(DataCheck, ForgetsACancelThatIsTakenBack) {
  CheckEvents events("Checking the separator...");
  events.handler = [](const CheckEvent& event, IParseEventArgs& arguments) {
    if (event.message == "Checking data...") arguments.put_Cancel(false);
  };
  EXPECT_TRUE(CheckBytes(SoundRows(25), events).result);
  EXPECT_THAT(events.MessagesOf(kAfter), ElementsAre("Data check completed."));
}

}  // namespace
}  // namespace tslm5
