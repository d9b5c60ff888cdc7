#ifndef TSLM5_CONTRACTS_EVENT_HANDLERS_H_
#define TSLM5_CONTRACTS_EVENT_HANDLERS_H_

#include <functional>

#include "tslm5/contracts/data_set_events.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// A ready-made sink of a `DataSetLite`'s events: set the handlers you want, then attach it.
/// Made by `MakeObject<EventHandlers>()`. A handler that is not set lets its event pass; what one
/// throws passes to the raiser. The arguments are borrowed for the call. Caller's thread only.
class EventHandlers final : public CountedObject<IDataSetLiteEvents> {
 public:
  EventHandlers() = default;

  using ParseHandler = std::function<void(IParseEventArgs&)>;  ///< of a check
  using LoadHandler =
      std::function<void(IDataSet&, IParseEventArgs&)>;                ///< of a load, its set first
  using RecordHandler = std::function<void(IRecordParsedEventArgs&)>;  ///< of one record

  ParseHandler on_before_data_check;    ///< for `BeforeDataCheck`
  ParseHandler on_after_data_check;     ///< for `AfterDataCheck`
  ParseHandler on_load_feedback;        ///< for `LoadFeedback`
  LoadHandler on_before_data_load;      ///< for `BeforeDataLoad`
  LoadHandler on_after_data_load;       ///< for `AfterDataLoad`
  ParseHandler on_data_load_cancelled;  ///< for `DataLoadCancelled`
  RecordHandler on_record_parsed;       ///< for `RecordParsed`

  std::string_view TypeName() override { return "EventHandlers"; }

  void BeforeDataCheck(IParseEventArgs* pEvArgs) override {
    if (on_before_data_check) on_before_data_check(*pEvArgs);
  }
  void AfterDataCheck(IParseEventArgs* pEvArgs) override {
    if (on_after_data_check) on_after_data_check(*pEvArgs);
  }
  void LoadFeedback(IParseEventArgs* pEvArgs) override {
    if (on_load_feedback) on_load_feedback(*pEvArgs);
  }
  void BeforeDataLoad(IDataSet* sender, IParseEventArgs* pEvArgs) override {
    if (on_before_data_load) on_before_data_load(*sender, *pEvArgs);
  }
  void AfterDataLoad(IDataSet* sender, IParseEventArgs* pEvArgs) override {
    if (on_after_data_load) on_after_data_load(*sender, *pEvArgs);
  }
  void DataLoadCancelled(IParseEventArgs* pEvArgs) override {
    if (on_data_load_cancelled) on_data_load_cancelled(*pEvArgs);
  }
  void RecordParsed(IRecordParsedEventArgs* pEvArgs) override {
    if (on_record_parsed) on_record_parsed(*pEvArgs);
  }

 private:
  ~EventHandlers() override = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_EVENT_HANDLERS_H_
