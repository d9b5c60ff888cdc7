#include "engine/transaction_stack.h"

#include <algorithm>
#include <charconv>
#include <new>
#include <string>

#include "engine/sqlite_error.h"
#include "tslm5/engine/transaction.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

using SqlBuffer = std::array<char, 96>;

/// `pattern` with the number of `level` in the place of each "#".
SqlBuffer ForLevel(std::string_view pattern, std::size_t level) {
  SqlBuffer sql{};
  char* end = sql.data();
  for (const char c : pattern) {
    if (c == '#') {
      end = std::to_chars(end, sql.data() + sql.size() - 1, level).ptr;
    } else {
      *end++ = c;
    }
  }
  return sql;
}

}  // namespace

std::int64_t TransactionStack::Begin(bool is_guarded) {
  RequireUsable();
  levels_.reserve(levels_.size() + 1);
  const bool is_nested = IsInside();
  if (levels_.empty()) is_all_savepoints_ = is_nested;
  // Immediate: the wait for a locked database happens here, not in the middle of the work.
  const SqlBuffer sql =
      ForLevel(is_nested ? "SAVEPOINT nested#" : "BEGIN IMMEDIATE", levels_.size());
  const int code = Run(sql.data());
  if (code != SQLITE_OK) RaiseSqliteError(database_, code, sql.data());
  levels_.push_back({is_guarded ? ++last_token_ : 0});
  return levels_.back().token;
}

void TransactionStack::RequireUnguarded(const char* source) {
  if (levels_.empty()) {
    throw Error(error_number::kInvalidCall, source, "There is no transaction to end.");
  }
  if (levels_.back().token != 0) RefuseForeignEnd(source);
}

void TransactionStack::RequireCommittable() {
  if (!IsLost() && obstacle_.depth == 0) return;
  if (obstacle_.depth == 0) Note(1, SQLITE_ABORT_ROLLBACK, true, {});
  RaiseObstacle("CommitTrans");
}

void TransactionStack::CommitInnermost() {
  RequireCommittable();
  CommitLevel();
}

void TransactionStack::RollbackInnermost() {
  RollbackTo(levels_.size() - 1);
}

void TransactionStack::CommitGuarded(std::int64_t token) {
  RequireCommittable();
  if (levels_.empty() || levels_.back().token != token) {
    throw Error(error_number::kInvalidCall, "CommitTrans",
                "A transaction that was begun inside this one, by an event handler for instance,"
                " was left open; the changes of both are undone. Whoever begins a transaction must"
                " end it before returning.");
  }
  CommitLevel();
}

void TransactionStack::RollbackGuarded(std::int64_t token) {
  const auto level = std::find(levels_.begin(), levels_.end(), Level{token});
  if (level != levels_.end()) RollbackTo(static_cast<std::size_t>(level - levels_.begin()));
}

bool TransactionStack::IsOpen(std::int64_t token) const {
  return std::find(levels_.begin(), levels_.end(), Level{token}) != levels_.end();
}

void TransactionStack::CommitLevel() {
  const std::size_t last = levels_.size() - 1;
  const bool is_whole = last == 0 && !is_all_savepoints_;
  const SqlBuffer sql = ForLevel(is_whole ? "COMMIT" : "RELEASE nested#", last);
  const int code = Run(sql.data());
  const bool is_stored =
      code == SQLITE_OK || (code == error_number::kStoredUnsynced && !IsInside());
  if (is_stored) levels_.pop_back();
  if (code != SQLITE_OK) RaiseSqliteError(database_, code, sql.data());
}

void TransactionStack::RollbackTo(std::size_t depth) {
  levels_.resize(depth);
  if (obstacle_.depth > depth) obstacle_ = {};
  if (!IsInside()) return;  // on some failures (a full disk) SQLite has done it by itself
  const bool is_whole = depth == 0 && !is_all_savepoints_;
  const SqlBuffer sql =
      ForLevel(is_whole ? "ROLLBACK" : "ROLLBACK TO nested#; RELEASE nested#", depth);
  const int code = Run(sql.data());
  if (code == SQLITE_OK || !IsInside()) return;
  must_roll_back_ = true;
  RaiseSqliteError(database_, code, sql.data());
}

