// The life of a data table: made, dropped, copied, opened. Its fills are in table_lite_fills.cpp,
// its cells in table_lite_cells.cpp, its interfaces in table_lite_facets.cpp.
#include "storage/table_lite.h"

#include <exception>
#include <utility>

#include "storage/restore_guard.h"
#include "storage/run_statements.h"
#include "storage/run_tables.h"
#include "storage/table_limits.h"
#include "storage/table_names.h"
#include "tslm5/engine/transaction.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

std::string BackupName(std::string_view name) {
  return std::string(name) + "Backup";
}

/// "d0 FLOAT, d1 FLOAT, … row INTEGER PRIMARY KEY);"
std::string ColumnList(std::int32_t columns) {
  std::string list;
  for (std::int32_t i = 0; i < columns; ++i) {
    list += FillStatement(run_statement::kDataColumn, {{"<COLUMN>", std::to_string(i)}});
  }
  return list += run_statement::kRowColumn;
}

}  // namespace

std::string_view TableLite::Name() const {
  return TableName(type_code_);
}

void TableLite::Init(const Variant&) {}

void TableLite::Init2(IUnknown* pConnectionService) {
  connection_service_ = Ref<IUnknown>(pConnectionService);
}

Ref<IConnection> TableLite::Connection() const {
  return ConnectionOf(connection_service_.get());
}

bool TableLite::TableIsThere() const {
  return !Name().empty() && Connection()->TableExists(Name());
}

void TableLite::Execute(std::string_view statement) {
  Connection()->Execute(FillStatement(statement, {{"<TABLE>", Name()}}));
}

void TableLite::Create(std::int32_t pColumns, std::int32_t pSetType, bool pCreateBackup) {
  RequireTable(pSetType, pColumns, "Create");
  RestoreGuard type_code(type_code_);
  type_code_ = pSetType;
  const Ref<IConnection> connection = Connection();
  const std::string columns = ColumnList(pColumns);

  Transaction transaction(*connection);
  if (connection->TableExists(Name())) Execute(run_statement::kDropTable);
  if (pCreateBackup && connection->TableExists(BackupName(Name()))) {
    Execute(run_statement::kDropBackup);
  }
  const auto create = [this, &connection, &columns](std::string_view statement) {
    connection->Execute(FillStatement(statement, {{"<TABLE>", Name()}, {"<COLUMNS>", columns}}));
  };
  create(run_statement::kCreateTable);
  if (pCreateBackup) create(run_statement::kCreateBackup);
  transaction.Commit([&] {
    type_code.Keep();
    record_set_.Reset();
    row_counter_ = 0;
  });
}

void TableLite::DeleteAll() {
  Execute(run_statement::kDeleteRows);
}

void TableLite::Drop(bool pDropBackup) {
  const Ref<IConnection> connection = Connection();
  Transaction transaction(*connection);
  Execute(run_statement::kDropTable);
  if (pDropBackup) Execute(run_statement::kDropBackup);
  transaction.Commit([this] { record_set_.Reset(); });
}

void TableLite::CreateCopy() {
  Execute(run_statement::kCopyToBackup);
}

void TableLite::RemakeBackup() {
  const Ref<IConnection> connection = Connection();
  Transaction transaction(*connection);
  Execute(run_statement::kDropBackup);
  connection->Execute(FillStatement(run_statement::kCreateBackup,
                                    {{"<TABLE>", Name()}, {"<COLUMNS>", ColumnList(Columns())}}));
  transaction.Commit();
}

void TableLite::UndoCopy() {
  Execute(run_statement::kCopyFromBackup);
  ClearCopy();
}

void TableLite::ClearCopy() {
  Execute(run_statement::kDeleteBackup);
}

bool TableLite::LoadRecordSet() {
  Ref<IRecordSet> opened;
  if (TableIsThere()) {
    opened = Connection()->OpenRecordSet(
        FillStatement(run_statement::kSelectTable, {{"<TABLE>", Name()}}));
  }
  Dispose(true);
  record_set_ = std::move(opened);
  return static_cast<bool>(record_set_);
}

bool TableLite::Load(const Variant& pRunPath, const Variant& pParams) {
  RestoreGuard service(connection_service_);
  RestoreGuard type_code(type_code_);
  connection_service_ = pRunPath.ToObject();
  type_code_ = pParams.ToInteger();
  const bool is_there = LoadRecordSet();
  service.Keep();
  type_code.Keep();
  return is_there;
}

bool TableLite::Save() {
  if (!record_set_) return false;
  try {
    record_set_->Update();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

Ref<TableLite> TableLite::Clone(std::int32_t pSetType) {
  if (pSetType == type_code_) {
    throw Error(error_number::kCloneOfSameType, "CloneExt",
                "The clone must be assigned a different type/name.");
  }
  const Ref<IConnection> connection = Connection();
  Ref<TableLite> clone = MakeObject<TableLite>();
  clone->Init2(connection_service_.get());
  Transaction transaction(*connection);
  clone->Create(Columns(), pSetType, true);
  connection->Execute(FillStatement(run_statement::kCopyTable,
                                    {{"<NEW_TABLE>", clone->Name()}, {"<TABLE>", Name()}}));
  clone->Load(Variant(connection_service_), pSetType);
  transaction.Commit();
  clone->row_counter_ = row_counter_;
  return clone;
}

void TableLite::Dispose(bool pIsDisposing) {
  if (!pIsDisposing || !record_set_) return;
  record_set_->Close();
  record_set_.Reset();
}

}  // namespace tslm5
