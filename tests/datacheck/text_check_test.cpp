#include "datacheck/text_check.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "datacheck/random_file.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Notes everything that a check reports.
class Notes final : public TextCheckObserver {
 public:
  explicit Notes(std::int64_t records_per_report = 0) : records_per_report_(records_per_report) {}

  std::vector<std::string> stages;
  std::vector<std::int64_t> records;
  std::vector<std::string> findings;
  std::vector<std::string> changes;
  std::int64_t stops_at = -1;

  void Begin(CheckStage stage) override {
    stages.push_back(std::to_string(static_cast<int>(stage)));
  }
  std::int64_t RecordsPerReport() const override { return records_per_report_; }
  bool Record(std::int64_t index, std::int64_t count) override {
    EXPECT_LT(index, count);
    records.push_back(index);
    return index != stops_at;
  }
  void Found(const TextFinding& finding) override {
    findings.push_back(fmt::format("{} {}/{}/{} {}", static_cast<int>(finding.code), finding.line,
                                   finding.record, finding.column, finding.value) +
                       std::string(finding.label ? *finding.label : ""));
  }
  void Changed(std::int64_t line, std::int64_t column, std::string_view field) override {
    changes.push_back(fmt::format("{}/{} {}", line, column, field));
  }

  auto All() const { return std::tie(stages, records, findings, changes); }

 private:
  std::int64_t records_per_report_;
};

TextCheckRules Rules(std::int32_t separator = separator_code::kComma) {
  TextCheckRules rules;
  rules.separator = separator;
  return rules;
}

std::string Name(CheckCode code) {
  return std::to_string(static_cast<int>(code));
}

TEST(TextCheck, CountsPlainRecordsAndReadsTheOthers) {
  Notes notes;
  const auto plain = TextCheck("1,2\n3,4\n\n", Rules(), notes).Run();
  EXPECT_EQ(plain.records, 2);
  EXPECT_EQ(plain.columns, 2);
  EXPECT_EQ(plain.first_line, 1);
  EXPECT_TRUE(plain.is_plain);
  const auto other = TextCheck("1,2\n3,,4\n", Rules(), notes).Run();
  EXPECT_EQ(other.records, 2);
  EXPECT_FALSE(other.is_plain);
  EXPECT_THAT(notes.findings, IsEmpty());
}

TEST(TextCheck, ReportsEveryTenthRecordAndTheLast) {
  std::string text;
  for (int i = 0; i < 25; ++i) text += i % 7 == 3 ? "1,,2\n" : "1,2\n";
  Notes notes(10);
  EXPECT_EQ(TextCheck(text, Rules(), notes).Run().records, 25);
  EXPECT_THAT(notes.records, ElementsAre(0, 10, 20, 24));
}

TEST(TextCheck, StopsBeforeTheRecordThatItIsStoppedAt) {
  std::string text;
  for (int i = 0; i < 25; ++i) text += "1,2\n";
  Notes notes(10);
  notes.stops_at = 10;
  const auto result = TextCheck(text + "x\n", Rules(), notes).Run();
  EXPECT_TRUE(result.was_stopped);
  EXPECT_EQ(result.records, 10);
  EXPECT_THAT(notes.records, ElementsAre(0, 10));
  EXPECT_THAT(notes.findings, IsEmpty());
}

TEST(TextCheck, EndsAtTheFirstFindingUnlessAllAreWanted) {
  TextCheckRules rules = Rules();
  Notes first;
  TextCheck("1,2\n3,x\n4\n", rules, first).Run();
  EXPECT_THAT(first.findings, ElementsAre(Name(CheckCode::kText) + " 2/2/2 x"));
  rules.finds_all = true;
  Notes all;
  TextCheck("1,2\n3,x\n\n4\n", rules, all).Run();
  EXPECT_THAT(all.findings, ElementsAre(Name(CheckCode::kText) + " 2/2/2 x",
                                        Name(CheckCode::kEmptyLine) + " 3/0/0 ",
                                        Name(CheckCode::kFieldCount) + " 4/3/0 4"));
}

TEST(TextCheck, TakesTextOrMissingValuesWhereTheyAreAllowed) {
  TextCheckRules rules = Rules();
  rules.finds_all = true;
  rules.data.checks_response = true;
  const std::string_view text = "1,2\nx,NA\n?,y\n";
  Notes strict;
  TextCheck(text, rules, strict).Run();
  EXPECT_THAT(strict.findings, ElementsAre(Name(CheckCode::kText) + " 2/2/1 x",
                                           Name(CheckCode::kMissingResponse) + " 2/2/2 NA",
                                           Name(CheckCode::kMissingValue) + " 3/3/1 ?",
                                           Name(CheckCode::kText) + " 3/3/2 y"));
  rules.takes_text = true;
  rules.takes_missing = true;
  Notes lenient;
  TextCheck(text, rules, lenient).Run();
  EXPECT_THAT(lenient.findings, ElementsAre(Name(CheckCode::kMissingResponse) + " 2/2/2 NA"));
}

