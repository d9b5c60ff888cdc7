#include "original/original_loading.h"

#include <exception>
#include <string>
#include <utility>

#include "original/engine_library.h"
#include "original/original_columns.h"
#include "original/original_rows.h"
#include "original/response_classes.h"
#include "storage/run_statements.h"
#include "storage/run_tables.h"
#include "storage/sqlite_helpers.h"
#include "storage/table_names.h"
#include "support/locale.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

/// How the records of one set are counted and read.
struct SetStatements {
  std::int32_t set_type;
  std::string_view count;
  std::string_view select;
};

constexpr SetStatements kSets[] = {
    {data_set_type::kTraining, run_statement::kCountTraining,
     run_statement::kSelectOriginalTraining},
    {data_set_type::kTesting, run_statement::kCountTesting, run_statement::kSelectOriginalTesting},
    {data_set_type::kUnknown, run_statement::kCountOriginal, run_statement::kSelectOriginal},
};

const SetStatements* FindSet(std::int32_t set_type) {
  for (const SetStatements& set : kSets) {
    if (set.set_type == set_type) return &set;
  }
  return nullptr;
}

Ref<IConnection> ConnectionIn(const Variant& connection) {
  if (connection.GetKind() != Variant::Kind::kObject) {
    throw Error(error_number::kInvalidArgument, "Open", "A connection was expected.");
  }
  const Ref<IUnknown>& object = connection.ToObject();
  Ref<IConnection> found = object.As<IConnection>();
  return found ? found : ConnectionOf(object.get());
}

}  // namespace

OriginalLoading::OriginalLoading(OriginalDataState& state)
    : state_(state), decimal_(CurrentLocale().DecimalSymbol()) {}

void OriginalLoading::Open(const Variant& connection, std::int32_t set_type, bool binarise) {
  const Ref<IConnection> found = ConnectionIn(connection);
  if (set_type != data_set_type::kCombined && FindSet(set_type) == nullptr) {
    throw Error(error_number::kInvalidArgument, "Open",
                "There is no set of type " + std::to_string(set_type) + ".");
  }
  Drop();
  Load(*found, set_type, binarise);
}

void OriginalLoading::OpenFromFile(std::string_view path, std::int32_t set_type, bool binarise) {
  Drop();
  try {
    const Ref<IConnectionService> run = EngineLibrary::OpenRunFile(std::string(path));
    Open(Variant(run), set_type, binarise);
  } catch (const std::exception&) {
    // By contract: the view holds what was loaded so far.
  }
}

void OriginalLoading::Drop() {
  OriginalDataState fresh;
  fresh.target_maximum = state_.target_maximum;
  fresh.feedback = state_.feedback;
  state_ = std::move(fresh);
}

void OriginalLoading::Load(IConnection& connection, std::int32_t set_type, bool binarise) {
  if (set_type == data_set_type::kCombined) {
    LoadCombined(connection, binarise);
  } else {
    LoadSet(connection, set_type, binarise);
    ResponseClasses::ReadTargetMaximum(state_, connection, set_type);
  }
  CountSets(connection);
}

void OriginalLoading::LoadSet(IConnection& connection, std::int32_t set_type, bool binarise) {
  const SetStatements& set = *FindSet(set_type);
  MakeTable(connection, set.count);
  ReadRows(connection, set.select, decimal_);
  // All records together have no table of numbers to compare.
  if (binarise && set_type != data_set_type::kUnknown) {
    ResponseClasses::PutFromTable(state_, connection, set_type);
  }
  OriginalColumns::Load(state_, connection);
}

// Unlike a single set: texts keep their points, classes are of the original texts whatever the
// problem category, and labels and flags are not loaded (meant).
void OriginalLoading::LoadCombined(IConnection& connection, bool binarise) {
  MakeTable(connection, run_statement::kCountOriginal);
  ReadRows(connection, run_statement::kSelectOriginalTraining, '.');
  if (connection.TableExists(TableName(data_set_type::kTesting))) {
    ReadRows(connection, run_statement::kSelectOriginalTesting, '.');
  }
  ResponseClasses::ReadTargetMaximum(state_, connection, data_set_type::kCombined);
  if (binarise) ResponseClasses::PutFromTexts(state_, decimal_);
}

void OriginalLoading::MakeTable(IConnection& connection, std::string_view count_statement) {
  const std::int32_t rows = SqliteHelpers::QueryInteger(connection, count_statement);
  const Ref<IDataReader> probe = connection.ExecuteReader(run_statement::kProbeOriginal);
  state_.cells = CellTexts(probe->FieldCount() - 1, rows);
  state_.row_keys.assign(static_cast<std::size_t>(rows), 0);
}

void OriginalLoading::ReadRows(IConnection& connection, std::string_view select_statement,
                               char decimal) {
  OriginalRows rows(connection, select_statement);
  while (rows.Next()) {
    const auto row = static_cast<std::size_t>(state_.cells.FilledRows());
    state_.cells.AppendRow(rows.Texts());
    state_.row_keys[row] = rows.Key();
    if (decimal == ',') state_.cells.PutDecimalCommas();
  }
}

void OriginalLoading::CountSets(IConnection& connection) {
  state_.training_rows = SqliteHelpers::QueryInteger(connection, run_statement::kCountTraining);
  if (connection.TableExists(TableName(data_set_type::kTesting))) {
    state_.testing_rows = SqliteHelpers::QueryInteger(connection, run_statement::kCountTesting);
  }
}

}  // namespace tslm5