void TransactionStack::Refuse() {
  if (must_roll_back_) {
    const int code = IsInside() ? Run("ROLLBACK") : SQLITE_OK;
    if (code != SQLITE_OK && IsInside()) RaiseSqliteError(database_, code, "ROLLBACK");
    must_roll_back_ = false;
    is_statements_lost_ = is_all_savepoints_;
    if (!IsLost() && !obstacle_.refuses_statements) return;
  }
  RaiseObstacle("TSLMRep5");
}

void TransactionStack::RaiseObstacle(const char* source) const {
  const std::string reason = obstacle_.text.data();
  if (IsLost()) {
    throw Error(SQLITE_ABORT_ROLLBACK, source,
                "The transaction was already rolled back by the database" +
                    (reason.empty() ? reason : " (" + reason + ")") +
                    "; nothing more is run until it is ended by a rollback.");
  }
  if (obstacle_.refuses_statements) throw Error(obstacle_.number, source, reason);
  throw Error(
      obstacle_.number, source,
      "The transaction cannot be committed, because a failure in it went unheeded: " + reason);
}

void TransactionStack::RefuseForeignEnd(const char* source) {
  Note(levels_.size(), error_number::kInvalidCall, true,
       "The transaction of a running operation was to be ended by somebody else, an event handler"
       " for instance; the operation's changes are undone.");
  throw Error(error_number::kInvalidCall, source,
              "The innermost transaction belongs to an operation that is still running, and only"
              " that ends it.");
}

void TransactionStack::RefuseStatementControl() {
  if (levels_.empty()) return;
  if (levels_.back().token != 0) RefuseForeignEnd("Execute");
  throw Error(error_number::kInvalidCall, "Execute",
              "A transaction that BeginTrans began is ended by CommitTrans or RollbackTrans, not by"
              " a statement.");
}

void TransactionStack::EndLostByStatement() noexcept {
  is_statements_lost_ = false;
  obstacle_ = {};
}

void TransactionStack::NoteFailure(const std::exception& failure, bool was_inside) noexcept {
  if (!was_inside) return;
  const auto* sqlite = dynamic_cast<const SqliteFailure*>(&failure);
  if (IsStored(failure) && !IsInside()) return;  // that was the commit
  const auto* error = dynamic_cast<const Error*>(&failure);
  const bool is_memory = dynamic_cast<const std::bad_alloc*>(&failure) != nullptr ||
                         (error != nullptr && error->Number() == error_number::kOutOfMemory);
  const int number = sqlite != nullptr ? sqlite->Number() : SQLITE_NOMEM;
  const char* text = error != nullptr ? failure.what() : "out of memory";
  if (!IsInside()) {
    is_statements_lost_ = levels_.empty() || is_all_savepoints_;
    Note(1, SQLITE_ABORT_ROLLBACK, true, text);
  } else if (is_memory || (sqlite != nullptr && IsPassing(number) &&
                           (number & 0xFF) != SQLITE_BUSY && (number & 0xFF) != SQLITE_LOCKED)) {
    Note(levels_.size(), number, false, text);
  }
}

void TransactionStack::NoteLostChange(const std::exception& failure) noexcept {
  const auto* error = dynamic_cast<const Error*>(&failure);
  Note(levels_.size(), error != nullptr ? error->Number() : SQLITE_NOMEM, false, failure.what());
}

void TransactionStack::Note(std::size_t depth, int number, bool refuses_statements,
                            std::string_view text) noexcept {
  if (depth == 0 && !is_statements_lost_) return;
  if (obstacle_.depth != 0 && obstacle_.depth <= depth) {
    obstacle_.refuses_statements = obstacle_.refuses_statements || refuses_statements;
    return;
  }
  std::size_t size = std::min(text.size(), obstacle_.text.size() - 1);
  while (size > 0 && size < text.size() &&
         (static_cast<unsigned char>(text[size]) & 0xC0) == 0x80) {
    --size;
  }
  obstacle_ = {std::max<std::size_t>(depth, 1), number, refuses_statements, {}};
  std::copy_n(text.begin(), size, obstacle_.text.begin());
}

}  // namespace tslm5
