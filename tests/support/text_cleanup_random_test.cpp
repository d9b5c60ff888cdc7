// Short random texts of few different characters, against the plainest way to say the same: every
// place of a vector, and both sides of its borders, gets its turn.

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "support/locale.h"
#include "support/separators.h"
#include "support/shared_functions.h"
#include "support/text_cleanup.h"

namespace tslm5 {
namespace {

constexpr int kTexts = 20'000;

class RandomTexts {
 public:
  explicit RandomTexts(std::string_view alphabet) : alphabet_(alphabet) {}

  /// Mostly 'x', so that there are long stretches with nothing to do, or none at all.
  std::string Next() {
    const unsigned rare = Draw(12);
    std::string text(Draw(90), 'x');
    for (char& c : text) {
      if (Draw(12) >= rare) c = alphabet_[Draw(static_cast<unsigned>(alphabet_.size()))];
    }
    return text;
  }

 private:
  unsigned Draw(unsigned below) { return static_cast<unsigned>(generator_() % below); }

  std::string_view alphabet_;
  std::mt19937 generator_{20240229};
};

std::string PlainlyCleaned(const std::string& text) {
  std::string result;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t feed = text.find('\n', start);
    const std::size_t end = feed == std::string::npos ? text.size() : feed;
    std::string line;
    for (const char c : text.substr(start, end - start)) {
      if (c != '\t' && c != ';') line += c;
    }
    if (line.find_first_not_of(' ') != std::string::npos) {
      result += line;
      if (feed != std::string::npos) result += '\n';
    }
    start = end + 1;
  }
  return result;
}

int MergePlainly(const std::string& token, std::string& text) {
  int passes = 0;
  for (; text.find(token + token) != std::string::npos; ++passes) {
    std::string merged;
    std::size_t from = 0;
    for (std::size_t at = 0; (at = text.find(token + token, from)) != std::string::npos;) {
      merged += text.substr(from, at - from) + token;
      from = at + 2 * token.size();
    }
    text = merged + text.substr(from);
  }
  return passes;
}

TEST(CleanLines, DoesWhatTheRuleSaysToAnyText) {
  RandomTexts texts(" \n\n;\t");
  for (int i = 0; i < kTexts; ++i) {
    const std::string text = texts.Next();
    std::string cleaned = text;
    TextCleanup::CleanLines(cleaned);
    ASSERT_EQ(cleaned, PlainlyCleaned(text)) << "text: [" << text << "]";
  }
}

TEST(MergeRepeats, MergesAnyTextAsPassAfterPassWould) {
  RandomTexts texts(",,y");
  for (const std::string token : {",", ",y", ",,"}) {
    for (int i = 0; i < kTexts / 2; ++i) {
      const std::string text = texts.Next();
      std::string expected = text;
      const int passes = MergePlainly(token, expected);
      std::string merged = text;
      ASSERT_EQ(SharedFunctions::MergeRepeats(token, merged), passes) << "text: [" << text << "]";
      ASSERT_EQ(merged, expected) << "text: [" << text << "]";
    }
  }
}

TEST(StripSeparators, LeavesOfAnyTextWhatIsNoSeparator) {
  RandomTexts texts("y,|; \t\n");
  for (const char* name : {"en_US", "de_DE"}) {
    const ScopedLocale locale(name);
    const std::string separators = name == std::string("en_US") ? ",|; \t" : "|; \t";
    for (int i = 0; i < kTexts / 2; ++i) {
      const std::string text = texts.Next();
      std::string expected;
      for (const char c : text) {
        if (separators.find(c) == std::string::npos) expected += c;
      }
      std::string stripped = text;
      SharedFunctions::StripSeparators(stripped);
      ASSERT_EQ(stripped, expected) << name << ", text: [" << text << "]";
    }
  }
}

}  // namespace
}  // namespace tslm5
