#ifndef TSLM5_TESTS_FAKES_RECORDING_EVENTS_H_
#define TSLM5_TESTS_FAKES_RECORDING_EVENTS_H_

#include <string_view>

#include "fakes/event_record.h"

namespace tslm5 {

/// A listener of a `DataSetLite` that notes every event as a line, then runs the handler for it. An
/// event that is no load or record is noted by its name alone.
class RecordingEvents final : public CountedObject<IDataSetLiteEvents>, public EventRecord {
 public:
  std::string_view TypeName() override { return "RecordingEvents"; }

  void BeforeDataCheck(IParseEventArgs*) override { lines.emplace_back("BeforeDataCheck"); }
  void AfterDataCheck(IParseEventArgs*) override { lines.emplace_back("AfterDataCheck"); }
  void LoadFeedback(IParseEventArgs*) override { lines.emplace_back("LoadFeedback"); }
  void BeforeDataLoad(IDataSet* sender, IParseEventArgs* pEvArgs) override {
    NoteLoad("BeforeDataLoad", *sender, *pEvArgs, on_before_data_load);
  }
  void AfterDataLoad(IDataSet* sender, IParseEventArgs* pEvArgs) override {
    NoteLoad("AfterDataLoad", *sender, *pEvArgs, on_after_data_load);
  }
  void DataLoadCancelled(IParseEventArgs*) override { lines.emplace_back("DataLoadCancelled"); }
  void RecordParsed(IRecordParsedEventArgs* pEvArgs) override { NoteRecord(*pEvArgs); }

 private:
  ~RecordingEvents() override = default;
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_FAKES_RECORDING_EVENTS_H_
