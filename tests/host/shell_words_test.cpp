#include "host/program/shell_words.h"

#include <gtest/gtest.h>

namespace tslm5::host {
namespace {

TEST(ShellWords, LeavesPlainWordsAlone) {
  EXPECT_EQ(ShellWord("/data/run-1.db"), "/data/run-1.db");
  EXPECT_EQ(ShellWord("range:-1:1"), "range:-1:1");
  EXPECT_EQ(ShellWord("NA,n.a.,-9"), "NA,n.a.,-9");
}

TEST(ShellWords, QuotesWhatAShellWouldChange) {
  EXPECT_EQ(ShellWord(""), "''");
  EXPECT_EQ(ShellWord("New York"), "'New York'");
  EXPECT_EQ(ShellWord("$(rm)"), "'$(rm)'");
  EXPECT_EQ(ShellWord("a\\b"), "'a\\b'");
  EXPECT_EQ(ShellWord("größe"), "'größe'");
  EXPECT_EQ(ShellWord("it's"), "'it'\\''s'");
}

TEST(ShellWords, PutsControlCharactersIntoFigures) {
  EXPECT_EQ(ShellWord("a\nb"), "$'a\\012b'");
  EXPECT_EQ(ShellWord("\x1b[31m'"), "$'\\033\\13331m\\047'");
  EXPECT_EQ(ShellWord("\xff"), "$'\\377'");
}

TEST(ShellWords, JoinsWordsByOneBlank) {
  EXPECT_EQ(ShellLine({"tslm5", "show", "a b"}), "tslm5 show 'a b'");
}

}  // namespace
}  // namespace tslm5::host
