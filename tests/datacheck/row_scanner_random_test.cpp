// Random rows against the plainest way to say the same: every place of a vector, and both sides of
// its borders, gets its turn. It is compiled a second time for processors without vectors.

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "datacheck/row_scanner.h"
#include "support/numeric_test.h"

namespace tslm5 {
namespace {

constexpr int kTexts = 30'000;

class RandomText {
 public:
  unsigned Draw(unsigned below) { return static_cast<unsigned>(generator_() % below); }

  std::string Letters(std::string_view alphabet, std::size_t size) {
    std::string text;
    while (text.size() < size) text += alphabet[Draw(static_cast<unsigned>(alphabet.size()))];
    return text;
  }

  /// A field: most often a number, or nearly one; seldom long.
  std::string Field(char decimal) {
    const std::size_t most = Draw(8) == 0 ? 40 : 9;
    switch (Draw(5)) {
      case 0:
        return Letters("0123456789.+-eE ,;x\n", Draw(static_cast<unsigned>(most)));
      case 1:
        return Letters("0123456789", 1 + Draw(static_cast<unsigned>(most)));
      default:
        return Number(decimal, most);
    }
  }

  /// Rows of such fields. No number of bytes before them is a multiple of anything.
  std::string Rows(char decimal) {
    std::string text;
    for (unsigned fields = Draw(14); fields > 0; --fields) {
      text += Field(decimal);
      text += Draw(6) == 0 ? "\n" : Draw(20) == 0 ? "  " : " ";
    }
    return text += Field(decimal);
  }

 private:
  std::string Number(char decimal, std::size_t most) {
    std::string text = Letters("+-", Draw(3) == 0 ? 1 : 0);
    text += Letters("0123456789", Draw(static_cast<unsigned>(most)));
    if (Draw(2) == 0) text += decimal + Letters("0123456789", Draw(5));
    if (Draw(3) == 0)
      text += Letters("eE", 1) + Letters("+-", Draw(2)) + Letters("0123456789", Draw(4));
    return text;
  }

  std::mt19937 generator_{20240301};
};

/// Cuts a text at single marks; a mark at the end is followed by one more piece.
std::vector<std::string_view> Pieces(std::string_view text, char mark) {
  std::vector<std::string_view> pieces;
  for (;;) {
    const std::size_t at = text.find(mark);
    pieces.push_back(text.substr(0, at));
    if (at == std::string_view::npos) return pieces;
    text.remove_prefix(at + 1);
  }
}

RowScanner::Row PlainRow(std::string_view line, char decimal) {
  RowScanner::Row row;
  row.is_empty = line.empty();
  while (line.starts_with(' ')) line.remove_prefix(1);
  while (line.ends_with(' ')) line.remove_suffix(1);
  if (line.empty()) return row;
  for (const std::string_view field : Pieces(line, ' ')) {
    if (row.first_invalid < 0 && !IsNumeric(field, decimal)) {
      row.first_invalid = row.fields;
      row.invalid_field = field;
    }
    row.last_field = field;
    ++row.fields;
  }
  return row;
}

bool HasEmptyRowInsidePlainly(std::string_view text) {
  bool seen_row = false;
  bool seen_empty = false;
  for (const std::string_view line : Pieces(text, '\n')) {
    const bool is_blank = line.find_first_not_of(" \t;") == std::string_view::npos;
    if (!is_blank && seen_empty) return true;
    seen_row = seen_row || !is_blank;
    seen_empty = seen_row && is_blank;
  }
  return false;
}

/// A copy of a text that starts at any place of a vector and ends where its memory ends, so that
/// what reads a byte too far is caught by the sanitizer.
class Placed {
 public:
  Placed(std::string_view text, std::size_t offset) : bytes_(offset + text.size()) {
    bytes_.shrink_to_fit();
    text.copy(bytes_.data() + offset, text.size());
    view_ = {bytes_.data() + offset, text.size()};
  }
  std::string_view View() const { return view_; }

 private:
  std::vector<char> bytes_;
  std::string_view view_;
};

void ExpectSameRow(const RowScanner::Row& row, const RowScanner::Row& plain,
                   std::string_view text) {
  ASSERT_EQ(row.fields, plain.fields) << "text: [" << text << "]";
  ASSERT_EQ(row.first_invalid, plain.first_invalid) << "text: [" << text << "]";
  ASSERT_EQ(row.invalid_field, plain.invalid_field) << "text: [" << text << "]";
  ASSERT_EQ(row.last_field, plain.last_field) << "text: [" << text << "]";
  ASSERT_EQ(row.is_empty, plain.is_empty) << "text: [" << text << "]";
}

void ExpectSameRows(std::string_view text, char decimal) {
  RowScanner scanner(text, decimal);
  std::vector<std::string_view> lines = Pieces(text, '\n');
  if (lines.back().empty()) lines.pop_back();  // behind the last line feed is no row
  for (const std::string_view line : lines) {
    ASSERT_FALSE(scanner.AtEnd()) << "text: [" << text << "]";
    ExpectSameRow(scanner.Next(), PlainRow(line, decimal), text);
    if (testing::Test::HasFatalFailure()) return;
  }
  ASSERT_TRUE(scanner.AtEnd()) << "text: [" << text << "]";
}

TEST(RowScannerRandom, SaysOfAnyRowsWhatSplittingThemSays) {
  RandomText random;
  for (const char decimal : {'.', ','}) {
    for (int i = 0; i < kTexts; ++i) {
      const Placed text(random.Rows(decimal), static_cast<std::size_t>(i) % 17);
      ExpectSameRows(text.View(), decimal);
      if (HasFatalFailure()) return;
    }
  }
}

TEST(RowScannerRandom, SaysOfAnyLettersWhatSplittingThemSays) {
  RandomText random;
  for (const char decimal : {'.', ','}) {
    for (int i = 0; i < kTexts; ++i) {
      const std::string letters = random.Letters("0123456789.+-eE ,;x\n", random.Draw(70));
      const Placed text(letters, static_cast<std::size_t>(i) % 17);
      ExpectSameRows(text.View(), decimal);
      if (HasFatalFailure()) return;
    }
  }
}

TEST(RowScannerRandom, FindsEmptyRowsInAnyText) {
  RandomText random;
  int found = 0;
  for (int i = 0; i < 2 * kTexts; ++i) {
    const char* const alphabet = i % 2 == 0 ? "7777777777\n" : " \t;\n\n77";
    std::string letters = random.Letters(alphabet, random.Draw(60));
    if (random.Draw(2) == 0) letters += random.Letters(" \t;\n", random.Draw(30)) + "7";
    const Placed text(letters, static_cast<std::size_t>(i) % 17);
    const bool expected = HasEmptyRowInsidePlainly(text.View());
    found += expected ? 1 : 0;
    ASSERT_EQ(HasEmptyRowInside(text.View()), expected) << "text: [" << letters << "]";
  }
  EXPECT_GT(found, kTexts / 4);
  EXPECT_LT(found, 2 * kTexts - kTexts / 4);
}

}  // namespace
}  // namespace tslm5
