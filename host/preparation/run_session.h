#ifndef TSLM5_HOST_PREPARATION_RUN_SESSION_H_
#define TSLM5_HOST_PREPARATION_RUN_SESSION_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "host/program/set_names.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/engine/connection.h"
#include "tslm5/engine/connection_service.h"
#include "tslm5/engine/open_run.h"
#include "tslm5/platform/ref.h"

namespace tslm5::host {

/// An open run. Let the datasets go before it.
class RunSession {
 public:
  /// Warns when opening the run has undone a change that a crash had interrupted. Raises `Failure`
  /// for a database that is no run, and what `OpenRun` raises.
  RunSession(const std::string& path, RunOptions::Mode mode);

  const std::string& Path() const { return path_; }
  IConnection& Connection() const { return *connection_; }
  const Ref<IConnectionService>& Run() const { return run_; }

  /// The version noted in the run; 0 for a run without tables.
  std::int32_t SchemaVersion() const;
  /// Makes the tables that the run does not have yet.
  void CreateSchema() const;

  /// The dataset over the table of set `type`; empty when the run has none.
  Ref<IDataSet> OpenDataSet(std::int32_t type) const;
  /// A dataset for set `type`, whether or not its table is there.
  Ref<IDataSet> AttachDataSet(std::int32_t type) const;

  /// The whole number that a SELECT of one cell gives; 0 for NULL and when there is no record.
  std::int32_t ReadInteger(std::string_view sql) const;
  /// The columns of a table without its row key, the last column; 0 when there is no such table.
  std::int32_t ColumnsOf(std::string_view table) const;

 private:
  void TellOfRecovery() const;
  /// A set says 0 of what it could not read, which must not pass for an answer.
  bool HasAnswers(IDataSet& data_set, const SetName& set, bool is_loaded) const;
  bool HasRecords(const SetName& set) const;
  void RefuseForeignDatabase() const;

  std::string path_;
  Ref<IConnectionService> run_;
  Ref<IConnection> connection_;
};

/// Whether statistics can be computed in the run: those of every set need the training table.
bool HasStatistics(const RunSession& session);

/// A transaction that is rolled back unless it is committed.
class Transaction {
 public:
  explicit Transaction(const RunSession& session) : session_(session) {
    session_.Connection().BeginTrans();
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction();

  /// Raises `Failure`, file trouble, when the run's path names another file by now, or none: what
  /// was committed is in a file that nobody can open any more.
  void Commit();

 private:
  const RunSession& session_;
  bool is_open_ = true;
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_RUN_SESSION_H_
