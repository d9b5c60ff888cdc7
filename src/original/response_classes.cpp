#include "original/response_classes.h"

#include <string>

#include "storage/run_statements.h"
#include "storage/sqlite_helpers.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/platform/error.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::ResponseClasses {
namespace {

bool IsClassified(std::int32_t category) {
  return category == problem_category::kClassification || category == problem_category::kBinary ||
         category == problem_category::kFurtherClassification;
}

/// The first field of the first record into `value`; false when there is no record or it is NULL.
bool ReadFirst(IConnection& connection, std::string_view sql, double& value) {
  const Ref<IDataReader> reader = connection.ExecuteReader(sql);
  if (!reader->Read() || reader->IsNull(0)) return false;
  value = reader->GetDouble(0);
  return true;
}

std::string MaximumOf(std::int32_t set_type) {
  return FillStatement(run_statement::kSelectResponseMaximum,
                       {{"<SET_ID>", std::to_string(set_type)}});
}

double NumberIn(std::string_view text, char decimal) {
  double number = 0.0;
  if (!ParseNumber(text, '.', number) && !ParseNumber(text, decimal, number)) RaiseTypeMismatch();
  return number;
}

}  // namespace

void ReadTargetMaximum(OriginalDataState& state, IConnection& connection, std::int32_t set_type) {
  double& maximum = state.target_maximum;
  try {
    if (set_type == data_set_type::kCombined) {
      ReadFirst(connection, run_statement::kSelectAnyResponseMaximum, maximum);
    } else if (!ReadFirst(connection, MaximumOf(set_type), maximum) &&
               set_type != data_set_type::kTraining) {
      ReadFirst(connection, MaximumOf(data_set_type::kTraining), maximum);
    }
  } catch (const Error&) {
    // A run may be without statistics.
  }
}

void PutFromTable(OriginalDataState& state, IConnection& connection, std::int32_t set_type) {
  if (!IsClassified(
          SqliteHelpers::QueryInteger(connection, run_statement::kSelectProblemCategory))) {
    return;
  }
  const std::string name =
      SqliteHelpers::QueryString(connection, run_statement::kSelectResponseName);
  ReadTargetMaximum(state, connection, set_type);
  const std::string_view select = set_type == data_set_type::kTraining
                                      ? run_statement::kSelectTrainingColumn
                                      : run_statement::kSelectTestingColumn;
  const Ref<IDataReader> reader =
      connection.ExecuteReader(FillStatement(select, {{"<NAME>", name}}));
  for (std::int32_t row = 0; reader->Read(); ++row) {
    const bool is_maximum = reader->GetDouble(0) == state.target_maximum && !reader->IsNull(0);
    state.cells.PutClass(row, is_maximum);
  }
}

void PutFromTexts(OriginalDataState& state, char decimal) {
  const std::int32_t response = state.cells.Columns() - 1;
  for (std::int32_t row = 0; row < state.cells.FilledRows(); ++row) {
    const double value = NumberIn(state.cells.Text(response, row), decimal);
    state.cells.PutClass(row, value == state.target_maximum);
  }
}

}  // namespace tslm5::ResponseClasses
