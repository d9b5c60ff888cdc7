#include "host/commands/command_line.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

#include "host/commands/load_command.h"
#include "host/commands/show_command.h"
#include "host/program/failure.h"

namespace tslm5::host {
namespace {

Invocation Parsed(std::initializer_list<const char*> words) {
  std::vector<const char*> arguments = {"tslm5"};
  arguments.insert(arguments.end(), words);
  return ParseCommandLine(static_cast<int>(arguments.size()), arguments.data());
}

std::string UsageOf(std::initializer_list<const char*> words) {
  try {
    Parsed(words);
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Code(), ExitCode::kUsage);
    return failure.what();
  }
  return "taken";
}

TEST(CommandLine, LoadHasDefaults) {
  const auto options =
      std::any_cast<LoadOptions>(Parsed({"load", "f.csv", "--run", "r.db"}).options);
  EXPECT_EQ(options.file, "f.csv");
  EXPECT_EQ(options.run, "r.db");
  EXPECT_EQ(options.set->type, data_set_type::kTraining);
  EXPECT_EQ(options.separator, nullptr);
  EXPECT_TRUE(options.has_labels);
  EXPECT_EQ(options.layout, layout_code::kRecordsInRows);
  EXPECT_FALSE(options.json);
}

TEST(CommandLine, LoadTakesEveryOption) {
  const auto options = std::any_cast<LoadOptions>(
      Parsed({"load", "--run=r.db", "--set", "testing", "--separator", "bar", "--no-labels",
              "--layout", "columns", "--json", "f.csv"})
          .options);
  EXPECT_EQ(options.set->type, data_set_type::kTesting);
  EXPECT_EQ(options.separator->code, separator_code::kBar);
  EXPECT_FALSE(options.has_labels);
  EXPECT_EQ(options.layout, layout_code::kRecordsInColumns);
  EXPECT_TRUE(options.json);
}

TEST(CommandLine, ShowTakesEveryOption) {
  const auto options = std::any_cast<ShowOptions>(
      Parsed({"show", "r.db", "--set", "time-series-testing", "--rows", "2:5", "--columns", "a,b",
              "--columns", "c", "--format", "csv"})
          .options);
  EXPECT_EQ(options.run, "r.db");
  EXPECT_EQ(options.set->type, data_set_type::kTimeSeriesTesting);
  EXPECT_EQ(options.records.rows.first, 2);
  EXPECT_EQ(options.records.rows.last, 5);
  EXPECT_EQ(options.records.columns, (std::vector<std::string>{"a,b", "c"}));
  EXPECT_EQ(options.records.format, RecordOptions::Format::kCsv);
}

TEST(CommandLine, JsonIsAFormatOfShow) {
  EXPECT_EQ(std::any_cast<ShowOptions>(Parsed({"show", "r.db"}).options).records.format,
            RecordOptions::Format::kTable);
  EXPECT_EQ(std::any_cast<ShowOptions>(Parsed({"show", "r.db", "--json"}).options).records.format,
            RecordOptions::Format::kJson);
  EXPECT_NE(UsageOf({"show", "r.db", "--json", "--format", "csv"}), "taken");
}

TEST(CommandLine, WrongUsageIsNamed) {
  EXPECT_EQ(UsageOf({"load", "f"}), "--run is required (see tslm5 load --help)");
  EXPECT_EQ(UsageOf({"frob"}).find("there is no command \"frob\"; the commands are "), 0U);
  EXPECT_EQ(UsageOf({"load", "f", "--run", ":memory:"}),
            "\":memory:\" names no file; the path of a run database was expected");
  EXPECT_EQ(UsageOf({"info", ""}), "\"\" names no file; the path of a run database was expected");
  EXPECT_EQ(UsageOf({"load", "f", "--run", "r", "--layout", "columns", "--separator", "none"}),
            "--layout columns needs a separator between the records");
  EXPECT_NE(UsageOf({}), "taken");
  EXPECT_NE(UsageOf({"load", "f", "--run", "r", "--set", "time-series-training"}), "taken");
  EXPECT_NE(UsageOf({"show", "r", "--format", "xml"}), "taken");
  EXPECT_NE(UsageOf({"load", "f", "g", "--run", "r"}), "taken");
}

TEST(CommandLine, HelpHasExamples) {
  for (const char* command : {"load", "info", "show"}) {
    const std::string text = std::any_cast<std::string>(Parsed({command, "--help"}).options);
    EXPECT_NE(text.find("Examples:\n  tslm5 " + std::string(command)), std::string::npos) << text;
  }
  EXPECT_NE(std::any_cast<std::string>(Parsed({"--help"}).options).find("Examples:"),
            std::string::npos);
  EXPECT_TRUE(std::any_cast<std::string>(Parsed({"--version"}).options).starts_with("tslm5 "));
}

TEST(RowRange, IsReadFromItsFourForms) {
  struct Case {
    const char* text;
    std::int32_t first;
    std::optional<std::int32_t> last;
  };
  const Case cases[] = {{"2:5", 2, 5}, {"3:", 3, std::nullopt}, {":4", 1, 4}, {"7", 7, 7}};
  for (const Case& one : cases) {
    const RowRange range = ParseRowRange(one.text);
    EXPECT_TRUE(range.is_given);
    EXPECT_EQ(range.first, one.first) << one.text;
    EXPECT_EQ(range.last, one.last) << one.text;
  }
}

TEST(RowRange, RefusesOthers) {
  for (const char* text :
       {"", ":", "0", "0:3", "5:2", "-1", "a:b", "1:2:3", "1.5", "1 :2", "99999999999"}) {
    EXPECT_THROW(ParseRowRange(text), Failure) << text;
  }
}

}  // namespace
}  // namespace tslm5::host
