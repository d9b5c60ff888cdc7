#include "engine/statement_watch.h"

#include <algorithm>
#include <exception>

namespace tslm5 {
namespace {

/// Whether the engine does it for itself: it ends transactions in ways that it accounts for, and
/// asks for the columns of tables, for which SQLite declares tables that are not stored.
bool IsEnginesOwn(int action, std::string_view name) {
  return action == SQLITE_PRAGMA || action == SQLITE_TRANSACTION || action == SQLITE_SAVEPOINT ||
         (action == SQLITE_UPDATE && name == "sqlite_master");
}

}  // namespace

StatementWatch::StatementWatch(sqlite3* database, TableVersions& versions)
    : database_(database), versions_(versions) {
  sqlite3_set_authorizer(database, &StatementWatch::OnAction, this);
}

SqliteStatement StatementWatch::Compile(std::string_view sql, StatementEffects& effects) {
  effects_ = &effects;
  try {
    SqliteStatement statement(database_, sql);
    effects_ = nullptr;
    return statement;
  } catch (...) {
    effects_ = nullptr;
    throw;
  }
}

int StatementWatch::OnAction(void* self, int action, const char* first, const char*, const char*,
                             const char*) noexcept {
  auto& watch = *static_cast<StatementWatch*>(self);
  switch (action) {
    case SQLITE_READ:
    case SQLITE_SELECT:
    case SQLITE_FUNCTION:
    case SQLITE_RECURSIVE:
      return SQLITE_OK;
    default:
      break;
  }
  if (watch.effects_ == nullptr) {
    watch.has_unseen_ = watch.has_unseen_ || !IsEnginesOwn(action, first == nullptr ? "" : first);
    return SQLITE_OK;
  }
  try {
    watch.NoteAction(action, first);
  } catch (const std::exception&) {  // no memory for the table's name
    watch.effects_->changes_all = true;
  }
  return SQLITE_OK;
}

void StatementWatch::NoteAction(int action, const char* first) {
  const std::string_view name = first == nullptr ? "" : first;
  switch (action) {
    case SQLITE_INSERT:
    case SQLITE_UPDATE:
    case SQLITE_DELETE:
      return NoteTable(name);
    case SQLITE_TRANSACTION:
      effects_->is_rollback = name == "ROLLBACK";
      [[fallthrough]];
    case SQLITE_SAVEPOINT:
      effects_->controls_transaction = true;
      [[fallthrough]];
    default:
      effects_->changes_all = true;
  }
}

void StatementWatch::NoteTable(std::string_view table) {
  if (table.starts_with("sqlite_")) {
    effects_->changes_all = true;
    return;
  }
  TableVersions::Counter* counter = versions_.Of(table);
  std::vector<TableVersions::Counter*>& tables = effects_->tables;
  if (std::find(tables.begin(), tables.end(), counter) == tables.end()) tables.push_back(counter);
}

}  // namespace tslm5
