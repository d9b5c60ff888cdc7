#ifndef TSLM5_CONTRACTS_DATA_SET_EVENTS_H_
#define TSLM5_CONTRACTS_DATA_SET_EVENTS_H_

#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/event_args.h"
#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// Sink of a `DataSetLite`'s events, raised on the caller's thread; the handler runs before the
/// work goes on. Attach with `IConnectionPoint::Advise`.
class IDataSetLiteEvents : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000024ULL, 0x8a1f4c0b6d2e7324ULL};

  /// Once, before a data check reads its file, whose name is `Source`. `Cancel` ends the check,
  /// whose result is false then, without a message.
  virtual void BeforeDataCheck(IParseEventArgs* pEvArgs) = 0;
  /// At each end of a data check, the result in `Message`; twice when a handler cancelled (meant).
  virtual void AfterDataCheck(IParseEventArgs* pEvArgs) = 0;
  /// A progress text of the data check, in `Message`; `Cancel` ends the check.
  virtual void LoadFeedback(IParseEventArgs* pEvArgs) = 0;
  /// Before records are stored, their number in `Rows` and `Columns`; `Cancel` ends the load before
  /// anything is changed but for `SetData`, which has emptied the set.
  virtual void BeforeDataLoad(IDataSet* sender, IParseEventArgs* pEvArgs) = 0;
  /// At the end of a load, also of one that failed: the result in `Message`, the set's records now
  /// in `Rows`. A failure is raised to the caller after it.
  virtual void AfterDataLoad(IDataSet* sender, IParseEventArgs* pEvArgs) = 0;
  /// Never raised by a `DataSetLite` (meant): its cancelled loads end with `AfterDataLoad`.
  virtual void DataLoadCancelled(IParseEventArgs* pEvArgs) = 0;
  /// After each stored record; `Cancel` takes back every record of the load.
  virtual void RecordParsed(IRecordParsedEventArgs* pEvArgs) = 0;

 protected:
  ~IDataSetLiteEvents() = default;
};

/// Sink of an `InMemorySet`'s events; only `DataLoadCancelled` differs from the other class's.
class IInMemorySetEvents : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000025ULL, 0x8a1f4c0b6d2e7325ULL};

  /// Once, before a data check reads its file, whose name is `Source`. `Cancel` ends the check,
  /// whose result is false then, without a message.
  virtual void BeforeDataCheck(IParseEventArgs* pEvArgs) = 0;
  /// At each end of a data check, the result in `Message`; twice when a handler cancelled (meant).
  virtual void AfterDataCheck(IParseEventArgs* pEvArgs) = 0;
  /// A progress text of the data check, in `Message`; `Cancel` ends the check.
  virtual void LoadFeedback(IParseEventArgs* pEvArgs) = 0;
  /// Before records are converted, their number in `Rows` and `Columns`; `Cancel` empties the set.
  virtual void BeforeDataLoad(IDataSet* sender, IParseEventArgs* pEvArgs) = 0;
  /// At the end of a parse that was done, its records in `Rows`.
  virtual void AfterDataLoad(IDataSet* sender, IParseEventArgs* pEvArgs) = 0;
  /// In place of `AfterDataLoad` when a handler of `RecordParsed` cancelled; the set is empty.
  virtual void DataLoadCancelled(IDataSet* sender, IParseEventArgs* pEvArgs) = 0;
  /// After each converted record. `Cancel`, and an `Error` above 0, empty the set; the latter is
  /// raised to the caller.
  virtual void RecordParsed(IRecordParsedEventArgs* pEvArgs) = 0;

 protected:
  ~IInMemorySetEvents() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_DATA_SET_EVENTS_H_
