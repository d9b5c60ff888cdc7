#ifndef TSLM5_STORAGE_TRANSACTION_H_
#define TSLM5_STORAGE_TRANSACTION_H_

#include <cstdint>

#include "tslm5/engine/connection.h"
#include "tslm5/engine/guarded_transactions.h"
#include "tslm5/platform/ref.h"

namespace tslm5 {

/// A transaction that rolls back on the way out unless it was committed. Where the connection
/// offers guarded transactions it is one: nobody else ends it in the middle.
class Transaction {
 public:
  explicit Transaction(IConnection& connection)
      : connection_(connection), guarded_(Query<IGuardedTransactions>(&connection)) {
    if (guarded_) {
      token_ = guarded_->BeginGuarded();
    } else {
      connection_.BeginTrans();
    }
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  ~Transaction() {
    if (open_) Rollback();
  }

  void Commit() {
    if (guarded_) {
      guarded_->CommitGuarded(token_);
    } else {
      connection_.CommitTrans();
    }
    open_ = false;
  }

  /// Undoes the changes now. A failure of the database to do so is not raised: the error that led
  /// here says more.
  void Rollback() noexcept {
    open_ = false;
    try {
      if (guarded_) {
        guarded_->RollbackGuarded(token_);
      } else {
        connection_.RollbackTrans();
      }
    } catch (...) {  // of whatever kind: memory may be short
      return;
    }
  }

 private:
  IConnection& connection_;
  Ref<IGuardedTransactions> guarded_;
  std::int64_t token_ = 0;
  bool open_ = true;
};

}  // namespace tslm5

#endif  // TSLM5_STORAGE_TRANSACTION_H_
