// Random lines through the statement builder and through a plain one.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "platform/raised.h"
#include "storage/row_insert_text.h"
#include "support/null_helper.h"

namespace tslm5 {
namespace {

/// The statement of a line, a field at a time.
std::string PlainStatement(std::string line, bool decimal_is_comma) {
  line.erase(0, line.find_first_not_of(' '));
  line.erase(line.find_last_not_of(' ') + 1);
  std::string values;
  for (std::size_t start = 0; start <= line.size();) {
    const std::size_t end = std::min(line.find(' ', start), line.size());
    std::string field = line.substr(start, end - start);
    for (char& c : field) {
      if (c == ',' && decimal_is_comma) c = '.';
    }
    const bool missing = field.empty() || NullHelper::IsMissingToken(field);
    values += (missing ? "NULL" : "'" + field + "'") + ",";
    start = end + 1;
  }
  return "INSERT INTO TrainingSet VALUES (" + values + " 5);";
}

std::string RandomLine(std::mt19937& random) {
  constexpr std::string_view kCharacters = "0123456789  .,NA?ab\xc3\xa9;-";
  std::string line(random() % 80, ' ');
  for (char& c : line) c = kCharacters[random() % kCharacters.size()];
  return line;
}

TEST(RowInsertTextRandom, AgreesWithAPlainBuilder) {
  for (const bool decimal_is_comma : {false, true}) {
    std::mt19937 random(7);
    RowInsertText text("TrainingSet", decimal_is_comma);
    for (int i = 0; i < 20000; ++i) {
      const std::string line = RandomLine(random);
      ASSERT_EQ(text.FromLine(line, 5), PlainStatement(line, decimal_is_comma)) << line;
    }
  }
}

TEST(RowInsertTextRandom, FindsWhatCannotBeStoredAnywhereInALine) {
  RowInsertText text("TrainingSet", false);
  for (std::size_t size = 1; size <= 50; ++size) {
    for (std::size_t place = 0; place < size; ++place) {
      for (const char c : {'\'', '\0'}) {
        std::string line(size, '7');
        line[place] = c;
        EXPECT_EQ(RaisedNumber([&] { text.FromLine(line, 1); }), 41011)
            << size << " characters, the one at " << place;
      }
    }
  }
}

}  // namespace
}  // namespace tslm5
