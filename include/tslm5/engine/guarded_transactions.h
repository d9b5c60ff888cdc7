#ifndef TSLM5_ENGINE_GUARDED_TRANSACTIONS_H_
#define TSLM5_ENGINE_GUARDED_TRANSACTIONS_H_

#include <cstdint>

#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// A face of a connection for operations that must be whole although foreign code (an event
/// handler) runs in the middle of them. A guarded transaction nests like any other, but only its
/// token ends it. Whoever tries to end it otherwise, with `CommitTrans`, `RollbackTrans` or a
/// statement, gets 5 raised; from then on every statement and the commit are refused with words
/// that say so, until its owner has rolled it back. Caller's thread only.
class IGuardedTransactions : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000048ULL, 0x8a1f4c0b6d2e7348ULL};

  /// Begins a transaction, inside one a nested one, and returns its token, which is never 0 and
  /// never given twice.
  virtual std::int64_t BeginGuarded() = 0;
  /// Keeps the changes. Raises 5 when the transaction is no longer the innermost, because a
  /// transaction begun inside it was left open, and whatever else `CommitTrans` raises; the
  /// transaction is then still there.
  virtual void CommitGuarded(std::int64_t pToken) = 0;
  /// Undoes the changes, and ends whatever was begun inside and left open. Does nothing for a
  /// transaction that has ended. Raises the engine's error when undoing fails; the transaction has
  /// ended all the same.
  virtual void RollbackGuarded(std::int64_t pToken) = 0;

 protected:
  ~IGuardedTransactions() = default;
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_GUARDED_TRANSACTIONS_H_
