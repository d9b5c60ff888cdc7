#include "datasetlite/prepared_text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>

#include "tslm5/contracts/codes.h"

namespace tslm5 {
namespace {

PreparedText Prepare(const std::string& text, std::string_view separator, bool has_labels,
                     bool counts_plain_records) {
  return PrepareText(text, separator, has_labels, layout_code::kRecordsInRows, "Parse",
                     counts_plain_records);
}

TEST(PreparedText, HasBlanksForSeparators) {
  const PreparedText prepared = Prepare("a,b\n1,2\n3,4\n", ",", true, true);
  EXPECT_EQ(prepared.text, "1 2\n3 4\n");
  EXPECT_EQ(prepared.label_row, "a,b");
  EXPECT_EQ(prepared.columns, 2);
  EXPECT_EQ(prepared.refusal, "");
}

std::string RandomText(std::mt19937& random, char separator) {
  constexpr std::string_view kOdd("12 ,;|\t\n\r.-+eEa\0'?", 19);
  const auto columns = 1 + random() % 4;
  std::string text;
  for (auto rows = random() % 6; rows > 0; --rows) {
    for (std::size_t i = 0; i < columns; ++i) {
      if (i > 0) text += separator;
      text += std::to_string(random() % 1000);
      if (random() % 3 == 0) text += "." + std::to_string(random() % 100);
      if (random() % 9 == 0) text += "e-5";
    }
    if (rows > 1 || random() % 2 == 0) text += '\n';
  }
  for (auto changes = random() % 3; changes > 0 && !text.empty(); --changes) {
    text.insert(random() % text.size(), 1, kOdd[random() % kOdd.size()]);
  }
  return text;
}

TEST(PreparedText, IsTheSameWithAndWithoutCountingPlainRecords) {
  constexpr std::string_view kSeparators[] = {"", " ", "\t", ",", ";", "|"};
  std::mt19937 random(20260303);
  int sound = 0;
  for (int i = 0; i < 20'000 && !testing::Test::HasFailure(); ++i) {
    const std::string_view separator = kSeparators[random() % std::size(kSeparators)];
    const bool has_labels = random() % 3 == 0;
    const std::string text = RandomText(random, separator.empty() ? '\n' : separator.front());
    SCOPED_TRACE(testing::PrintToString(text) + " separator [" + std::string(separator) + "]");
    const PreparedText prepared = Prepare(text, separator, has_labels, true);
    const PreparedText careful = Prepare(text, separator, has_labels, false);
    EXPECT_EQ(prepared.text, careful.text);
    EXPECT_EQ(prepared.label_row, careful.label_row);
    EXPECT_EQ(prepared.columns, careful.columns);
    EXPECT_EQ(prepared.refusal, careful.refusal);
    if (careful.refusal.empty() && !careful.text.empty()) ++sound;
  }
  EXPECT_GT(sound, 10'000);
}

}  // namespace
}  // namespace tslm5
