// Random tables of many shapes, written as text and parsed, against std::from_chars cell by cell.
#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "inmemory/memory_set.h"
#include "support/locale.h"

namespace tslm5 {
namespace {

/// A table of number texts, written with "." and without a plus sign.
struct Table {
  std::vector<std::vector<std::string>> rows;
};

std::string RandomNumber(std::mt19937_64& random) {
  std::string text = std::to_string(random() >> (random() % 64));
  switch (random() % 4) {
    case 0:
      break;
    case 1:
      text.insert(random() % text.size(), 1, '.');
      break;
    case 2:
      text += '.';
      break;
    default:
      text += "e" + std::to_string(static_cast<int>(random() % 600) - 320);
      break;
  }
  return (random() % 3 == 0 ? "-" : "") + text;
}

Table RandomTable(std::mt19937_64& random) {
  const std::size_t columns = 1 + random() % (random() % 8 == 0 ? 200 : 12);
  const std::size_t rows = 1 + random() % (random() % 8 == 0 ? 200 : 12);
  Table table;
  for (std::size_t row = 0; row < rows; ++row) {
    std::vector<std::string>& fields = table.rows.emplace_back();
    while (fields.size() < columns) {
      std::string field = RandomNumber(random);
      double value = 0.0;
      if (ParseNumber(field, '.', value)) fields.push_back(std::move(field));
    }
  }
  return table;
}

/// The table as text. Now and then a separator is doubled, or stands at the end of a line that is
/// not the first, or an empty line comes between.
std::string Write(const Table& table, const std::string& separator, char decimal,
                  std::mt19937_64& random) {
  std::string text;
  for (std::size_t row = 0; row < table.rows.size(); ++row) {
    if (row > 0) text += random() % 16 == 0 ? "\n\n" : "\n";
    if (row > 0 && random() % 8 == 0) text += separator;
    const std::vector<std::string>& fields = table.rows[row];
    for (std::size_t column = 0; column < fields.size(); ++column) {
      if (column > 0) text += separator;
      if (column > 0 && random() % 16 == 0) text += separator;
      for (const char c : fields[column]) text += c == '.' ? decimal : c;
    }
    if (row > 0 && random() % 8 == 0) text += separator;
  }
  if (random() % 2 == 0) text += "\n";
  return text;
}

void ExpectCells(const MemorySet& set, const Table& table) {
  ASSERT_EQ(set->Rows(), static_cast<std::int32_t>(table.rows.size()));
  ASSERT_EQ(set->Columns(), static_cast<std::int32_t>(table.rows.front().size()));
  for (std::int32_t row = 0; row < set->Rows(); ++row) {
    for (std::int32_t column = 0; column < set->Columns(); ++column) {
      const std::string& field =
          table.rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
      double expected = 0.0;
      const auto [end, code] = std::from_chars(field.data(), field.data() + field.size(), expected);
      // What is too small for a double is 0, of its own sign.
      if (code != std::errc{}) expected = field.starts_with('-') ? -0.0 : 0.0;
      ASSERT_EQ(end, field.data() + field.size()) << field;
      ASSERT_EQ(std::bit_cast<std::uint64_t>(set->GetItem(column, row)),
                std::bit_cast<std::uint64_t>(expected))
          << field << " in row " << row << ", column " << column;
    }
  }
}

TEST(TextParsingRandom, GivesTheNumbersOfFromChars) {
  std::mt19937_64 random(3);
  const MemorySet set;
  for (int i = 0; i < 600; ++i) {
    const Table table = RandomTable(random);
    const bool is_one_column = table.rows.front().size() == 1;
    const std::int32_t code = is_one_column ? -1 : static_cast<std::int32_t>(random() % 5);
    std::string text = Write(table, set->SeparatorToString(code), '.', random);
    ASSERT_NO_THROW(set.ParseInPlace(text, {.separator = code})) << text;
    ExpectCells(set, table);
    if (HasFatalFailure()) return;
  }
}

TEST(TextParsingRandom, GivesThemUnderADecimalComma) {
  const ScopedLocale german("de_DE");
  std::mt19937_64 random(4);
  const MemorySet set;
  for (int i = 0; i < 200; ++i) {
    const Table table = RandomTable(random);
    const std::int32_t code = table.rows.front().size() == 1 ? -1 : 3;
    std::string text = Write(table, set->SeparatorToString(code), ',', random);
    ASSERT_NO_THROW(set.ParseInPlace(text, {.separator = code})) << text;
    ExpectCells(set, table);
    if (HasFatalFailure()) return;
  }
}

}  // namespace
}  // namespace tslm5
