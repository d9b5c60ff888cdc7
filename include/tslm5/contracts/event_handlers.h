#ifndef TSLM5_CONTRACTS_EVENT_HANDLERS_H_
#define TSLM5_CONTRACTS_EVENT_HANDLERS_H_

#include <functional>

#include "tslm5/contracts/data_set_events.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// A ready-made sink of a `DataSetLite`'s events: set the handlers you want, then attach it.
/// Made by `MakeObject<EventHandlers>()`.
class EventHandlers final : public CountedObject<IDataSetLiteEvents> {
 public:
  EventHandlers() = default;

  using ParseHandler = std::function<void(IParseEventArgs&)>;
  using LoadHandler = std::function<void(IDataSet&, IParseEventArgs&)>;
  using RecordHandler = std::function<void(IRecordParsedEventArgs&)>;

  ParseHandler on_before_data_check;
  ParseHandler on_after_data_check;
  ParseHandler on_load_feedback;
  LoadHandler on_before_data_load;
  LoadHandler on_after_data_load;
  ParseHandler on_data_load_cancelled;
  RecordHandler on_record_parsed;

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
