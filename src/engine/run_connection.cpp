#include "engine/run_connection.h"

#include <algorithm>
#include <string>

#include "engine/column_aggregates.h"
#include "engine/figures_reader.h"
#include "engine/figures_scan.h"
#include "engine/run_path.h"
#include "engine/sqlite_error.h"
#include "engine/sqlite_reader.h"
#include "engine/sqlite_record_set.h"
#include "engine/sqlite_statement.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

int OpenFlags(const RunOptions& options) {
  // Without SQLite's own mutexes: a connection is used by one thread, its caller's.
  constexpr int kReadWrite = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_READWRITE;
  if (options.in_memory) return kReadWrite | SQLITE_OPEN_CREATE | SQLITE_OPEN_MEMORY;
  switch (options.mode) {
    case RunOptions::Mode::kReadOnly:
      return SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_READONLY;
    case RunOptions::Mode::kReadWriteCreate:
      return kReadWrite | SQLITE_OPEN_CREATE;
    case RunOptions::Mode::kReadWrite:
      break;
  }
  return kReadWrite;
}

[[noreturn]] void RaiseNoTransaction(const char* source) {
  throw Error(error_number::kInvalidCall, source, "There is no transaction to end.");
}

}  // namespace

RunConnection::RunConnection(const std::string& path, const RunOptions& options) {
  CheckRunPath(path, options);
  if (!options.in_memory) recovery_ = RecoverRun(path, options.busy_timeout_ms);
  const char* name = options.in_memory ? ":memory:" : path.c_str();
  const int code = sqlite3_open_v2(name, &database_, OpenFlags(options), nullptr);
  try {
    if (code != SQLITE_OK) RaiseCannotOpen(path, sqlite3_extended_errcode(database_));
    Configure(path, options);
  } catch (...) {
    sqlite3_close_v2(database_);
    throw;
  }
}

RunConnection::~RunConnection() {
  inserter_.Clear();
  sqlite3_close_v2(database_);
}

void RunConnection::Configure(const std::string& path, const RunOptions& options) {
  sqlite3_extended_result_codes(database_, 1);
  sqlite3_busy_timeout(database_, options.busy_timeout_ms);
  sqlite3_db_config(database_, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  sqlite3_db_config(database_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  RegisterColumnAggregates(database_);
  inserter_ = LiteralInserter(database_);
  std::int32_t schema_version = 0;
  try {
    RunPlain("PRAGMA cache_size = -49152");  // KiB
    SqliteStatement version(database_, "PRAGMA user_version");
    version.Step();
    schema_version = sqlite3_column_int(version.Handle(), 0);
  } catch (const Error& error) {
    RaiseCannotOpen(path, error.Number());
  }
  CheckOpenedRun(path, options, sqlite3_db_readonly(database_, "main") == 1, schema_version);
}

void* RunConnection::FindFacet(const Uuid& pId) {
  if (pId == IConnection::kId) return static_cast<IConnection*>(&connection_facet_);
  if (pId == INumberInserter::kId) return static_cast<INumberInserter*>(&number_inserter_facet_);
  if (pId == IDispatch::kId) return static_cast<IDispatch*>(&dispatch_facet_);
  return nullptr;
}

void RunConnection::Execute(std::string_view sql) {
  WritePending();
  // Outside a transaction another program may change the table's columns from one to the next.
  if (sqlite3_get_autocommit(database_) == 0 && RunByBinding(sql)) return;
  SqliteStatement statement(database_, sql);
  // Noted before it runs: one that fails midway may have changed something too.
  if (!statement.IsSelect()) NoteChange();
  statement.Run();
}

Ref<IDataReader> RunConnection::ExecuteReader(std::string_view sql) {
  WritePending();
  FiguresQuery figures;
  std::vector<Variant> values;
  if (ParseFiguresQuery(sql, figures) && ScanFigures(database_, figures, values)) {
    return MakeObject<FiguresReader>(std::move(figures.items), std::move(values));
  }
  return MakeObject<SqliteReader>(*this, SqliteStatement(database_, sql));
}

Ref<IRecordSet> RunConnection::OpenRecordSet(std::string_view sql) {
  WritePending();
  return MakeObject<SqliteRecordSet>(*this, sql);
}

void RunConnection::BeginTrans() {
  WritePending();
  Begin();
}

void RunConnection::CommitTrans() {
  if (transactions_.empty()) RaiseNoTransaction("CommitTrans");
  WritePending();
  Commit();
}

void RunConnection::RollbackTrans() {
  if (transactions_.empty()) RaiseNoTransaction("RollbackTrans");
  for (SqliteRecordSet* record_set : std::exchange(pending_, {})) record_set->DropPending();
  NoteChange();
  Rollback();
}

bool RunConnection::TableExists(std::string_view table_name) {
  try {
    SqliteStatement found(database_,
                          "SELECT 1 FROM sqlite_master WHERE type = 'table'"
                          " AND name = ?1 COLLATE NOCASE");
    found.BindText(1, table_name);
    return found.Step();
  } catch (const Error&) {
    return false;
  }
}

void RunConnection::NoteChange() {
  ++writes_;
  inserter_.Clear();
}

void RunConnection::NotePending(SqliteRecordSet* record_set) {
  pending_.push_back(record_set);
  ++writes_;
}

void RunConnection::ForgetPending(SqliteRecordSet* record_set) {
  std::erase(pending_, record_set);
}

void RunConnection::WritePending() {
  while (!pending_.empty()) pending_.back()->WritePending();
}

bool RunConnection::RunByBinding(std::string_view sql) {
  return Bound([this, sql] { return inserter_.TryRun(sql); });
}

bool RunConnection::InsertNumbers(std::string_view head, std::span<const double> numbers,
                                  std::int32_t row) {
  WritePending();
  if (sqlite3_get_autocommit(database_) != 0) return false;
  return Bound([this, head, numbers, row] { return inserter_.TryRunNumbers(head, numbers, row); });
}

void RunConnection::RunPlain(std::string_view sql) {
  SqliteStatement(database_, sql).Run();
}

void RunConnection::Begin() {
  const bool is_nested = sqlite3_get_autocommit(database_) == 0;
  if (!is_nested) {
    transactions_.clear();
    inserter_.Clear();
  }
  std::string savepoint = is_nested ? "nested" + std::to_string(transactions_.size()) : "";
  // Immediate: the wait for a locked database happens here, not in the middle of the work.
  RunPlain(is_nested ? "SAVEPOINT " + savepoint : "BEGIN IMMEDIATE");
  transactions_.push_back(std::move(savepoint));
}

void RunConnection::Commit() {
  if (sqlite3_get_autocommit(database_) != 0) {
    throw Error(SQLITE_ABORT_ROLLBACK, "CommitTrans",
                "The transaction was already rolled back by the database.");
  }
  const std::string& savepoint = transactions_.back();
  RunPlain(savepoint.empty() ? "COMMIT" : "RELEASE " + savepoint);
  transactions_.pop_back();
}

void RunConnection::Rollback() {
  const std::string savepoint = std::move(transactions_.back());
  transactions_.pop_back();
  // On some failures (a full disk) SQLite has rolled everything back by itself.
  if (sqlite3_get_autocommit(database_) != 0) return NoteChange();
  if (savepoint.empty()) return RunPlain("ROLLBACK");
  RunPlain("ROLLBACK TO " + savepoint);
  RunPlain("RELEASE " + savepoint);
}

}  // namespace tslm5
