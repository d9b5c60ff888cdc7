#ifndef TSLM5_HOST_CHARTS_CLASS_SPLIT_H_
#define TSLM5_HOST_CHARTS_CLASS_SPLIT_H_

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tslm5::host {

/// The classes of a response, found while its values are read: as many as `kSketchClasses`, or none
/// once there are more.
class ClassSplit {
 public:
  /// The slot of the class `value`; 0 once there are too many. Missing responses are one class.
  std::size_t SlotOf(double value);

  bool HasTooMany() const { return has_too_many_; }
  /// Whether telling the classes apart says something: there are several, and enough records of
  /// each where the response is not known to be one of classes.
  bool IsUseful(bool is_classified) const;
  /// The values of the classes by slot.
  const std::vector<double>& Values() const { return values_; }
  /// The slots by the classes' values, the missing one last.
  std::vector<std::size_t> SlotsInOrder() const;

 private:
  std::vector<double> values_;
  std::int64_t records_ = 0;
  bool has_too_many_ = false;
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_CHARTS_CLASS_SPLIT_H_