TEST(TextCheck, NamesTheFieldsThatALoadWouldChange) {
  TextCheckRules rules = Rules();
  Notes notes;
  TextCheck("1,2\n1\t5, 2;\n", rules, notes).Run();
  EXPECT_THAT(notes.changes, ElementsAre("2/1 1\t5", "2/2 2;"));
}

/// A few characters that mean something to a check, mostly in the shape of a table.
RandomFile TinyText(std::mt19937& random) {
  constexpr std::string_view kSeparatorOf = " \t,;|";
  constexpr std::string_view kAny("12 ,;|\t\n\r.-+eEa\0'?", 19);
  RandomFile file;
  file.separator = static_cast<std::int32_t>(random() % 6) - 1;
  const char separator =
      file.separator < 0 ? '\n' : kSeparatorOf[static_cast<std::size_t>(file.separator)];
  file.has_labels = random() % 3 == 0;
  if (file.has_labels) file.text = std::string("a") + separator + "b\n";
  const auto oddity = 4 + random() % 60;  // how rare odd characters are
  for (auto left = 2 + random() % 40; left > 0; --left) {
    file.text += random() % oddity == 0 ? kAny[random() % kAny.size()]
                                        : static_cast<char>('0' + random() % 10);
    if (random() % 3 == 0) file.text += random() % 2 == 0 ? separator : '\n';
  }
  return file;
}

/// Checks a text in both ways, which must report the same, and gives the notes.
Notes BothWays(const RandomFile& file, TextCheckRules rules, std::int64_t records_per_report) {
  rules.separator = file.separator;
  rules.has_labels = file.has_labels;
  Notes notes(records_per_report);
  const auto result = TextCheck(file.text, rules, notes).Run();
  rules.counts_plain_lines = false;
  Notes careful(records_per_report);
  const auto expected = TextCheck(file.text, rules, careful).Run();
  EXPECT_EQ(notes.All(), careful.All());
  EXPECT_EQ(result.records, expected.records);
  EXPECT_EQ(result.columns, expected.columns);
  EXPECT_EQ(result.first_line, expected.first_line);
  return notes;
}

void ExpectOneAnswer(const RandomFile& file, TextCheckRules rules, int& valid) {
  const Notes first = BothWays(file, rules, 10);
  rules.finds_all = true;
  const Notes all = BothWays(file, rules, 0);
  EXPECT_EQ(first.findings.empty(), all.findings.empty());
  if (first.findings.empty()) {
    ++valid;
  } else if (!first.findings[0].starts_with(Name(CheckCode::kFirstFieldNoNumber) + " ") &&
             !rules.data.checks_response) {
    EXPECT_THAT(all.findings, testing::Contains(first.findings[0]));
  }
}

TEST(TextCheck, FindsTheSameWithAndWithoutCountingPlainLines) {
  std::mt19937 random(20260302);
  int valid = 0;
  for (int i = 0; i < 20'000 && !testing::Test::HasFailure(); ++i) {
    const RandomFile file = TinyText(random);
    SCOPED_TRACE(testing::PrintToString(file.text) + " separator " +
                 std::to_string(file.separator) + (file.has_labels ? " labels" : ""));
    TextCheckRules rules;
    rules.decimal = i % 5 == 0 ? ',' : '.';
    rules.data.checks_response = i % 3 == 0;
    rules.takes_text = i % 7 == 0;
    rules.takes_missing = i % 11 == 0;
    ExpectOneAnswer(file, rules, valid);
  }
  EXPECT_GT(valid, 2'000);
}

TEST(TextCheck, FindsTheSameInTablesOfManyNumbers) {
  int valid = 0;
  for (const char decimal : {'.', ','}) {
    for (const bool is_loose : {false, true}) {
      RandomFiles files(7, decimal, {is_loose, is_loose});
      TextCheckRules rules;
      rules.decimal = decimal;
      for (int i = 0; i < 2'500 && !testing::Test::HasFailure(); ++i) {
        const RandomFile file = files.Next();
        SCOPED_TRACE(testing::PrintToString(file.text) + " separator " +
                     std::to_string(file.separator));
        ExpectOneAnswer(file, rules, valid);
      }
    }
  }
  EXPECT_GT(valid, 2'000);
}

}  // namespace
}  // namespace tslm5
