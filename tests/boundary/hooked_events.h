#ifndef TSLM5_TESTS_BOUNDARY_HOOKED_EVENTS_H_
#define TSLM5_TESTS_BOUNDARY_HOOKED_EVENTS_H_

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tslm5/contracts/data_set_events.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// A listener that counts events, and does something at one of them alone.
template <class Interface>
class HookedEventsOf : public CountedObject<Interface> {
 public:
  /// What is done; `cancel` cancels the event.
  using Hook = std::function<void(const std::function<void()>& cancel)>;

  /// The names of the events so far.
  std::vector<std::string> names;

  /// Does `hook` at the event behind the next `place` ones, once.
  void At(std::size_t place, Hook hook) {
    names.clear();
    place_ = place;
    hook_ = std::move(hook);
  }

  void BeforeDataCheck(IParseEventArgs* pEvArgs) override { Raise("BeforeDataCheck", *pEvArgs); }
  void AfterDataCheck(IParseEventArgs* pEvArgs) override { Raise("AfterDataCheck", *pEvArgs); }
  void LoadFeedback(IParseEventArgs* pEvArgs) override { Raise("LoadFeedback", *pEvArgs); }
  void BeforeDataLoad(IDataSet*, IParseEventArgs* pEvArgs) override {
    Raise("BeforeDataLoad", *pEvArgs);
  }
  void AfterDataLoad(IDataSet*, IParseEventArgs* pEvArgs) override {
    Raise("AfterDataLoad", *pEvArgs);
  }
  void RecordParsed(IRecordParsedEventArgs* pEvArgs) override { Raise("RecordParsed", *pEvArgs); }

 protected:
  template <class Arguments>
  void Raise(const char* name, Arguments& arguments) {
    names.emplace_back(name);
    if (names.size() - 1 != place_ || !hook_) return;
    const Hook hook = std::exchange(hook_, nullptr);
    hook([&arguments] { arguments.put_Cancel(true); });
  }

 private:
  std::size_t place_ = 0;
  Hook hook_;
};

class HookedEvents final : public HookedEventsOf<IDataSetLiteEvents> {
 public:
  std::string_view TypeName() override { return "HookedEvents"; }
  void DataLoadCancelled(IParseEventArgs* pEvArgs) override {
    Raise("DataLoadCancelled", *pEvArgs);
  }

 private:
  ~HookedEvents() override = default;
};

class HookedMemoryEvents final : public HookedEventsOf<IInMemorySetEvents> {
 public:
  std::string_view TypeName() override { return "HookedMemoryEvents"; }
  void DataLoadCancelled(IDataSet*, IParseEventArgs* pEvArgs) override {
    Raise("DataLoadCancelled", *pEvArgs);
  }

 private:
  ~HookedMemoryEvents() override = default;
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_BOUNDARY_HOOKED_EVENTS_H_
