// The statement texts: each to the blank, each one that the database takes, none left out.
#include "storage/run_statements.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>

#include "storage/run_tables.h"
#include "storage/statement_cases.h"
#include "storage/test_run.h"

namespace tslm5 {
namespace {

std::vector<StatementCase> AllStatements() {
  std::vector<StatementCase> all;
  for (const auto& room :
       {DataTableStatements(), OriginalDataStatements(), ColumnStatements(), LabelStatements(),
        StatisticsStatements(), CategoryStatements(), MissingStatements(), ParameterStatements()}) {
    all.insert(all.end(), room.begin(), room.end());
  }
  return all;
}

/// Makes every table that a statement may name, the data tables with two columns.
void Prepare(const TestRun& run) {
  CreateRunTables(*run.Connection());
  run.Execute("DROP TABLE OriginalData");
  run.Execute("CREATE TABLE OriginalData (d0 TEXT, d1 TEXT, row INTEGER PRIMARY KEY)");
  run.Table()->Create(2, 1, true);
  run.Table()->Create(2, 2, true);
}

TEST(RunStatements, AreTheseToTheBlank) {
  for (const StatementCase& c : AllStatements()) EXPECT_EQ(c.filled, c.expected) << c.name;
}

TEST(RunStatements, HaveNoPlaceholderLeft) {
  for (const StatementCase& c : AllStatements()) {
    const std::size_t mark = c.filled.find('<');
    EXPECT_TRUE(mark == std::string::npos || c.filled.compare(mark, 3, "<> ") == 0) << c.filled;
  }
}

TEST(RunStatements, RunOnThePreparedTables) {
  for (const StatementCase& c : AllStatements()) {
    const TestRun run;
    Prepare(run);
    if (!c.before.empty()) run.Execute(c.before);
    const std::string statement = c.head + c.filled + c.tail;
    const bool is_select = statement.starts_with("SELECT");
    try {
      if (is_select) {
        const Ref<IConnection> connection = run.Connection();
        EXPECT_GT(connection->ExecuteReader(statement)->FieldCount(), 0) << c.name;
        run.Select(statement);
      } else {
        run.Execute(statement);
      }
    } catch (const Error& error) {
      ADD_FAILURE() << c.name << ": " << error.Description();
    }
  }
}

/// The names of the constants that the header declares. The tests run at the top of the sources.
std::set<std::string> DeclaredNames() {
  std::ifstream file("src/storage/run_statements.h");
  std::set<std::string> names;
  const std::string_view before = "inline constexpr std::string_view ";
  for (std::string line; std::getline(file, line);) {
    if (!line.starts_with(before)) continue;
    const std::string name = line.substr(before.size());
    names.insert(name.substr(0, name.find(' ')));
  }
  return names;
}

TEST(RunStatements, AreAllAmongTheCases) {
  std::set<std::string> names;
  for (const StatementCase& c : AllStatements()) {
    EXPECT_TRUE(names.insert(c.name).second) << c.name << " is there twice";
  }
  const std::set<std::string> declared = DeclaredNames();
  ASSERT_FALSE(declared.empty()) << "is this run at the top of the sources?";
  for (const std::string& name : declared) {
    EXPECT_TRUE(names.contains(name)) << name << " has no case";
  }
  for (const std::string& name : names) {
    EXPECT_TRUE(declared.contains(name)) << name << " is no constant any more";
  }
}

}  // namespace
}  // namespace tslm5
