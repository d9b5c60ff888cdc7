// Holds the host's reading of a file to the loader's: what the survey counts is what the run holds.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "host/preparation/cell_survey.h"
#include "host/preparation/run_session.h"
#include "host/preparation/text_source.h"
#include "host/program/failure.h"
#include "tests/host/temporary_folder.h"
#include "tests/support/locale_variables.h"

namespace tslm5::host {
namespace {

constexpr int kTexts = 600;
constexpr const char* kPieces[] = {"1", "2.5", "-3e2", "NA", "?",  ".a", "x",  ",",  ",",   ",",
                                   ";", "\t",  " ",    "|",  "\n", "\n", "\n", "\r", "\r\n"};

/// A few lines, most of them alike, so that the texts are taken often enough.
std::string RandomText(std::mt19937& random, char separator) {
  const auto below = [&random](std::size_t limit) { return random() % limit; };
  std::string line = "a";
  const std::size_t columns = 1 + below(3);
  for (std::size_t column = 1; column < columns; ++column) line += separator;
  std::string text;
  for (std::size_t lines = 1 + below(4); lines > 0; --lines) {
    for (const char c : line) text += c == 'a' ? "1" : std::string(1, c) + "2";
    text += "\n";
  }
  for (std::size_t changes = below(4); changes > 0; --changes) {
    text.insert(below(text.size() + 1), kPieces[below(std::size(kPieces))]);
  }
  return text;
}

std::int32_t CountCells(const RunSession& session, std::int32_t columns, const char* kind) {
  std::string sql = "SELECT ";
  for (std::int32_t column = 0; column < columns; ++column) {
    const std::string name = "d" + std::to_string(column);
    sql += (column > 0 ? " + " : "") + ("COALESCE(SUM(typeof(" + name) + ") = '" + kind + "'), 0)";
  }
  const Ref<IDataReader> reader = session.Connection().ExecuteReader(sql + " FROM TrainingSet");
  return reader->Read() ? reader->GetInteger(0) : 0;
}

TEST(LoaderAgreement, TheSurveyCountsWhatTheRunHolds) {
  const LocaleVariables plain("C", nullptr, nullptr);
  std::mt19937 random(20);  // the same texts every time
  const TemporaryFolder folder;
  const RunSession session(folder.Path("run.db"), RunOptions::Mode::kReadWriteCreate);
  session.CreateSchema();
  int taken = 0;
  for (int i = 0; i < kTexts; ++i) {
    const Separator& separator = kSeparators[random() % std::size(kSeparators)];
    const char character = separator.character == '\0' ? ' ' : separator.character;
    const std::string file = folder.Write("data", RandomText(random, character));
    const bool is_transposed = separator.character != '\0' && random() % 4 == 0;
    const bool has_labels = random() % 2 == 0;
    const TextSource source(file);
    std::string transposed;
    DelimitedText text{source.Text(), &separator, has_labels, is_transposed, source.Path()};
    CellSurvey survey;
    try {
      source.RequireText();
      if (is_transposed) text.text = transposed = Transposed(text.text, separator);
      survey = SurveyCells(text, false);
    } catch (const Failure&) {
      continue;
    }
    const Transaction transaction(session.Connection());
    const Ref<IDataSet> data_set = session.AttachDataSet(data_set_type::kTraining);
    data_set->Parse(text.path, separator.code, has_labels, data_set_type::kTraining,
                    is_transposed ? layout_code::kRecordsInColumns : layout_code::kRecordsInRows);
    ASSERT_EQ(survey.lines, survey.records + survey.label_lines + survey.empty_lines);
    ASSERT_EQ(data_set->Rows(), survey.records) << separator.name << ":\n" << text.text;
    ASSERT_EQ(data_set->Columns(), static_cast<std::int32_t>(survey.columns)) << text.text;
    ASSERT_EQ(CountCells(session, data_set->Columns(), "null"), survey.missing.count) << text.text;
    ASSERT_EQ(CountCells(session, data_set->Columns(), "text"), survey.text.count) << text.text;
    ++taken;
  }
  EXPECT_GT(taken, kTexts / 4);
}

}  // namespace
}  // namespace tslm5::host
