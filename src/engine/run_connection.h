#ifndef TSLM5_ENGINE_RUN_CONNECTION_H_
#define TSLM5_ENGINE_RUN_CONNECTION_H_

#include <sqlite3.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/connection_dispatch.h"
#include "engine/hot_journal.h"
#include "engine/literal_inserter.h"
#include "platform/only_errors.h"
#include "tslm5/engine/connection.h"
#include "tslm5/engine/number_inserter.h"
#include "tslm5/engine/open_run.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

class SqliteRecordSet;

/// The engine's connection: owner of the SQLite handle, of the write counter that keeps record sets
/// coherent, and of the list of record sets whose changes have not reached their table yet.
class RunConnection final : public FacetOwner {
 public:
  /// Opens the database; see `OpenRun` for what is raised.
  RunConnection(const std::string& path, const RunOptions& options);

  std::string_view TypeName() override { return "Connection"; }

  void Execute(std::string_view sql);
  Ref<IDataReader> ExecuteReader(std::string_view sql);
  Ref<IRecordSet> OpenRecordSet(std::string_view sql);
  void BeginTrans();
  void CommitTrans();
  void RollbackTrans();
  bool TableExists(std::string_view table_name);
  bool InsertNumbers(std::string_view head, std::span<const double> numbers, std::int32_t row);

  sqlite3* Database() const { return database_; }
  /// What opening the database undid.
  const Recovery& OpeningRecovery() const { return recovery_; }

  /// Grows with everything that may have changed a table.
  std::uint64_t Writes() const { return writes_; }
  void CountWrite() { ++writes_; }
  /// What a statement that is no SELECT, or a rollback, leaves behind: other records, and perhaps
  /// other tables.
  void NoteChange();

  /// `record_set` has changes now that the table does not have; counts as a write.
  void NotePending(SqliteRecordSet* record_set);
  void ForgetPending(SqliteRecordSet* record_set);
  /// Writes the pending changes of every record set.
  void WritePending();

  /// Runs `work(database)` in a transaction of its own, nested if there is one already.
  template <class Work>
  void RunInTransaction(Work&& work) {
    Begin();
    try {
      work(database_);
      Commit();
    } catch (...) {
      Rollback();
      throw;
    }
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

  ~RunConnection() override;
  void* FindFacet(const Uuid& pId) override;

  void Configure(const std::string& path, const RunOptions& options);
  bool RunByBinding(std::string_view sql);
  /// Runs `run()`, which says whether it wrote, and counts the write.
  template <class BoundRun>
  bool Bound(BoundRun&& run) {
    try {
      if (!run()) return false;
    } catch (...) {
      NoteChange();  // SQLite may have rolled the transaction back
      throw;
    }
    ++writes_;
    return true;
  }
  void RunPlain(std::string_view sql);
  void Begin();
  void Commit();
  void Rollback();

  sqlite3* database_ = nullptr;
  Recovery recovery_;
  std::uint64_t writes_ = 0;
  std::vector<std::string> transactions_;  // outermost first: a savepoint's name, or "" for none
  LiteralInserter inserter_{nullptr};
  std::vector<SqliteRecordSet*> pending_;
  ConnectionFacet connection_facet_{*this};
  NumberInserterFacet number_inserter_facet_{*this};
  ConnectionDispatch dispatch_facet_{*this, connection_facet_};
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_RUN_CONNECTION_H_
