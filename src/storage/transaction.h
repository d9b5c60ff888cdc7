#ifndef TSLM5_STORAGE_TRANSACTION_H_
#define TSLM5_STORAGE_TRANSACTION_H_

#include "tslm5/engine/connection.h"

namespace tslm5 {

/// A transaction that rolls back on the way out unless it was committed.
class Transaction {
 public:
  explicit Transaction(IConnection& connection) : connection_(connection) {
    connection_.BeginTrans();
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  ~Transaction() {
    if (open_) Rollback();
  }

  void Commit() {
    connection_.CommitTrans();
    open_ = false;
  }

  /// Undoes the changes now. A failure of the database to do so is not raised: the error that led
  /// here says more.
  void Rollback() noexcept {
    open_ = false;
    try {
      connection_.RollbackTrans();
    } catch (...) {
      return;
    }
  }

 private:
  IConnection& connection_;
  bool open_ = true;
};

}  // namespace tslm5

#endif  // TSLM5_STORAGE_TRANSACTION_H_
