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
  static constexpr Uuid kId{0x54534c4d35000024ULL, 0x8a1f4c0b6d2e7324ULL};

  virtual void BeforeDataCheck(IParseEventArgs* pEvArgs) = 0;
  virtual void AfterDataCheck(IParseEventArgs* pEvArgs) = 0;
  virtual void LoadFeedback(IParseEventArgs* pEvArgs) = 0;
  virtual void BeforeDataLoad(IDataSet* sender, IParseEventArgs* pEvArgs) = 0;
  virtual void AfterDataLoad(IDataSet* sender, IParseEventArgs* pEvArgs) = 0;
  virtual void DataLoadCancelled(IParseEventArgs* pEvArgs) = 0;
  virtual void RecordParsed(IRecordParsedEventArgs* pEvArgs) = 0;

 protected:
  ~IDataSetLiteEvents() = default;
};

/// Sink of an `InMemorySet`'s events; only `DataLoadCancelled` differs from the other class's.
class IInMemorySetEvents : public IUnknown {
 public:
  static constexpr Uuid kId{0x54534c4d35000025ULL, 0x8a1f4c0b6d2e7325ULL};

  virtual void BeforeDataCheck(IParseEventArgs* pEvArgs) = 0;
  virtual void AfterDataCheck(IParseEventArgs* pEvArgs) = 0;
  virtual void LoadFeedback(IParseEventArgs* pEvArgs) = 0;
  virtual void BeforeDataLoad(IDataSet* sender, IParseEventArgs* pEvArgs) = 0;
  virtual void AfterDataLoad(IDataSet* sender, IParseEventArgs* pEvArgs) = 0;
  virtual void DataLoadCancelled(IDataSet* sender, IParseEventArgs* pEvArgs) = 0;
  virtual void RecordParsed(IRecordParsedEventArgs* pEvArgs) = 0;

 protected:
  ~IInMemorySetEvents() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_DATA_SET_EVENTS_H_
