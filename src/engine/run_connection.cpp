#include "engine/run_connection.h"

#include <algorithm>
#include <string>

#include "engine/column_aggregates.h"
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

std::string SavepointName(int depth) {
  return "nested" + std::to_string(depth);
}

[[noreturn]] void RaiseNoTransaction(const char* source) {
  throw Error(error_number::kInvalidCall, source, "There is no transaction to end.");
}

}  // namespace

RunConnection::RunConnection(const std::string& path, const RunOptions& options) {
  CheckRunPath(path, options);
  const char* name = options.in_memory ? ":memory:" : path.c_str();
  const int code = sqlite3_open_v2(name, &database_, OpenFlags(options), nullptr);
  try {
    if (code != SQLITE_OK) RaiseSqliteError(database_, code, "open " + path);
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
  RunPlain("PRAGMA cache_size = -49152");  // KiB

  SqliteStatement version(database_, "PRAGMA user_version");
  version.Step();
  CheckOpenedRun(path, options, sqlite3_db_readonly(database_, "main") == 1,
                 sqlite3_column_int(version.Handle(), 0));
}

void* RunConnection::FindFacet(const Uuid& pId) {
  if (pId == IConnection::kId) return static_cast<IConnection*>(&connection_facet_);
  if (pId == IDispatch::kId) return static_cast<IDispatch*>(&dispatch_facet_);
  return nullptr;
}

void RunConnection::Execute(std::string_view sql) {
  WritePending();
  if (inserter_.TryRun(sql)) {
    ++writes_;
    return;
  }
  SqliteStatement statement(database_, sql);
  const bool was_autocommit = sqlite3_get_autocommit(database_) != 0;
  // Counted before it runs: one that fails midway may have changed something too.
  if (!statement.IsReadOnly()) {
    ++writes_;
    inserter_.Clear();
  }
  statement.Run();
  if (was_autocommit != (sqlite3_get_autocommit(database_) != 0)) ++writes_;
}

Ref<IDataReader> RunConnection::ExecuteReader(std::string_view sql) {
  WritePending();
  SqliteStatement statement(database_, sql);
  if (!statement.IsReadOnly()) ++writes_;
  return MakeObject<SqliteReader>(*this, std::move(statement));
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
  if (transaction_depth_ == 0) RaiseNoTransaction("CommitTrans");
  WritePending();
  Commit();
}

void RunConnection::RollbackTrans() {
  if (transaction_depth_ == 0) RaiseNoTransaction("RollbackTrans");
  for (SqliteRecordSet* record_set : std::exchange(pending_, {})) record_set->DropPending();
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

void RunConnection::RunPlain(std::string_view sql) {
  SqliteStatement(database_, sql).Run();
}

void RunConnection::Begin() {
  const bool nested = sqlite3_get_autocommit(database_) == 0;
  if (!nested) transaction_depth_ = 0;
  // Immediate: the wait for a locked database happens here, not in the middle of the work.
  RunPlain(nested ? "SAVEPOINT " + SavepointName(transaction_depth_) : "BEGIN IMMEDIATE");
  ++transaction_depth_;
}

void RunConnection::Commit() {
  if (sqlite3_get_autocommit(database_) != 0) {
    throw Error(SQLITE_ABORT_ROLLBACK, "CommitTrans",
                "The transaction was already rolled back by the database.");
  }
  const int outer = transaction_depth_ - 1;
  RunPlain(outer > 0 ? "RELEASE " + SavepointName(outer) : "COMMIT");
  transaction_depth_ = outer;
}

void RunConnection::Rollback() {
  const int outer = --transaction_depth_;
  ++writes_;
  inserter_.Clear();
  // On some failures (a full disk) SQLite has rolled everything back by itself.
  if (sqlite3_get_autocommit(database_) != 0) return;
  if (outer > 0) {
    RunPlain("ROLLBACK TO " + SavepointName(outer));
    RunPlain("RELEASE " + SavepointName(outer));
  } else {
    RunPlain("ROLLBACK");
  }
}

}  // namespace tslm5
