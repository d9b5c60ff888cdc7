#include "inmemory/text_survey.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <string_view>

namespace tslm5 {
namespace {

/// The same, letter by letter.
TextSurvey SurveySlowly(std::string_view text, char separator) {
  constexpr std::string_view kAll = " \t,;|";
  TextSurvey survey;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool is_repeated = i > 0 && text[i] == text[i - 1];
    const bool is_separator = separator != '\0' && text[i] == separator;
    survey.has_separator |= is_separator;
    survey.has_separator_runs |= is_separator && is_repeated;
    survey.has_other_separator |= !is_separator && kAll.find(text[i]) != std::string_view::npos;
    survey.has_feed_runs |= text[i] == '\n' && is_repeated;
    survey.feeds += text[i] == '\n' ? 1 : 0;
  }
  return survey;
}

void ExpectSame(std::string_view text, char separator) {
  const auto bytes = std::make_unique<char[]>(text.size());  // no byte behind it can be read
  std::copy(text.begin(), text.end(), bytes.get());
  const TextSurvey survey = SurveyText({bytes.get(), text.size()}, separator);
  const TextSurvey expected = SurveySlowly(text, separator);
  SCOPED_TRACE(testing::PrintToString(std::string(text)) + " " + std::to_string(separator));
  EXPECT_EQ(survey.has_separator, expected.has_separator);
  EXPECT_EQ(survey.has_other_separator, expected.has_other_separator);
  EXPECT_EQ(survey.has_separator_runs, expected.has_separator_runs);
  EXPECT_EQ(survey.has_feed_runs, expected.has_feed_runs);
  EXPECT_EQ(survey.feeds, expected.feeds);
}

TEST(TextSurvey, TellsWhatStandsInAText) {
  const TextSurvey plain = SurveyText("1,2\n3,4\n", ',');
  EXPECT_TRUE(plain.has_separator);
  EXPECT_FALSE(plain.has_other_separator);
  EXPECT_FALSE(plain.has_separator_runs);
  EXPECT_FALSE(plain.has_feed_runs);
  EXPECT_EQ(plain.feeds, 2u);
  const TextSurvey other = SurveyText("1,,2\n\n3 4", ',');
  EXPECT_TRUE(other.has_other_separator);
  EXPECT_TRUE(other.has_separator_runs);
  EXPECT_TRUE(other.has_feed_runs);
}

TEST(TextSurvey, FindsARunAcrossTwoChunks) {
  for (std::size_t size = 60; size < 70; ++size) {
    ExpectSame(std::string(size, '1') + ",,2", ',');
    ExpectSame(std::string(size, '1') + "\n\n2", ',');
    ExpectSame(std::string(size, '1') + ",2", ',');
  }
}

TEST(TextSurvey, AgreesWithTheReadingOfEachLetter) {
  constexpr std::string_view kSeparators(", ;\t|\0", 6);
  constexpr std::string_view kLetters("1234567890.-\n,;|\t \0x", 20);
  std::mt19937 random(5);
  for (int i = 0; i < 10'000 && !testing::Test::HasFailure(); ++i) {
    const char separator = kSeparators[random() % kSeparators.size()];
    const std::size_t odd = random() % 2 == 0 ? kLetters.size() : 12;
    std::string text;
    for (auto left = random() % 200; left > 0; --left) {
      text += random() % 6 == 0 ? separator : kLetters[random() % odd];
    }
    ExpectSame(text, separator);
  }
}

}  // namespace
}  // namespace tslm5
