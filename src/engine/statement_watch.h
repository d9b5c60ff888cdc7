#ifndef TSLM5_ENGINE_STATEMENT_WATCH_H_
#define TSLM5_ENGINE_STATEMENT_WATCH_H_

#include <sqlite3.h>

#include <string_view>
#include <vector>

#include "engine/sqlite_statement.h"
#include "engine/table_versions.h"

namespace tslm5 {

/// What a statement does to the database when it runs, triggers and foreign keys included.
struct StatementEffects {
  /// More than records of `tables` may change: the schema, a setting, what a rollback brings back.
  bool changes_all = false;
  /// BEGIN, COMMIT, SAVEPOINT and their like.
  bool controls_transaction = false;
  bool is_rollback = false;  // of a whole transaction
  /// The counters of the tables whose records it writes.
  std::vector<TableVersions::Counter*> tables;
};

/// Learns from SQLite, while a statement is compiled, what it is going to write. One a connection.
class StatementWatch {
 public:
  StatementWatch(sqlite3* database, TableVersions& versions);
  StatementWatch(const StatementWatch&) = delete;
  StatementWatch& operator=(const StatementWatch&) = delete;

  /// Compiles `sql` and tells its effects.
  SqliteStatement Compile(std::string_view sql, StatementEffects& effects);

  /// Runs `work()`, whose statements the caller accounts for, and gives its result.
  template <class Work>
  decltype(auto) Quietly(Work&& work) {
    struct Ignored {
      explicit Ignored(StatementEffects*& watched) : watched_(watched) { watched_ = &effects_; }
      Ignored(const Ignored&) = delete;
      Ignored& operator=(const Ignored&) = delete;
      ~Ignored() { watched_ = nullptr; }
      StatementEffects*& watched_;
      StatementEffects effects_;
    };
    const Ignored ignored(effects_);
    return work();
  }

  /// Whether a statement that writes was compiled outside of `Compile` since the last call: one was
  /// compiled again while it ran, because the schema had changed.
  bool TakeUnseen() { return std::exchange(has_unseen_, false); }

 private:
  static int OnAction(void* self, int action, const char* first, const char* second,
                      const char* database, const char* trigger) noexcept;
  void NoteAction(int action, const char* first);
  void NoteTable(std::string_view table);

  sqlite3* database_;
  TableVersions& versions_;
  StatementEffects* effects_ = nullptr;  // of the statement that is being compiled
  bool has_unseen_ = false;
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_STATEMENT_WATCH_H_
