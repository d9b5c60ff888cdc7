// What the program's check calls valid, its load takes.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include "host/commands/check_command.h"
#include "host/commands/load_command.h"
#include "tests/host/temporary_folder.h"
#include "tests/support/locale_variables.h"

namespace tslm5::host {
namespace {

using namespace std::string_literals;

constexpr int kTexts = 250;
constexpr const char* kCountVariable = "TSLM5_TEXTS";  // for a longer campaign

constexpr const char* kPieces[] = {"1",  "2.5", "-3e2", "NA",   "'", ".",  "x", ",",    ",",
                                   ",",  ",,",  ";",    "\t",   " ", "  ", "|", "|",    "\n",
                                   "\"", "\n",  "\r",   "\r\n", "a", "+",  "é", "1e400"};

class CheckAgreement : public testing::Test {
 protected:
  /// Whether the check calls the text valid; the load must take it then.
  bool Try(std::string_view text, const char* separator, bool has_labels) {
    const std::string file = folder_.Write("data.csv", text);
    const std::string told = "separator " + std::string(separator) +
                             (has_labels ? ", labels, " : ", no labels, ") +
                             testing::PrintToString(std::string(text));
    CheckOptions check;
    check.file = file;
    check.separator = FindSeparator(separator);
    if (!has_labels) check.dialect.has_header = false;
    check.dialect.separator = check.separator->character;
    if (RunCheck(check, nowhere_) != ExitCode::kDone) return false;
    LoadOptions load;
    load.file = file;
    load.run = folder_.Path("run.db");
    load.set = FindSet("training");
    load.separator = check.separator;
    load.has_labels = has_labels;
    std::filesystem::remove(load.run);
    try {
      RunLoad(load, nowhere_);
    } catch (const std::exception& error) {
      ADD_FAILURE() << "valid, but " << error.what() << "; " << told;
    }
    return true;
  }

  TemporaryFolder folder_;

 private:
  LocaleVariables plain_{"C", nullptr, nullptr};
  Output nowhere_{::open("/dev/null", O_WRONLY | O_CLOEXEC)};
};

TEST_F(CheckAgreement, NeverCallsValidWhatNoTableHolds) {
  struct Case {
    const char* separator;
    bool has_labels;
    std::string text;
  };
  std::string wide = "1";
  for (int i = 1; i < 2000; ++i) wide += ",1";
  const Case cases[] = {
      {"semicolon", false, "1;2\n3;;4\n"}, {"comma", true, "a,b\n1,2\n4  5"},
      {"comma", true, "a,b\n1,2\n3,\n"},   {"comma", false, "1,2 3,,4\n5,6 7,8"},
      {"comma", true, "a\0,b\n1,2\n"s},    {"comma", false, wide + "\n" + wide + "\n"},
  };
  for (const Case& one : cases) {
    EXPECT_FALSE(Try(one.text, one.separator, one.has_labels)) << one.text.substr(0, 40);
  }
  EXPECT_TRUE(Try("a,b\n1,2\n", "comma", true)) << "else nothing was tested";
}

/// A few lines of one width, some of them changed.
std::string RandomText(std::mt19937& random, char separator, bool has_labels) {
  const auto below = [&random](std::size_t limit) { return random() % limit; };
  const std::size_t columns = 1 + below(4);
  std::string text;
  for (std::size_t lines = 1 + below(4), line = 0; line < lines; ++line) {
    for (std::size_t column = 0; column < columns; ++column) {
      if (column > 0) text += separator;
      text += line == 0 && has_labels ? std::string(1, static_cast<char>('a' + column))
                                      : std::to_string(below(30));
    }
    text += '\n';
  }
  for (std::size_t changes = below(4); changes > 0; --changes) {
    const std::size_t place = below(text.size() + 1);
    if (below(3) == 0) {
      text.insert(place, 1, separator);
    } else {
      text.insert(place, kPieces[below(std::size(kPieces))]);
    }
  }
  return text;
}

TEST_F(CheckAgreement, RandomTextsThatAreValidAreLoaded) {
  const char* wanted = std::getenv(kCountVariable);
  const int texts = wanted != nullptr ? std::atoi(wanted) : kTexts;
  std::mt19937 random(11);  // the same texts every time
  int valid = 0;
  for (int i = 0; i < texts; ++i) {
    const Separator& separator = kSeparators[random() % std::size(kSeparators)];
    const bool has_labels = random() % 2 == 0;
    const char character = separator.character == '\0' ? ' ' : separator.character;
    if (Try(RandomText(random, character, has_labels), separator.name, has_labels)) ++valid;
    if (HasFailure()) return;
  }
  EXPECT_GT(valid, texts / 5);
}

}  // namespace
}  // namespace tslm5::host
