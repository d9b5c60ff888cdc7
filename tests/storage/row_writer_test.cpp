// Rows that are appended, beside the same rows as texts of statements.
#include "storage/row_writer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "platform/raised.h"
#include "storage/test_run.h"

namespace tslm5 {
namespace {

/// A run in memory with a table of two columns: the engine itself, with all its faces, or behind a
/// recording connection, which has none of them.
struct Target {
  Target() : real(OpenRun("", {.in_memory = true})), run(real) {
    run.Execute("CREATE TABLE TrainingSet (d0 FLOAT, d1 FLOAT, row INTEGER PRIMARY KEY)");
  }
  Ref<IConnection> WithFaces() const { return run.Connection(); }
  Ref<IConnection> WithoutFaces() const {
    return Query<IConnection>(run.Service()->GetConnection().ToObject());
  }
  Lines Stored() const {
    return run.Select("SELECT typeof(d0), quote(d0), typeof(d1), quote(d1), row FROM TrainingSet");
  }

  Ref<IConnectionService> real;
  TestRun run;
};

void InsertLines(IConnection& connection, const Lines& lines, bool decimal_is_comma) {
  RowWriter writer(connection, "TrainingSet", decimal_is_comma);
  connection.BeginTrans();
  std::int32_t row = 0;
  for (const std::string& line : lines) {
    EXPECT_EQ(writer.InsertLine(line, ++row), 2) << line;
  }
  connection.CommitTrans();
}

std::string RandomField(std::mt19937& random) {
  constexpr std::string_view kOdd[] = {"x", "", "NA", ".", "\t5", "1,5", "1.2.3", "-", "\xc3\xa9"};
  if (random() % 100 == 0) return std::string(kOdd[random() % std::size(kOdd)]);
  std::string field = random() % 3 == 0 ? "-" : "";
  field += std::to_string(random() % (random() % 2 == 0 ? 100 : 4000000000U));
  if (random() % 2 == 0) field.append(".").append(std::to_string(random() % 10000));
  if (random() % 9 == 0) field.append("e").append(std::to_string(random() % 250));
  return field;
}

TEST(RowWriter, StoresLinesAsTheirStatementsDo) {
  for (const bool decimal_is_comma : {false, true}) {
    std::mt19937 random(11);
    Lines lines;
    lines.reserve(20000);
    for (int i = 0; i < 20000; ++i) {
      const std::string line = RandomField(random) + " " + RandomField(random);
      // Without an empty field at an end, where blanks are trimmed.
      lines.push_back(line.starts_with(' ') || line.ends_with(' ') ? "1 2" : line);
    }
    const Target appended;
    const Target inserted;
    InsertLines(*appended.WithFaces(), lines, decimal_is_comma);
    InsertLines(*inserted.WithoutFaces(), lines, decimal_is_comma);
    EXPECT_EQ(appended.Stored(), inserted.Stored());
  }
}

TEST(RowWriter, StoresNumbersAsTheirStatementsDo) {
  const Target appended;
  const Target inserted;
  for (const Ref<IConnection>& connection : {appended.WithFaces(), inserted.WithoutFaces()}) {
    RowWriter writer(*connection, "TrainingSet", false);
    connection->BeginTrans();
    std::mt19937_64 random(12);
    for (std::int32_t row = 1; row <= 5000; ++row) {
      const double number = static_cast<double>(random()) / (row % 3 == 0 ? 1 : 1e12);
      const double numbers[] = {row % 7 == 0 ? std::nan("") : number, std::floor(number / 1e6)};
      writer.InsertNumbers(numbers, row);
    }
    connection->CommitTrans();
  }
  EXPECT_EQ(appended.Stored(), inserted.Stored());
}

TEST(RowWriter, RaisesWhatTheStatementRaises) {
  const Target appended;
  const Target inserted;
  const auto raised = [](const Ref<IConnection>& connection, auto&& insert) {
    RowWriter writer(*connection, "TrainingSet", false);
    const Error error = Raised([&] { insert(writer); });
    return std::to_string(error.Number()) + "|" + std::string(error.Source()) + "|" +
           std::string(error.Description());
  };
  const auto both = [&](std::string_view expected, auto&& insert) {
    EXPECT_EQ(raised(appended.WithFaces(), insert), expected);
    EXPECT_EQ(raised(inserted.WithoutFaces(), insert), expected);
  };
  both("6||An infinite number cannot be stored.", [](RowWriter& writer) {
    const double numbers[] = {1, std::numeric_limits<double>::infinity()};
    writer.InsertNumbers(numbers, 1);
  });
  both(
      "1|TSLMRep5|table TrainingSet has 3 columns but 4 values were supplied"
      " [INSERT INTO TrainingSet VALUES ('1','2','3', 1);]",
      [](RowWriter& writer) { writer.InsertLine("1 2 3", 1); });
  both("41011|ParseArray|Row 7, column 2 holds an apostrophe, which a data table does not take.",
       [](RowWriter& writer) { writer.InsertLine("1 '", 7); });
}

TEST(RowWriter, IsUndoneWithItsTransaction) {
  const Target target;
  const Ref<IConnection> connection = target.WithFaces();
  {
    RowWriter writer(*connection, "TrainingSet", false);
    connection->BeginTrans();
    const double numbers[] = {1, 2};
    for (std::int32_t row = 1; row <= 500; ++row) writer.InsertNumbers(numbers, row);
    connection->RollbackTrans();
  }
  EXPECT_EQ(target.Stored(), Lines{});
}

}  // namespace
}  // namespace tslm5
