#include "engine/run_connection.h"

#include <algorithm>
#include <string>

#include "engine/column_aggregates.h"
#include "engine/figures_reader.h"
#include "engine/figures_scan.h"
#include "engine/run_path.h"
#include "engine/sqlite_error.h"
#include "engine/sqlite_reader.h"
#include "engine/sqlite_record_appender.h"
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

}  // namespace

RunConnection::OpenDatabase::OpenDatabase(const std::string& path, const RunOptions& options) {
  CheckRunPath(path, options);
  if (!options.in_memory) recovery_ = RecoverRun(path, options.busy_timeout_ms);
  const char* name = options.in_memory ? ":memory:" : path.c_str();
  const int code = sqlite3_open_v2(name, &handle_, OpenFlags(options), nullptr);
  if (code == SQLITE_OK) return;
  const int extended = sqlite3_extended_errcode(handle_);
  sqlite3_close_v2(handle_);
  RaiseCannotOpen(path, extended);
}

RunConnection::RunConnection(const std::string& path, const RunOptions& options)
    : database_(path, options),
      watch_(Database(), versions_),
      transactions_(Database()),
      inserter_(Database(), watch_),
      transfer_(Database(), watch_) {
  Configure(path, options);
}

void RunConnection::Configure(const std::string& path, const RunOptions& options) {
  sqlite3* const database = Database();
  sqlite3_extended_result_codes(database, 1);
  sqlite3_busy_timeout(database, options.busy_timeout_ms);
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  RegisterColumnAggregates(database);
  std::int32_t schema_version = 0;
  try {
    SqliteStatement(database, "PRAGMA cache_size = -49152").Run();  // KiB
    // A commit is the journal's removal: without a sync of its folder a power loss can undo it.
    SqliteStatement(database, "PRAGMA synchronous = EXTRA").Run();
    SqliteStatement version(database, "PRAGMA user_version");
    version.Step();
    schema_version = sqlite3_column_int(version.Handle(), 0);
  } catch (const Error& error) {
    RaiseCannotOpen(path, error.Number());
  }
  watch_.TakeUnseen();
  CheckOpenedRun(path, options, sqlite3_db_readonly(database, "main") == 1, schema_version);
}

void* RunConnection::FindFacet(const Uuid& pId) {
  if (pId == IConnection::kId) return static_cast<IConnection*>(&connection_facet_);
  if (pId == IGuardedTransactions::kId) {
    return static_cast<IGuardedTransactions*>(&transactions_facet_);
  }
  if (pId == INumberInserter::kId) return static_cast<INumberInserter*>(&number_inserter_facet_);
  if (pId == IRecordAppending::kId) return static_cast<IRecordAppending*>(&record_appending_facet_);
  if (pId == IDispatch::kId) return static_cast<IDispatch*>(&dispatch_facet_);
  return nullptr;
}

void RunConnection::Execute(std::string_view sql) {
  if (transactions_.IsStatementsLost() && EndLostTransaction(sql)) return;
  Guarded([this, sql] {
    WritePending();
    // Outside a transaction another program may change the table's columns from one to the next.
    if (transactions_.IsInside()) {
      if (const StatementEffects* effects = inserter_.TryRun(sql)) return NoteWrite(*effects);
    }
    StatementEffects effects;
    SqliteStatement statement = watch_.Compile(sql, effects);
    if (effects.controls_transaction) transactions_.RefuseStatementControl();
    // Noted before it runs: one that fails midway may have changed something too.
    if (!statement.IsSelect()) NoteWrite(effects);
    statement.Run();
    if (watch_.TakeUnseen()) NoteChange();
    if (effects.controls_transaction) TidyUp();
  });
}

bool RunConnection::EndLostTransaction(std::string_view sql) {
  StatementEffects effects;
  watch_.Compile(sql, effects);
  if (!effects.is_rollback) return false;
  DropPending();
  transactions_.EndLostByStatement();
  TidyUp();
  return true;
}

Ref<IDataReader> RunConnection::ExecuteReader(std::string_view sql) {
  return Guarded([this, sql]() -> Ref<IDataReader> {
    WritePending();
    FiguresQuery figures;
    std::vector<Variant> values;
    if (ParseFiguresQuery(sql, figures) && ScanFigures(Database(), figures, values)) {
      return MakeObject<FiguresReader>(std::move(figures.items), std::move(values));
    }
    SqliteStatement statement(Database(), sql);
    if (!statement.IsSelect()) {
      watch_.TakeUnseen();
      RaiseEngineError(SQLITE_ERROR, "only a SELECT can be read", sql);
    }
    return MakeObject<SqliteReader>(*this, std::move(statement));
  });
}

