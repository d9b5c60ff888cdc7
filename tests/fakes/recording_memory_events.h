#ifndef TSLM5_TESTS_FAKES_RECORDING_MEMORY_EVENTS_H_
#define TSLM5_TESTS_FAKES_RECORDING_MEMORY_EVENTS_H_

#include <string>
#include <string_view>

#include "fakes/event_record.h"

namespace tslm5 {

/// A listener of an `InMemorySet` that notes every event as a line, then runs the handler for it.
/// An event of a check is noted as "name: message".
class RecordingMemoryEvents final : public CountedObject<IInMemorySetEvents>, public EventRecord {
 public:
  ParseHandler on_load_feedback;
  LoadHandler on_data_load_cancelled;

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
    NoteLoad("BeforeDataLoad", *sender, *pEvArgs, on_before_data_load);
  }
  void AfterDataLoad(IDataSet* sender, IParseEventArgs* pEvArgs) override {
    NoteLoad("AfterDataLoad", *sender, *pEvArgs, on_after_data_load);
  }
  void DataLoadCancelled(IDataSet* sender, IParseEventArgs* pEvArgs) override {
    NoteLoad("DataLoadCancelled", *sender, *pEvArgs, on_data_load_cancelled);
  }
  void RecordParsed(IRecordParsedEventArgs* pEvArgs) override { NoteRecord(*pEvArgs); }

 private:
  ~RecordingMemoryEvents() override = default;

  void NoteCheck(const char* name, IParseEventArgs& check) {
    lines.push_back(std::string(name) + ": " + check.Message());
    arguments.push_back(&check);
  }
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_FAKES_RECORDING_MEMORY_EVENTS_H_
