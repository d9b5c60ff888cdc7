// What the check passes, both dataset classes load as exactly those numbers; what it refuses, it
// refuses in the same words whatever the line ends and the class are.

#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <random>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "datacheck/check_case.h"
#include "datacheck/random_file.h"
#include "datasetlite/data_set_lite.h"
#include "inmemory/in_memory_set.h"
#include "platform/raised.h"
#include "storage/run_tables.h"
#include "storage/test_run.h"
#include "support/locale.h"
#include "support/temporary_folder.h"
#include "tslm5/contracts/codes.h"

namespace tslm5 {
namespace {

constexpr int kFiles = 500;
constexpr int kTinyFiles = 6'000;

using Cells = std::vector<std::vector<double>>;

double PlainNumber(std::string text, char decimal) {
  std::replace(text.begin(), text.end(), decimal, '.');
  const char* first = text.data() + (text.starts_with('+') ? 1 : 0);
  double value = 0;
  const auto [end, code] = std::from_chars(first, text.data() + text.size(), value);
  EXPECT_TRUE(code == std::errc{} && end == text.data() + text.size()) << "no number: " << text;
  return value;
}

/// The numbers of a file's lines: what stands between separators and blanks, without stray tabs and
/// semicolons.
Cells PlainCells(const RandomFile& file, char decimal) {
  const char separator = file.separator < 0 ? ' ' : " \t,;|"[file.separator];
  Cells cells(1);
  std::string value;
  bool is_label = file.has_labels;
  for (const char c : file.text + "\n") {
    if (c == '\n' || c == separator || c == ' ') {
      if (!value.empty() && !is_label) cells.back().push_back(PlainNumber(value, decimal));
      value.clear();
      if (c == '\n') is_label = false;
      if (c == '\n' && !cells.back().empty()) cells.emplace_back();
    } else if (c != '\t' && c != ';') {
      value += c;
    }
  }
  cells.pop_back();
  return cells;
}

/// A few characters that mean something to a check, mostly in the shape of a table.
RandomFile TinyFile(std::mt19937& random) {
  constexpr std::string_view kSeparatorOf = " \t,;|";
  constexpr std::string_view kAny("12 ,;|\t\n\r.-+eEa\0'?", 19);
  RandomFile file;
  file.separator = static_cast<std::int32_t>(random() % 6) - 1;
  const char separator =
      file.separator < 0 ? '\n' : kSeparatorOf[static_cast<std::size_t>(file.separator)];
  file.has_labels = random() % 3 == 0;
  if (file.has_labels) file.text = std::string("a") + separator + "b\n";
  const auto oddity = 4 + random() % 40;  // how rare odd characters are
  for (auto left = 3 + random() % 16; left > 0; --left) {
    constexpr std::string_view kUsual = "0123";
    const auto kind = random() % 8;
    if (random() % oddity == 0) {
      file.text += kAny[random() % kAny.size()];
    } else if (kind < 4) {
      file.text += kUsual[random() % kUsual.size()];
    } else {
      file.text += kind < 6 ? separator : kind == 6 ? '\n' : ' ';
    }
  }
  for (std::size_t at = 0; (at = file.text.find("\r\n")) != std::string::npos;) {
    file.text.erase(at, 1);  // other tests write files with both line ends
  }
  return file;
}

class CheckAndLoad : public testing::TestWithParam<const char*> {
 protected:
  CheckAndLoad() {
    CreateRunTables(*run_.Connection());
    set_.As<IConstructor>()->Init(
        VariantArray({Variant(run_.Service()), Variant(data_set_type::kTraining)}));
  }

  char Decimal() const { return locale_.DecimalSymbol(); }

  /// Whether the check passes the file; with either line end it says the same.
  bool Passes(const RandomFile& file) {
    std::string messages[2];
    bool results[2];
    for (const bool crlf : {false, true}) {
      std::int32_t separator = file.separator;
      const std::string path = Write(file, crlf);
      results[crlf] = data_set_->IsValidDataSet(path, file.has_labels, separator, messages[crlf]);
      std::string message_in_memory;
      EXPECT_EQ(in_memory_->IsValidDataSet(path, file.has_labels, separator, message_in_memory),
                results[crlf]);
      EXPECT_EQ(message_in_memory, messages[crlf]);
    }
    EXPECT_EQ(results[0], results[1]);
    EXPECT_EQ(messages[0], messages[1]);
    return results[0];
  }

  void Load(IDataSet& set, const RandomFile& file, bool crlf) {
    set.Parse(Write(file, crlf), file.separator, file.has_labels, data_set_type::kTraining,
              layout_code::kRecordsInRows);
  }

  static Cells CellsOf(IDataSet& set) {
    Cells cells(static_cast<std::size_t>(set.Rows()));
    const std::int32_t columns = set.Columns();
    for (std::size_t row = 0; row < cells.size(); ++row) {
      for (std::int32_t column = 0; column < columns; ++column) {
        cells[row].push_back(set.GetItem(column, static_cast<std::int32_t>(row)));
      }
    }
    return cells;
  }

