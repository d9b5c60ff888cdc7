#ifndef TSLM5_TESTS_FAKES_RECORDING_RUN_H_
#define TSLM5_TESTS_FAKES_RECORDING_RUN_H_

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tslm5/engine/connection.h"
#include "tslm5/engine/connection_service.h"
#include "tslm5/platform/error.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// What was sent through a recording connection: the statements to the blank, and "BEGIN",
/// "COMMIT" and "ROLLBACK" for the ends of transactions.
struct StatementLog {
  std::vector<std::string> statements;
  /// Runs before a statement is handed on, once it is noted; what it throws is raised instead.
  std::function<void(std::string_view statement)> before;

  void Note(std::string_view statement) {
    statements.emplace_back(statement);
    if (before) before(statement);
  }

  void Clear() { statements.clear(); }

  /// Makes the `number`-th statement from now on, counted from 1, raise `error` and do nothing.
  void FailAt(std::size_t number, Error error) {
    before = [this, last = statements.size() + number, error](std::string_view) {
      if (statements.size() == last) throw error;
    };
  }
};

/// Notes every statement in a log and hands it on to a real connection.
class RecordingConnection final : public CountedObject<IConnection> {
 public:
  RecordingConnection(Ref<IConnection> real, std::shared_ptr<StatementLog> log)
      : real_(std::move(real)), log_(std::move(log)) {}

  std::string_view TypeName() override { return "Connection"; }

  void Execute(std::string_view pSql) override {
    log_->Note(pSql);
    real_->Execute(pSql);
  }
  Ref<IDataReader> ExecuteReader(std::string_view pSql) override {
    log_->Note(pSql);
    return real_->ExecuteReader(pSql);
  }
  Ref<IRecordSet> OpenRecordSet(std::string_view pSql) override {
    log_->Note(pSql);
    return real_->OpenRecordSet(pSql);
  }
  void BeginTrans() override {
    log_->Note("BEGIN");
    real_->BeginTrans();
  }
  void CommitTrans() override {
    log_->Note("COMMIT");
    real_->CommitTrans();
  }
  void RollbackTrans() override {
    log_->Note("ROLLBACK");
    real_->RollbackTrans();
  }
  bool TableExists(std::string_view pTableName) override { return real_->TableExists(pTableName); }

 private:
  ~RecordingConnection() override = default;

  Ref<IConnection> real_;
  std::shared_ptr<StatementLog> log_;
};

/// A run object whose connection records.
class RecordingRun final : public CountedObject<IConnectionService> {
 public:
  explicit RecordingRun(const Ref<IConnectionService>& real)
      : connection_(MakeObject<RecordingConnection>(
            Query<IConnection>(real->GetConnection().ToObject()), log_)) {}

  std::string_view TypeName() override { return "Run"; }
  Variant GetConnection() override { return Variant(connection_); }
  StatementLog& Log() { return *log_; }

 private:
  ~RecordingRun() override = default;

  std::shared_ptr<StatementLog> log_ = std::make_shared<StatementLog>();
  Ref<IConnection> connection_;
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_FAKES_RECORDING_RUN_H_
