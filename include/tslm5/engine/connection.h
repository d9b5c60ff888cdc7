#ifndef TSLM5_ENGINE_CONNECTION_H_
#define TSLM5_ENGINE_CONNECTION_H_

#include <string_view>

#include "tslm5/engine/data_reader.h"
#include "tslm5/engine/record_set.h"
#include "tslm5/platform/ref.h"
#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// An open run database. Every failure raises an `Error` whose number is SQLite's extended result
/// code and whose description holds SQLite's text and the beginning of the statement.
/// When SQLite rolls a transaction back by itself (a full disk, short memory), every further
/// statement raises 516 until `RollbackTrans`, or the statement "ROLLBACK" for one that a statement
/// began, has ended it: none runs outside of the transaction that it was meant for.
/// Beyond SQLite's own functions it knows the aggregates `median` and `stdev`.
/// `Execute`, `ExecuteReader`, `BeginTrans`, `CommitTrans`, `RollbackTrans` and `TableExists` can
/// also be called by name, through `IDispatch`. Caller's thread only.
class IConnection : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000043ULL, 0x8a1f4c0b6d2e7343ULL};

  /// Runs exactly one statement, with or without a ";" at its end. Anything but blanks and
  /// comments after it is refused, and nothing is run. A transaction that `BeginTrans` began is not
  /// ended, and none is begun inside it, by a statement: 5.
  virtual void Execute(std::string_view pSql) = 0;
  /// Runs a SELECT; the reader starts before the first record. What is no query raises 1.
  virtual Ref<IDataReader> ExecuteReader(std::string_view pSql) = 0;
  /// Runs a SELECT and gives its records for random access.
  virtual Ref<IRecordSet> OpenRecordSet(std::string_view pSql) = 0;
  /// Begins a transaction; inside one, begins a nested one that ends on its own.
  virtual void BeginTrans() = 0;
  /// Ends the innermost transaction, keeping its changes; raises 5 when there is none, or when it
  /// belongs to an operation that is running (see `IGuardedTransactions`). Raises again what
  /// failed inside the transaction when that leaves its changes in doubt (a damaged page, short
  /// memory, a pending change that was lost), whoever caught it then; the transaction stays open.
  virtual void CommitTrans() = 0;
  /// Ends the innermost transaction, undoing its changes; raises 5 as `CommitTrans` does.
  virtual void RollbackTrans() = 0;
  /// Whether a table (not a view) of that name exists; case does not matter.
  virtual bool TableExists(std::string_view pTableName) = 0;

 protected:
  ~IConnection() = default;
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_CONNECTION_H_
