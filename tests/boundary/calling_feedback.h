#ifndef TSLM5_TESTS_BOUNDARY_CALLING_FEEDBACK_H_
#define TSLM5_TESTS_BOUNDARY_CALLING_FEEDBACK_H_

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tslm5/contracts/feedback.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// A feedback object that notes its calls, and does something at one of them alone.
class CallingFeedback final : public CountedObject<IFeedback> {
 public:
  /// What is done; false stops the computation where the call can.
  using Hook = std::function<bool()>;

  /// The names of the calls so far.
  std::vector<std::string> names;

  /// Does `hook` at the call behind the next `place` ones, once.
  void At(std::size_t place, Hook hook) {
    names.clear();
    place_ = place;
    hook_ = std::move(hook);
  }

  std::string_view TypeName() override { return "CallingFeedback"; }
  bool ReportProgress(std::int32_t, std::string_view) override { return Call("ReportProgress"); }
  bool ContinueFlag() override { return Call("ContinueFlag"); }
  void Finish() override { Call("Finish"); }
  void Start() override { Call("Start"); }
  void SetMaximum(std::int32_t) override { Call("SetMaximum"); }

 private:
  ~CallingFeedback() override = default;

  bool Call(const char* name) {
    names.emplace_back(name);
    if (names.size() - 1 != place_ || !hook_) return true;
    const Hook hook = std::exchange(hook_, nullptr);
    return hook();
  }

  std::size_t place_ = 0;
  Hook hook_;
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_BOUNDARY_CALLING_FEEDBACK_H_
