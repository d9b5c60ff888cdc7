// What is made from the table of commands.
#include "host/program/program_words.h"

#include <gtest/gtest.h>

#include "host/commands/command_line.h"
#include "host/program/completions.h"
#include "host/program/manual_page.h"

namespace tslm5::host {
namespace {

class ProgramWords : public ::testing::Test {
 protected:
  CommandWords Command(const std::string& name) const {
    for (const CommandWords& command : CommandsOf(*program_)) {
      if (command.name == name) return command;
    }
    ADD_FAILURE() << "no command " << name;
    return {};
  }

  static OptionWords Option(const CommandWords& command, const std::string& name) {
    for (const OptionWords& option : command.options) {
      if (option.name == name) return option;
    }
    ADD_FAILURE() << command.name << " has no " << name;
    return {};
  }

  const std::shared_ptr<const CLI::App> program_ = DescribeProgram();
};

TEST_F(ProgramWords, AreThoseOfTheOptions) {
  const CommandWords load = Command("load");
  EXPECT_EQ(load.options.front().name, "FILE");
  EXPECT_TRUE(load.options.front().is_positional);
  EXPECT_TRUE(load.options.front().is_required);
  const OptionWords run = Option(load, "--run");
  EXPECT_EQ(run.value, "RUN.db");
  EXPECT_TRUE(run.is_required);
  const OptionWords set = Option(load, "--set");
  EXPECT_EQ(set.value, "SET");
  EXPECT_EQ(set.choices, (std::vector<std::string>{"training", "testing"}));
  EXPECT_FALSE(set.is_required);
  EXPECT_EQ(Option(load, "--json").value, "") << "a flag takes no value";
  EXPECT_EQ(Option(load, "--help").aliases, std::vector<std::string>{"-h"});
  EXPECT_TRUE(Option(Command("show"), "--columns").is_repeated);
}

TEST_F(ProgramWords, AreAllInTheManualPage) {
  const std::string page = ManualPage(*program_, "1.2.3");
  EXPECT_EQ(page.find(".TH TSLM5 1 \"\" \"tslm5 1.2.3\" "), 0U);
  for (const CommandWords& command : CommandsOf(*program_)) {
    EXPECT_NE(page.find(".SS tslm5 " + command.name + "\n"), std::string::npos);
    for (const OptionWords& option : command.options) {
      std::string name;
      for (const char c : option.name) name += c == '-' ? "\\-" : std::string(1, c);
      EXPECT_NE(page.find(name), std::string::npos) << command.name << " " << option.name;
    }
  }
}

TEST_F(ProgramWords, AreAllInTheCompletions) {
  const std::string bash = BashCompletion(*program_);
  const std::string zsh = ZshCompletion(*program_);
  for (const CommandWords& command : CommandsOf(*program_)) {
    EXPECT_NE(bash.find("    " + command.name + ")\n"), std::string::npos) << command.name;
    EXPECT_NE(zsh.find("    " + command.name + ")\n"), std::string::npos) << command.name;
    for (const OptionWords& option : command.options) {
      const bool is_in_bash = bash.find(option.name) != std::string::npos;
      EXPECT_NE(is_in_bash, option.is_positional) << option.name;
      EXPECT_NE(zsh.find(option.name), std::string::npos) << option.name;
    }
  }
}

}  // namespace
}  // namespace tslm5::host