  /// Holds check and load to each other over random files; how many of them were loaded.
  int ExpectAgreement(const FileTraits& traits, bool may_load_refuse = false) {
    RandomFiles files(20240302, Decimal(), traits);
    int loaded = 0;
    for (int i = 0; i < kFiles && !HasFailure(); ++i) {
      const RandomFile file = files.Next();
      SCOPED_TRACE("separator " + std::to_string(file.separator) +
                   (file.has_labels ? " with labels [" : " [") + file.text + "]");
      if (!Passes(file)) continue;
      ExpectSameInMemory(file, i % 2 == 0);
      const Error error = Raised([&] { Load(*data_set_, file, i % 2 == 0); });
      if (may_load_refuse && error.Number() != 0) continue;
      EXPECT_EQ(error.Number(), 0) << error.Description();
      EXPECT_EQ(CellsOf(*data_set_), PlainCells(file, Decimal()));
      ++loaded;
    }
    return loaded;
  }

  /// The class in memory has refusals of its own (a second separator anywhere, labels that are
  /// none); what it takes, it takes as the same numbers.
  void ExpectSameInMemory(const RandomFile& file, bool crlf) {
    in_memory_ = MakeInMemorySet().As<IDataSet>();
    if (RaisedNumber([&] { Load(*in_memory_, file, crlf); }) != 0) return;
    EXPECT_EQ(CellsOf(*in_memory_), PlainCells(file, Decimal()));
    ++kept_in_memory_;
  }

  int kept_in_memory_ = 0;

  std::string Write(const RandomFile& file, bool crlf) const {
    std::filesystem::remove(folder_.PathOf("data.txt"));  // some file systems flush what is cut
    return folder_.Write("data.txt", crlf ? WithCrlf(file.text) : file.text);
  }

 private:
  const ScopedLocale scope_{GetParam()};
  const Locale locale_{GetParam()};
  TemporaryFolder folder_;
  TestRun run_;
  Ref<IUnknown> set_ = MakeDataSetLite();

 protected:
  Ref<IDataSet> data_set_ = set_.As<IDataSet>();

 private:
  Ref<IDataSet> in_memory_ = MakeInMemorySet().As<IDataSet>();
};

TEST_P(CheckAndLoad, AgreeOnEveryNumber) {
  const int loaded = ExpectAgreement({});
  EXPECT_GT(loaded, kFiles / 2);
  EXPECT_LT(loaded, kFiles * 9 / 10);
  EXPECT_GT(kept_in_memory_, kFiles / 8);
}

// A doubled separator is one to the check and an empty value to the load, which then has a value
// too many in that row and takes nothing of the file.
TEST_P(CheckAndLoad, StoreTheSameOrNothingOfDoubledSeparators) {
  const int loaded = ExpectAgreement({.doubled_separators = true}, true);
  EXPECT_GT(loaded, kFiles / 4);
  EXPECT_LT(loaded, kFiles * 9 / 10);
}

TEST_P(CheckAndLoad, AgreeOnBlanksBesideSeparators) {
  EXPECT_GT(ExpectAgreement({.blanks_beside_separators = true}), kFiles / 10);
}

// Whatever stands in a file: what the check passes is stored as the numbers that it saw, or refused
// in the load's own words, and the earlier records stay.
TEST_P(CheckAndLoad, AgreeOnTinyFilesOfAnything) {
  std::mt19937 random(20240417);
  int loaded = 0;
  int refused = 0;
  for (int i = 0; i < kTinyFiles && !HasFailure(); ++i) {
    const RandomFile file = TinyFile(random);
    SCOPED_TRACE("separator " + std::to_string(file.separator) +
                 (file.has_labels ? " with labels [" : " [") + file.text + "]");
    std::int32_t separator = file.separator;
    std::string message;
    if (!data_set_->IsValidDataSet(Write(file, false), file.has_labels, separator, message))
      continue;
    const Cells before = CellsOf(*data_set_);
    const Error error = Raised([&] { Load(*data_set_, file, false); });
    if (error.Number() == 0) {
      EXPECT_EQ(CellsOf(*data_set_), PlainCells(file, Decimal()));
      ++loaded;
      continue;
    }
    EXPECT_EQ(error.Number(), 41011) << error.Description();
    EXPECT_EQ(error.Source(), "Parse");
    EXPECT_TRUE(error.Description().starts_with("Line ")) << error.Description();
    EXPECT_EQ(CellsOf(*data_set_), before);
    ++refused;
  }
  EXPECT_GT(loaded, kTinyFiles / 50);
  EXPECT_GT(refused, 10);
}

INSTANTIATE_TEST_SUITE_P(, CheckAndLoad, testing::Values("en_US", "de_DE"),
                         [](const auto& one) { return std::string(one.param); });

}  // namespace
}  // namespace tslm5
