#ifndef TSLM5_TESTS_FAKES_RECORDING_MEMORY_EVENTS_H_
#define TSLM5_TESTS_FAKES_RECORDING_MEMORY_EVENTS_H_

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "tslm5/contracts/data_set_events.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// A listener of an `InMemorySet` that notes every event as a line, then runs the handler for it.
class RecordingMemoryEvents final : public CountedObject<IInMemorySetEvents> {
 public:
  using ParseHandler = std::function<void(IParseEventArgs& arguments)>;
  using LoadHandler = std::function<void(IDataSet& sender, IParseEventArgs& arguments)>;
  using RecordHandler = std::function<void(IRecordParsedEventArgs& arguments)>;

  ParseHandler on_load_feedback;
  LoadHandler on_before_data_load;
  LoadHandler on_after_data_load;
  LoadHandler on_data_load_cancelled;
  RecordHandler on_record_parsed;

  /// The events in order: a load event as "name rows x columns", with ": message" where there is
  /// one; "RecordParsed current of columns"; an event of a check as "name: message".
  std::vector<std::string> lines;
  /// `Source` and `ParseType` of the load events, joined by a blank.
  std::vector<std::string> sources;
  /// The sender of each load event, told by its identity, and the argument object of every event.
  std::vector<const void*> senders;
  std::vector<const void*> arguments;

  std::string_view TypeName() override { return "RecordingMemoryEvents"; }

  void BeforeDataCheck(IParseEventArgs* pEvArgs) override {
    NoteCheck("BeforeDataCheck", *pEvArgs);
  }
  void AfterDataCheck(IParseEventArgs* pEvArgs) override { NoteCheck("AfterDataCheck", *pEvArgs); }
  void LoadFeedback(IParseEventArgs* pEvArgs) override {
    NoteCheck("LoadFeedback", *pEvArgs);
    if (on_load_feedback) on_load_feedback(*pEvArgs);
  }
  void BeforeDataLoad(IDataSet* sender, IParseEventArgs* pEvArgs) override {
    NoteLoad("BeforeDataLoad", *sender, *pEvArgs);
    if (on_before_data_load) on_before_data_load(*sender, *pEvArgs);
  }
  void AfterDataLoad(IDataSet* sender, IParseEventArgs* pEvArgs) override {
    NoteLoad("AfterDataLoad", *sender, *pEvArgs);
    if (on_after_data_load) on_after_data_load(*sender, *pEvArgs);
  }
  void DataLoadCancelled(IDataSet* sender, IParseEventArgs* pEvArgs) override {
    NoteLoad("DataLoadCancelled", *sender, *pEvArgs);
    if (on_data_load_cancelled) on_data_load_cancelled(*sender, *pEvArgs);
  }
  void RecordParsed(IRecordParsedEventArgs* pEvArgs) override {
    lines.push_back("RecordParsed " + std::to_string(pEvArgs->Current()) + " of " +
                    std::to_string(pEvArgs->Columns()));
    arguments.push_back(pEvArgs);
    if (on_record_parsed) on_record_parsed(*pEvArgs);
  }

 private:
  ~RecordingMemoryEvents() override = default;

  void NoteCheck(const char* name, IParseEventArgs& check) {
    lines.push_back(std::string(name) + ": " + check.Message());
    arguments.push_back(&check);
  }

  void NoteLoad(const char* name, IDataSet& sender, IParseEventArgs& load) {
    const std::string message = load.Message();
    lines.push_back(std::string(name) + " " + std::to_string(load.Rows()) + " x " +
                    std::to_string(load.Columns()) + (message.empty() ? "" : ": " + message));
    sources.push_back(load.Source() + " " + std::to_string(load.ParseType()));
    senders.push_back(Query<IUnknown>(&sender).get());
    arguments.push_back(&load);
  }
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_FAKES_RECORDING_MEMORY_EVENTS_H_
