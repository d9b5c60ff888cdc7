#ifndef TSLM5_TESTS_FAKES_EVENT_RECORD_H_
#define TSLM5_TESTS_FAKES_EVENT_RECORD_H_

#include <functional>
#include <string>
#include <vector>

#include "tslm5/contracts/data_set_events.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// What the listeners of both dataset classes note of their events, and the handlers they run.
struct EventRecord {
  using ParseHandler = std::function<void(IParseEventArgs& arguments)>;
  using LoadHandler = std::function<void(IDataSet& sender, IParseEventArgs& arguments)>;
  using RecordHandler = std::function<void(IRecordParsedEventArgs& arguments)>;

  LoadHandler on_before_data_load;
  LoadHandler on_after_data_load;
  RecordHandler on_record_parsed;

  /// The events in order: a load event as "name rows x columns", with ": message" where there is
  /// one, and "RecordParsed current of columns".
  std::vector<std::string> lines;
  /// `Source` and `ParseType` of the load events, joined by a blank.
  std::vector<std::string> sources;
  /// The sender of each load event, told by its identity, and the argument object of every event.
  std::vector<const void*> senders;
  std::vector<const void*> arguments;

  /// Notes a load event, then runs its handler, if any.
  void NoteLoad(const char* name, IDataSet& sender, IParseEventArgs& load,
                const LoadHandler& handler) {
    const std::string message = load.Message();
    lines.push_back(std::string(name) + " " + std::to_string(load.Rows()) + " x " +
                    std::to_string(load.Columns()) + (message.empty() ? "" : ": " + message));
    sources.push_back(load.Source() + " " + std::to_string(load.ParseType()));
    senders.push_back(Query<IUnknown>(&sender).get());
    arguments.push_back(&load);
    if (handler) handler(sender, load);
  }

  /// Notes a parsed record, then runs its handler, if any.
  void NoteRecord(IRecordParsedEventArgs& record) {
    lines.push_back("RecordParsed " + std::to_string(record.Current()) + " of " +
                    std::to_string(record.Columns()));
    arguments.push_back(&record);
    if (on_record_parsed) on_record_parsed(record);
  }
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_FAKES_EVENT_RECORD_H_