Ref<IRecordSet> RunConnection::OpenRecordSet(std::string_view sql) {
  return Guarded([this, sql]() -> Ref<IRecordSet> {
    WritePending();
    return MakeObject<SqliteRecordSet>(*this, sql);
  });
}

std::int64_t RunConnection::Begin(bool is_guarded) {
  return Guarded([this, is_guarded] {
    WritePending();
    if (!transactions_.IsInside()) inserter_.Clear();
    return transactions_.Begin(is_guarded);
  });
}

void RunConnection::CommitTrans() {
  transactions_.RequireUnguarded("CommitTrans");
  transactions_.RequireCommittable();
  Watched([this] {
    WritePending();
    transactions_.CommitInnermost();
  });
  TidyUp();
}

void RunConnection::RollbackTrans() {
  transactions_.RequireUnguarded("RollbackTrans");
  DropPending();
  NoteChange();
  transactions_.RollbackInnermost();
  TidyUp();
}

void RunConnection::CommitGuarded(std::int64_t token) {
  transactions_.RequireCommittable();
  Watched([this, token] {
    WritePending();
    transactions_.CommitGuarded(token);
  });
  TidyUp();
}

void RunConnection::RollbackGuarded(std::int64_t token) {
  if (!transactions_.IsOpen(token)) return;
  DropPending();
  NoteChange();
  transactions_.RollbackGuarded(token);
  TidyUp();
}

void RunConnection::EndQuietly(std::int64_t token) noexcept {
  try {
    transactions_.RollbackGuarded(token);
  } catch (
      ...) {  // the transaction has to be undone before any other statement; the cause says more
  }
}

bool RunConnection::TableExists(std::string_view table_name) {
  return Guarded([this, table_name] {
    SqliteStatement found(Database(),
                          "SELECT 1 FROM sqlite_master WHERE type = 'table'"
                          " AND name = ?1 COLLATE NOCASE");
    found.BindText(1, table_name);
    return found.Step();
  });
}

bool RunConnection::InsertNumbers(std::string_view head, std::span<const double> numbers,
                                  std::int32_t row) {
  return Guarded([this, head, numbers, row] {
    WritePending();
    if (!transactions_.IsInside()) return false;
    const StatementEffects* effects = inserter_.TryRunNumbers(head, numbers, row);
    if (effects != nullptr) NoteWrite(*effects);
    return effects != nullptr;
  });
}

Ref<IRecordAppender> RunConnection::OpenAppender(std::string_view table_name) {
  return Guarded([this, table_name]() -> Ref<IRecordAppender> {
    WritePending();
    AppendTarget target;
    if (!ReadAppendTarget(Database(), table_name, target)) return {};
    return MakeObject<SqliteRecordAppender>(*this, std::move(target));
  });
}

void RunConnection::NoteWrite(const StatementEffects& effects) {
  if (effects.changes_all) return NoteChange();
  for (TableVersions::Counter* table : effects.tables) versions_.Advance(table);
}

void RunConnection::NoteChange() noexcept {
  versions_.AdvanceAll();
  inserter_.Clear();
}

void RunConnection::NoteFailure(const std::exception& failure, bool was_inside) noexcept {
  transactions_.NoteFailure(failure, was_inside);
  const bool has_unseen = watch_.TakeUnseen();
  if (has_unseen || (was_inside && !transactions_.IsInside())) NoteChange();
}

void RunConnection::ForgetPending(SqliteRecordSet* record_set) noexcept {
  std::erase(pending_, record_set);
}

void RunConnection::WriteRecordSets() {
  while (!pending_.empty()) pending_.back()->WritePending();
}

void RunConnection::WriteAppended() {
  while (!appending_.empty()) appending_.back()->WriteAppended();
}

void RunConnection::DropPending() noexcept {
  for (SqliteRecordAppender* appender : std::exchange(appending_, {})) appender->DropAppended();
  for (SqliteRecordSet* record_set : std::exchange(pending_, {})) record_set->DropPending();
}

}  // namespace tslm5
