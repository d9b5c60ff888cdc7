#ifndef TSLM5_ENGINE_TRANSACTION_H_
#define TSLM5_ENGINE_TRANSACTION_H_

#include <cstdint>
#include <exception>

#include "tslm5/engine/connection.h"
#include "tslm5/engine/guarded_transactions.h"
#include "tslm5/platform/error.h"
#include "tslm5/platform/ref.h"

namespace tslm5 {

namespace error_number {

/// The engine raises it, SQLite's own code, when a change is stored and its transaction has ended,
/// but the folder of the run cannot be synced: a power loss may still undo it. Not to be done
/// again.
inline constexpr std::int32_t kStoredUnsynced = 1290;

}  // namespace error_number

/// Whether what was raised says that the change is stored.
inline bool IsStored(const std::exception& failure) noexcept {
  const auto* error = dynamic_cast<const Error*>(&failure);
  return error != nullptr && error->Number() == error_number::kStoredUnsynced;
}

/// Runs `change`, then `follow`: also where `change` raises that it is stored but unsynced, which
/// passes on after that. Nothing else that `change` raises lets `follow` run.
template <class Change, class Follow>
void OnceStored(Change change, Follow follow) {
  try {
    change();
  } catch (const Error& error) {
    if (IsStored(error)) follow();
    throw;
  }
  follow();
}

/// A transaction that rolls back on the way out unless it was committed. Where the connection
/// offers guarded transactions it is one: nobody else ends it in the middle. Let it go before the
/// connection.
class Transaction {
 public:
  /// Begins it. Raises what the engine raises.
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

  /// Keeps the changes, and runs `take_over`, which must not fail, to make memory follow them: once
  /// they are stored, also before `kStoredUnsynced` passes on.
  template <class TakeOver>
  void Commit(TakeOver take_over) {
    OnceStored([this] { End(); },
               [this, &take_over]() noexcept {
                 open_ = false;
                 guarded_.Reset();
                 take_over();
               });
  }
  /// Keeps the changes. Raises what the engine raises; they are undone then, but for
  /// `kStoredUnsynced`.
  void Commit() {
    Commit([] {});
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
  void End() {
    if (guarded_) {
      guarded_->CommitGuarded(token_);
    } else {
      connection_.CommitTrans();
    }
  }

  IConnection& connection_;
  Ref<IGuardedTransactions> guarded_;
  std::int64_t token_ = 0;
  bool open_ = true;
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_TRANSACTION_H_
