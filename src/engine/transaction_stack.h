#ifndef TSLM5_ENGINE_TRANSACTION_STACK_H_
#define TSLM5_ENGINE_TRANSACTION_STACK_H_

#include <sqlite3.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <string_view>
#include <vector>

namespace tslm5 {

/// The transactions of one connection, each inside the one before it, and what forbids to go on in
/// them. The outermost is SQLite's transaction, the others are savepoints; all are savepoints
/// inside one that a statement began. Ways out of a transaction allocate nothing.
class TransactionStack {
 public:
  explicit TransactionStack(sqlite3* database) : database_(database) {}

  /// Raises what forbids every statement at present: SQLite has rolled back by itself (516), or
  /// somebody has tried to end a guarded transaction (5). Until the transaction is ended, the next
  /// statement would run outside of it, or for nothing.
  void RequireUsable() {
    if (must_roll_back_ || obstacle_.refuses_statements || IsLost()) Refuse();
  }

  /// Whether the next statement runs inside a transaction, whoever began it.
  bool IsInside() const { return sqlite3_get_autocommit(database_) == 0; }

  /// Begins a transaction; the token of a guarded one, 0 for any other.
  std::int64_t Begin(bool is_guarded);
  /// Raises 5 unless `source` may end the innermost transaction without a token.
  void RequireUnguarded(const char* source);
  /// Raises what forbids to keep the changes of the innermost transaction.
  void RequireCommittable();
  /// End the innermost transaction.
  void CommitInnermost();
  void RollbackInnermost();
  /// See `IGuardedTransactions`.
  void CommitGuarded(std::int64_t token);
  void RollbackGuarded(std::int64_t token);
  bool IsOpen(std::int64_t token) const;

  /// Raises 5 when a statement is to end or begin a transaction among those of `Begin`.
  void RefuseStatementControl();
  /// Whether SQLite has rolled back a transaction that a statement began, and the statement
  /// "ROLLBACK" is to end it.
  bool IsStatementsLost() const { return is_statements_lost_ && levels_.empty(); }
  void EndLostByStatement() noexcept;

  /// To be called for whatever left a statement by an exception, with `IsInside` as it was before.
  /// Where SQLite has rolled back, no further statement runs. A passing failure of SQLite or a lack
  /// of memory, which somebody above may take for an answer, makes the commit fail.
  void NoteFailure(const std::exception& failure, bool was_inside) noexcept;
  /// Makes the commit of the open transaction, if there is one, fail: a change was lost.
  void NoteLostChange(const std::exception& failure) noexcept;

 private:
  struct Level {
    std::int64_t token = 0;  // 0 when it is not guarded
    bool operator==(const Level&) const = default;
  };
  /// What stands against going on, in a buffer of its own: it is noted when memory is short.
  struct Obstacle {
    std::size_t depth = 0;  // of the transaction that has to go, 1 for the outermost; 0 for none
    int number = 0;
    bool refuses_statements = false;
    std::array<char, 256> text{};
  };

  bool IsLost() const { return (!levels_.empty() || is_statements_lost_) && !IsInside(); }
  void Refuse();
  [[noreturn]] void RaiseObstacle(const char* source) const;
  [[noreturn]] void RefuseForeignEnd(const char* source);
  void Note(std::size_t depth, int number, bool refuses_statements, std::string_view text) noexcept;
  void CommitLevel();
  /// Ends the levels above the first `depth`, undoing their changes.
  void RollbackTo(std::size_t depth);
  int Run(const char* sql) { return sqlite3_exec(database_, sql, nullptr, nullptr, nullptr); }

  sqlite3* database_;
  std::vector<Level> levels_;        // outermost first
  bool is_all_savepoints_ = false;   // a statement began the transaction around the levels
  bool is_statements_lost_ = false;  // the transaction that a statement began is gone
  bool must_roll_back_ = false;      // undoing failed; nothing goes on before it has succeeded
  std::int64_t last_token_ = 0;
  Obstacle obstacle_;
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_TRANSACTION_STACK_H_
