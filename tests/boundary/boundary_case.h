#ifndef TSLM5_TESTS_BOUNDARY_BOUNDARY_CASE_H_
#define TSLM5_TESTS_BOUNDARY_BOUNDARY_CASE_H_

#include <gmock/gmock.h>

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "boundary/callbacks.h"
#include "boundary/hooked_events.h"
#include "inmemory/memory_set.h"
#include "support/temporary_folder.h"
#include "tslm5/platform/live_objects.h"

namespace tslm5 {

/// An operation that raises events, and what comes of it undisturbed.
struct Operation {
  std::string name;
  std::function<std::string(IUnknown& set)> run;  ///< returns its result in words
  std::string outcome;                            ///< the result, or the number of its error
  Lines kept;                                     ///< the records that it leaves
  Lines events;                                   ///< that it raises
};

/// Lets a handler do something at every event of every operation of a set. A derived case says
/// which set, and what must hold after each try.
template <class Events>
class BoundaryCase : public testing::Test {
 protected:
  static constexpr std::int32_t kComma = separator_code::kComma;
  static constexpr std::int32_t kTraining = data_set_type::kTraining;
  static constexpr std::int32_t kRows = layout_code::kRecordsInRows;
  using Hook = typename Events::Hook;

  BoundaryCase() {
    scene_.file = folder_.Write("callback.csv", "50,60\n70,80\n");
    scene_.source = callback_source_.Object().get();
  }

  virtual std::vector<Operation> Operations() = 0;
  /// A new set of the old records, with a listener.
  virtual void Restore() = 0;
  /// The records that the set holds.
  virtual Lines Kept() = 0;

  /// Has `set` listened to from now on.
  void Listen(Ref<IUnknown> set) {
    set_ = std::move(set);
    events_ = MakeObject<Events>();
    cookie_ = set_.template As<IConnectionPoint>()->Advise(events_.get());
  }

  /// Runs an operation with `hook` at its event behind the next `place` ones; its outcome.
  std::string Try(const Operation& operation, std::size_t place, Hook hook) {
    events_->At(place, std::move(hook));
    IUnknown& set = *set_;  // no reference is held: the operation must keep the set alive
    std::string result;
    const std::int32_t error = RaisedNumber([&] { result = operation.run(set); });
    return error == 0 ? result : std::to_string(error);
  }

  /// Runs `tried(operation, place, event)` for each event of each operation, on the restored set.
  template <class Tried>
  void AtEveryEvent(Tried tried) {
    for (const Operation& operation : Operations()) {
      Restore();
      EXPECT_EQ(Try(operation, 0, nullptr), operation.outcome) << operation.name;
      EXPECT_EQ(Kept(), operation.kept) << operation.name;
      ASSERT_EQ(events_->names, operation.events) << operation.name;
      for (std::size_t place = 0; place < operation.events.size(); ++place) {
        Restore();
        tried(operation, place, operation.events[place]);
      }
    }
  }

  /// Calls a callback on the set, whatever it raises.
  void Call(const Callback& callback) {
    const Ref<IUnknown> set = set_;
    RaisedNumber([&] { callback.call(set.get(), scene_); });
  }

  static std::string What(const Operation& operation, std::size_t place, const char* action) {
    return std::string(action) + " at event " + std::to_string(place) + " of " + operation.name;
  }

  /// The data check of a file of two records; `refusal` is empty for one that passes.
  static Operation Check(const std::string& path, const std::string& refusal, const Lines& kept) {
    const auto run = [path](IUnknown& set) {
      std::int32_t separator = kComma;
      std::string message;
      const bool is_valid = Face<IDataSet>(set).IsValidDataSet(path, false, separator, message);
      return is_valid ? "valid" : "invalid: " + message;
    };
    return {refusal.empty() ? "check" : "check of a bad file",
            run,
            refusal.empty() ? "valid" : "invalid: " + refusal,
            kept,
            {"BeforeDataCheck", "LoadFeedback", "LoadFeedback", "LoadFeedback", "LoadFeedback",
             "LoadFeedback", "LoadFeedback", "LoadFeedback", "AfterDataCheck"}};
  }

  /// A face of the set, without a reference to it: an operation must hold what it needs.
  template <class I>
  static I& Face(IUnknown& set) {
    return *Query<I>(&set);
  }

  /// Whether an event is one of the data check, which passes no error on to its caller.
  static bool IsOfTheCheck(const std::string& event) {
    return event == "LoadFeedback" || event.ends_with("Check");
  }

  TemporaryFolder folder_;
  const std::string old_file_ = folder_.Write("old.csv", "1,2\n3,4\n");
  const std::string new_file_ = folder_.Write("new.csv", "7,8\n9,10\n");
  const std::string bad_file_ = folder_.Write("bad.csv", "7,8\n9,1e999\n");
  const std::string refusal_ = "Invalid <DATASET>. Value in row 2, column 2. is invalid: 1e999";
  MemorySet callback_source_{"50,60\n70,80"};
  CallbackScene scene_;
  Ref<IUnknown> set_;
  Ref<Events> events_;
  std::int32_t cookie_ = 0;
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_BOUNDARY_BOUNDARY_CASE_H_
