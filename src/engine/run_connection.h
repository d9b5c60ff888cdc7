#ifndef TSLM5_ENGINE_RUN_CONNECTION_H_
#define TSLM5_ENGINE_RUN_CONNECTION_H_

#include <sqlite3.h>

#include <cstdint>
#include <exception>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/connection_dispatch.h"
#include "engine/hot_journal.h"
#include "engine/image_transfer.h"
#include "engine/literal_inserter.h"
#include "engine/statement_watch.h"
#include "engine/table_versions.h"
#include "engine/transaction_stack.h"
#include "platform/only_errors.h"
#include "tslm5/engine/connection.h"
#include "tslm5/engine/guarded_transactions.h"
#include "tslm5/engine/number_inserter.h"
#include "tslm5/engine/open_run.h"
#include "tslm5/engine/record_appender.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

class SqliteRecordAppender;
class SqliteRecordSet;

/// The engine's connection: owner of the SQLite handle, of its transactions, of the counters that
/// keep record sets coherent, and of the lists of record sets and appenders whose changes have not
/// reached their table yet.
class RunConnection final : public FacetOwner {
 public:
  /// Opens the database; see `OpenRun` for what is raised.
  RunConnection(const std::string& path, const RunOptions& options);

  std::string_view TypeName() override { return "Connection"; }

  void Execute(std::string_view sql);
  Ref<IDataReader> ExecuteReader(std::string_view sql);
  Ref<IRecordSet> OpenRecordSet(std::string_view sql);
  void BeginTrans() { Begin(false); }
  void CommitTrans();
  void RollbackTrans();
  bool TableExists(std::string_view table_name);
  bool InsertNumbers(std::string_view head, std::span<const double> numbers, std::int32_t row);

  Ref<IRecordAppender> OpenAppender(std::string_view table_name);

  /// See `IGuardedTransactions`.
  std::int64_t BeginGuarded() { return Begin(true); }
  void CommitGuarded(std::int64_t token);
  void RollbackGuarded(std::int64_t token);

  sqlite3* Database() const { return database_.Handle(); }
  /// What opening the database undid.
  const Recovery& OpeningRecovery() const { return database_.OpeningRecovery(); }

  TableVersions& Versions() { return versions_; }
  StatementWatch& Watch() { return watch_; }
  ImageTransfer& Transfer() { return transfer_; }

  /// Runs `work()`, which sends statements, and gives its result; refuses to while a transaction
  /// has to be ended first.
  template <class Work>
  decltype(auto) Guarded(Work&& work) {
    transactions_.RequireUsable();
    return Watched(std::forward<Work>(work));
  }

  /// Records with `effects` were written, or may be at once.
  void NoteWrite(const StatementEffects& effects);
  /// Whatever may have changed, has: records, and perhaps tables.
  void NoteChange() noexcept;
  /// A change of a record set could not be written, and nobody was told.
  void NoteLostChange(const std::exception& failure) noexcept {
    transactions_.NoteLostChange(failure);
  }

  /// `record_set` is going to have changes that its table does not have.
  void NotePending(SqliteRecordSet* record_set) { pending_.push_back(record_set); }
  void ForgetPending(SqliteRecordSet* record_set) noexcept;
  /// Writes the pending changes of every record set.
  void WriteRecordSets();

  /// `appender` is going to have records that its table does not have.
  void NoteAppending(SqliteRecordAppender* appender) { appending_.push_back(appender); }
  void ForgetAppended(SqliteRecordAppender* appender) noexcept { std::erase(appending_, appender); }
  /// Writes the records of every appender.
  void WriteAppended();

  /// Writes all that is not in its table yet, before a statement that may look there.
  void WritePending() {
    WriteAppended();
    WriteRecordSets();
  }

  /// Runs `work()` in a transaction of its own, nested if there is one already.
  template <class Work>
  void RunInTransaction(Work&& work) {
    Guarded([this, &work] {
      WriteAppended();
      const std::int64_t token = transactions_.Begin(true);
      try {
        work();
        transactions_.CommitGuarded(token);
      } catch (...) {
        EndQuietly(token);
        throw;
      }
    });
  }

