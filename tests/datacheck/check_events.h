#ifndef TSLM5_TESTS_DATACHECK_CHECK_EVENTS_H_
#define TSLM5_TESTS_DATACHECK_CHECK_EVENTS_H_

#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "datacheck/data_check.h"

namespace tslm5 {

/// One event of a check, as a listener saw it.
struct CheckEvent {
  std::string name;
  std::string message;
  std::int32_t rows = 0;

  bool operator==(const CheckEvent&) const = default;
};

inline void PrintTo(const CheckEvent& event, std::ostream* out) {
  *out << event.name << " [" << event.message << "] rows " << event.rows;
}

/// A listener of the check that notes every event.
class CheckEvents final : public DataCheckListener {
 public:
  /// Asks to stop at the event that has this name or message; never with "".
  explicit CheckEvents(std::string cancel_at = {}) : cancel_at_(std::move(cancel_at)) {}

  /// Runs in each event, after it was noted.
  std::function<void(const CheckEvent&, IParseEventArgs&)> handler;
  bool is_listening = true;
  std::vector<CheckEvent> seen;

  bool IsListening() const override { return is_listening; }
  void BeforeDataCheck(IParseEventArgs& arguments) override { Note("BeforeDataCheck", arguments); }
  void LoadFeedback(IParseEventArgs& arguments) override { Note("LoadFeedback", arguments); }
  void AfterDataCheck(IParseEventArgs& arguments) override { Note("AfterDataCheck", arguments); }

  /// The messages of the events of that name.
  std::vector<std::string> MessagesOf(std::string_view name) const {
    std::vector<std::string> messages;
    for (const CheckEvent& event : seen) {
      if (event.name == name) messages.push_back(event.message);
    }
    return messages;
  }

 private:
  void Note(std::string_view name, IParseEventArgs& arguments) {
    seen.push_back({std::string(name), arguments.Message(), arguments.Rows()});
    const CheckEvent& event = seen.back();
    if (!cancel_at_.empty() && (event.name == cancel_at_ || event.message == cancel_at_)) {
      arguments.put_Cancel(true);
    }
    if (handler) handler(CheckEvent(event), arguments);
  }

  std::string cancel_at_;
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_DATACHECK_CHECK_EVENTS_H_
