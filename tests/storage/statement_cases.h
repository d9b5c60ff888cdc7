#ifndef TSLM5_TESTS_STORAGE_STATEMENT_CASES_H_
#define TSLM5_TESTS_STORAGE_STATEMENT_CASES_H_

#include <string>
#include <vector>

#include "storage/run_statements.h"

namespace tslm5 {

/// One statement constant, filled with plausible values.
struct StatementCase {
  std::string name;      ///< the constant's name
  std::string filled;    ///< the constant with its placeholders filled
  std::string expected;  ///< the text that this must be, to the blank
  // What makes a whole statement of a piece, and what has to run before it.
  std::string head = {};
  std::string tail = {};
  std::string before = {};
};

// All the constants of run_statements.h.
std::vector<StatementCase> DataTableStatements();
std::vector<StatementCase> OriginalDataStatements();
std::vector<StatementCase> ColumnStatements();
std::vector<StatementCase> LabelStatements();
std::vector<StatementCase> StatisticsStatements();
std::vector<StatementCase> CategoryStatements();
std::vector<StatementCase> MissingStatements();
std::vector<StatementCase> ParameterStatements();

}  // namespace tslm5

#endif  // TSLM5_TESTS_STORAGE_STATEMENT_CASES_H_