 private:
  class ConnectionFacet final : public Facet<IConnection> {
   public:
    explicit ConnectionFacet(RunConnection& owner) : Facet(owner), connection_(owner) {}
    void Execute(std::string_view pSql) override {
      OnlyErrors([&] { connection_.Execute(pSql); });
    }
    Ref<IDataReader> ExecuteReader(std::string_view pSql) override {
      return OnlyErrors([&] { return connection_.ExecuteReader(pSql); });
    }
    Ref<IRecordSet> OpenRecordSet(std::string_view pSql) override {
      return OnlyErrors([&] { return connection_.OpenRecordSet(pSql); });
    }
    void BeginTrans() override {
      OnlyErrors([&] { connection_.BeginTrans(); });
    }
    void CommitTrans() override {
      OnlyErrors([&] { connection_.CommitTrans(); });
    }
    void RollbackTrans() override {
      OnlyErrors([&] { connection_.RollbackTrans(); });
    }
    bool TableExists(std::string_view pTableName) override {
      return OnlyErrors([&] { return connection_.TableExists(pTableName); });
    }

   private:
    RunConnection& connection_;
  };

  class TransactionsFacet final : public Facet<IGuardedTransactions> {
   public:
    explicit TransactionsFacet(RunConnection& owner) : Facet(owner), connection_(owner) {}
    std::int64_t BeginGuarded() override {
      return OnlyErrors([&] { return connection_.BeginGuarded(); });
    }
    void CommitGuarded(std::int64_t pToken) override {
      OnlyErrors([&] { connection_.CommitGuarded(pToken); });
    }
    void RollbackGuarded(std::int64_t pToken) override {
      OnlyErrors([&] { connection_.RollbackGuarded(pToken); });
    }

   private:
    RunConnection& connection_;
  };

  class NumberInserterFacet final : public Facet<INumberInserter> {
   public:
    explicit NumberInserterFacet(RunConnection& owner) : Facet(owner), connection_(owner) {}
    bool InsertNumbers(std::string_view pHead, std::span<const double> pNumbers,
                       std::int32_t pRow) override {
      return OnlyErrors([&] { return connection_.InsertNumbers(pHead, pNumbers, pRow); });
    }

   private:
    RunConnection& connection_;
  };

  class RecordAppendingFacet final : public Facet<IRecordAppending> {
   public:
    explicit RecordAppendingFacet(RunConnection& owner) : Facet(owner), connection_(owner) {}
    Ref<IRecordAppender> OpenAppender(std::string_view pTableName) override {
      return OnlyErrors([&] { return connection_.OpenAppender(pTableName); });
    }

   private:
    RunConnection& connection_;
  };

  /// An open database, closed when it goes, after everything that was made with it.
  class OpenDatabase {
   public:
    OpenDatabase(const std::string& path, const RunOptions& options);
    OpenDatabase(const OpenDatabase&) = delete;
    OpenDatabase& operator=(const OpenDatabase&) = delete;
    ~OpenDatabase() { sqlite3_close_v2(handle_); }
    sqlite3* Handle() const { return handle_; }
    const Recovery& OpeningRecovery() const { return recovery_; }

   private:
    Recovery recovery_;
    sqlite3* handle_ = nullptr;
  };

  ~RunConnection() override = default;
  void* FindFacet(const Uuid& pId) override;

  void Configure(const std::string& path, const RunOptions& options);
  template <class Work>
  decltype(auto) Watched(Work&& work) {
    const bool was_inside = transactions_.IsInside();
    try {
      return work();
    } catch (const std::exception& failure) {
      NoteFailure(failure, was_inside);
      throw;
    }
  }
  void NoteFailure(const std::exception& failure, bool was_inside) noexcept;
  bool EndLostTransaction(std::string_view sql);
  std::int64_t Begin(bool is_guarded);
  void EndQuietly(std::int64_t token) noexcept;
  void DropPending() noexcept;
  /// Ends what goes with a transaction alone, when none is open any longer.
  void TidyUp() noexcept {
    if (!transactions_.IsInside()) transfer_.Detach();
  }

  OpenDatabase database_;
  TableVersions versions_;
  StatementWatch watch_;
  TransactionStack transactions_;
  LiteralInserter inserter_;
  ImageTransfer transfer_;
  std::vector<SqliteRecordSet*> pending_;
  std::vector<SqliteRecordAppender*> appending_;
  ConnectionFacet connection_facet_{*this};
  TransactionsFacet transactions_facet_{*this};
  NumberInserterFacet number_inserter_facet_{*this};
  RecordAppendingFacet record_appending_facet_{*this};
  ConnectionDispatch dispatch_facet_{*this, connection_facet_};
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_RUN_CONNECTION_H_
