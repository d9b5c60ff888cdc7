// Random tables of numbers, words and gaps, parsed, against a plain reading of the rules: cell by
// cell, column by column, with lists that are searched from the front.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "inmemory/nominal_set.h"
#include "support/locale.h"

namespace tslm5 {
namespace {

using Table = std::vector<Lines>;  // rows of cells

enum class Kind { kNumber, kMissing, kWord };

struct Cell {
  const char* text;
  Kind kind;
  double value;
};

constexpr Cell kNumbers[] = {
    {"1", Kind::kNumber, 1},       {"-2.5", Kind::kNumber, -2.5},
    {"+3", Kind::kNumber, 3},      {".5", Kind::kNumber, .5},
    {"1.0", Kind::kNumber, 1},     {"1e2", Kind::kNumber, 100},
    {"7.25", Kind::kNumber, 7.25}, {"123456.75", Kind::kNumber, 123456.75}};
constexpr Cell kGaps[] = {{"?", Kind::kMissing, 0},    {"NA", Kind::kMissing, 0},
                          {"null", Kind::kMissing, 0}, {".", Kind::kMissing, 0},
                          {".Q", Kind::kMissing, 0},   {".abc", Kind::kMissing, 0}};
constexpr Cell kWords[] = {{"a", Kind::kWord, 0},
                           {"A", Kind::kWord, 0},
                           {"Na", Kind::kWord, 0},
                           {"1x", Kind::kWord, 0},
                           {"e5", Kind::kWord, 0},
                           {"-", Kind::kWord, 0},
                           {"longerthansixteen-bytes", Kind::kWord, 0},
                           {"\xC3\xBC", Kind::kWord, 0}};

const Cell& Find(const std::string& text) {
  for (const auto* cells : {&kNumbers[0], &kWords[0]}) {
    for (std::size_t i = 0; i < 8; ++i) {
      if (text == cells[i].text) return cells[i];
    }
  }
  return *std::find_if(std::begin(kGaps), std::end(kGaps),
                       [&text](const Cell& cell) { return text == cell.text; });
}

Table RandomTable(std::mt19937_64& random) {
  const std::size_t columns = 2 + random() % 7;
  const std::size_t rows = 1 + random() % 30;
  Table table(rows, Lines(columns));
  for (std::size_t column = 0; column < columns; ++column) {
    const std::uint64_t gaps = column + 1 == columns ? 0 : random() % 40;  // of a hundred
    const std::uint64_t words = random() % 2 == 0 ? 0 : random() % 60;
    for (Lines& row : table) {
      const std::uint64_t draw = random() % 100;
      if (draw < gaps) {
        row[column] = kGaps[random() % std::size(kGaps)].text;
      } else {
        row[column] = (draw < gaps + words ? kWords : kNumbers)[random() % 8].text;
      }
    }
  }
  return table;
}

std::string Write(const Table& table, const std::string& separator, std::mt19937_64& random) {
  std::string text;
  for (const Lines& row : table) {
    if (!text.empty()) text += random() % 8 == 0 ? "\n\n" : "\n";
    if (!text.empty() && random() % 8 == 0) text += separator;
    for (std::size_t column = 0; column < row.size(); ++column) {
      if (column > 0) text += random() % 8 == 0 ? separator + separator : separator;
      text += row[column];
    }
    if (&row != &table.front() && random() % 8 == 0) text += separator;
  }
  return text + (random() % 2 == 0 ? "\n" : "");
}

/// What the set must show of a table: `IDataSet`'s records and those of `INominalDataSet`.
void ExpectTable(const NominalSet& set, const Table& table) {
  const std::size_t columns = table.front().size();
  std::vector<Lines> keys(columns);
  int missing = 0;
  ASSERT_EQ(set->Rows(), static_cast<std::int32_t>(table.size()));
  ASSERT_EQ(set->Columns(), static_cast<std::int32_t>(columns));
  for (std::size_t column = 0; column < columns; ++column) {
    const bool is_categorical = std::any_of(table.begin(), table.end(), [&](const Lines& row) {
      return Find(row[column]).kind == Kind::kWord;
    });
    for (std::size_t row = 0; row < table.size(); ++row) {
      const std::string& text = table[row][column];
      const Cell& cell = Find(text);
      Lines& known = keys[column];
      auto key = std::find(known.begin(), known.end(), text);
      if (key == known.end()) key = known.insert(known.end(), text);
      const auto position = static_cast<double>(key - known.begin());
      const double code = column + 1 == columns ? position : position + 1;
      const auto c = static_cast<std::int32_t>(column);
      const auto r = static_cast<std::int32_t>(row);
      const double value = set->GetItem(c, r);
      const Variant raw = set.Nominal().GetItem(c, r);
      if (cell.kind == Kind::kMissing) {
        ++missing;
        ASSERT_TRUE(std::isnan(value)) << text << " in row " << row << ", column " << column;
      } else {
        ASSERT_EQ(value, is_categorical ? code : cell.value)
            << text << " in row " << row << ", column " << column;
      }
      if (is_categorical) {
        ASSERT_EQ(raw, Variant(text));
      } else {
        ASSERT_EQ(raw.GetKind(), Variant::Kind::kDouble);
      }
    }
  }
  ASSERT_EQ(set.Missing(), std::to_string(missing));
}

TEST(NominalParsingRandom, AgreesWithAPlainReading) {
  std::mt19937_64 random(5);
  const NominalSet set;
  for (int i = 0; i < 1500; ++i) {
    const Table table = RandomTable(random);
    const auto code = static_cast<std::int32_t>(random() % 5);
    const std::string text = Write(table, set->SeparatorToString(code), random);
    ASSERT_NO_THROW(set.Parse(text, {.separator = code})) << text;
    ExpectTable(set, table);
    if (HasFatalFailure()) FAIL() << text;
  }
}

TEST(NominalParsingRandom, MovesTheResponseOfLayout3) {
  std::mt19937_64 random(6);
  const NominalSet set;
  for (int i = 0; i < 300; ++i) {
    const Table table = RandomTable(random);
    std::string text;
    for (const Lines& row : table) {
      text += row.back();
      for (std::size_t column = 0; column + 1 < row.size(); ++column) text += ";" + row[column];
      text += "\n";
    }
    ASSERT_NO_THROW(set.Parse(text, {.separator = 3, .layout = 3})) << text;
    ExpectTable(set, table);
    if (HasFatalFailure()) FAIL() << text;
  }
}

}  // namespace
}  // namespace tslm5
