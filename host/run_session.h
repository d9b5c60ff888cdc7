#ifndef TSLM5_HOST_RUN_SESSION_H_
#define TSLM5_HOST_RUN_SESSION_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "tslm5/contracts/data_set.h"
#include "tslm5/engine/connection.h"
#include "tslm5/engine/connection_service.h"
#include "tslm5/engine/open_run.h"
#include "tslm5/platform/ref.h"

namespace tslm5::host {

/// An open run. Let the datasets go before it.
class RunSession {
 public:
  /// Raises `Failure` for a database that is no run, and what `OpenRun` raises.
  RunSession(const std::string& path, RunOptions::Mode mode);

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
  void RefuseForeignDatabase(const std::string& path) const;

  Ref<IConnectionService> run_;
  Ref<IConnection> connection_;
};

/// Whether statistics can be computed in the run: those of every set need the training table.
bool HasStatistics(const RunSession& session);

/// A transaction that is rolled back unless it is committed.
class Transaction {
 public:
  explicit Transaction(IConnection& connection) : connection_(connection) {
    connection_.BeginTrans();
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction();

  void Commit();

 private:
  IConnection& connection_;
  bool is_open_ = true;
};

/// Takes a run's file away again when it was not there before, unless told to keep it.
class NewRunFile {
 public:
  explicit NewRunFile(std::string path);
  NewRunFile(const NewRunFile&) = delete;
  NewRunFile& operator=(const NewRunFile&) = delete;
  ~NewRunFile();

  void Keep() { must_go_ = false; }

 private:
  std::string path_;
  bool must_go_;
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_RUN_SESSION_H_
