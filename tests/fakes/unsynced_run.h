#ifndef TSLM5_TESTS_FAKES_UNSYNCED_RUN_H_
#define TSLM5_TESTS_FAKES_UNSYNCED_RUN_H_

#include <string_view>
#include <utility>

#include "tslm5/engine/connection.h"
#include "tslm5/engine/connection_service.h"
#include "tslm5/engine/transaction.h"
#include "tslm5/platform/error.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// A connection whose folder cannot be synced: every outermost transaction is committed and then
/// told as `kStoredUnsynced`.
class UnsyncedConnection final : public CountedObject<IConnection> {
 public:
  explicit UnsyncedConnection(Ref<IConnection> real) : real_(std::move(real)) {}

  std::string_view TypeName() override { return "Connection"; }

  void Execute(std::string_view pSql) override { real_->Execute(pSql); }
  Ref<IDataReader> ExecuteReader(std::string_view pSql) override {
    return real_->ExecuteReader(pSql);
  }
  Ref<IRecordSet> OpenRecordSet(std::string_view pSql) override {
    return real_->OpenRecordSet(pSql);
  }
  void BeginTrans() override {
    real_->BeginTrans();
    ++depth_;
  }
  void CommitTrans() override {
    real_->CommitTrans();
    if (--depth_ == 0) throw Error(error_number::kStoredUnsynced, "TSLMRep5", "stored, unsynced");
  }
  void RollbackTrans() override {
    real_->RollbackTrans();
    --depth_;
  }
  bool TableExists(std::string_view pTableName) override { return real_->TableExists(pTableName); }

 private:
  ~UnsyncedConnection() override = default;

  Ref<IConnection> real_;
  int depth_ = 0;
};

/// A run object with such a connection.
class UnsyncedRun final : public CountedObject<IConnectionService> {
 public:
  explicit UnsyncedRun(Ref<IConnection> real)
      : connection_(MakeObject<UnsyncedConnection>(std::move(real))) {}

  std::string_view TypeName() override { return "Run"; }
  Variant GetConnection() override { return Variant(connection_); }

 private:
  ~UnsyncedRun() override = default;

  Ref<IConnection> connection_;
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_FAKES_UNSYNCED_RUN_H_
