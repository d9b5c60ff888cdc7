#ifndef TSLM5_TESTS_FAKES_RECORDING_EVENTS_H_
#define TSLM5_TESTS_FAKES_RECORDING_EVENTS_H_

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "tslm5/contracts/data_set_events.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// A listener of a `DataSetLite` that notes every event as a line, then runs the handler for it.
class RecordingEvents final : public CountedObject<IDataSetLiteEvents> {
 public:
  using LoadHandler = std::function<void(IDataSet& sender, IParseEventArgs& arguments)>;
  using RecordHandler = std::function<void(IRecordParsedEventArgs& arguments)>;

  LoadHandler on_before_data_load;
  LoadHandler on_after_data_load;
  RecordHandler on_record_parsed;

  /// The events in order: "BeforeDataLoad rows x columns", with ": message" where there is one, and
  /// "RecordParsed current of columns"; an event of any other kind by its name alone.
  std::vector<std::string> lines;
  /// `Source` and `ParseType` of the load events, joined by a blank.
  std::vector<std::string> sources;
  /// The sender of each load event, told by its identity, and the argument object of every event.
  std::vector<const void*> senders;
  std::vector<const void*> arguments;

  std::string_view TypeName() override { return "RecordingEvents"; }

  void BeforeDataCheck(IParseEventArgs*) override { lines.emplace_back("BeforeDataCheck"); }
  void AfterDataCheck(IParseEventArgs*) override { lines.emplace_back("AfterDataCheck"); }
  void LoadFeedback(IParseEventArgs*) override { lines.emplace_back("LoadFeedback"); }
  void BeforeDataLoad(IDataSet* sender, IParseEventArgs* pEvArgs) override {
    Note("BeforeDataLoad", *sender, *pEvArgs);
    if (on_before_data_load) on_before_data_load(*sender, *pEvArgs);
  }
  void AfterDataLoad(IDataSet* sender, IParseEventArgs* pEvArgs) override {
    Note("AfterDataLoad", *sender, *pEvArgs);
    if (on_after_data_load) on_after_data_load(*sender, *pEvArgs);
  }
  void DataLoadCancelled(IParseEventArgs*) override { lines.emplace_back("DataLoadCancelled"); }
  void RecordParsed(IRecordParsedEventArgs* pEvArgs) override {
    lines.push_back("RecordParsed " + std::to_string(pEvArgs->Current()) + " of " +
                    std::to_string(pEvArgs->Columns()));
    arguments.push_back(pEvArgs);
    if (on_record_parsed) on_record_parsed(*pEvArgs);
  }

 private:
  ~RecordingEvents() override = default;

  void Note(const char* name, IDataSet& sender, IParseEventArgs& load) {
    const std::string message = load.Message();
    lines.push_back(std::string(name) + " " + std::to_string(load.Rows()) + " x " +
                    std::to_string(load.Columns()) + (message.empty() ? "" : ": " + message));
    sources.push_back(load.Source() + " " + std::to_string(load.ParseType()));
    senders.push_back(Query<IUnknown>(&sender).get());
    arguments.push_back(&load);
  }
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_FAKES_RECORDING_EVENTS_H_
