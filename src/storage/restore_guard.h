#ifndef TSLM5_STORAGE_RESTORE_GUARD_H_
#define TSLM5_STORAGE_RESTORE_GUARD_H_

namespace tslm5 {

/// Gives a variable its old value back on the way out unless its new one was kept: what goes with a
/// `Transaction` in memory.
template <class T>
class RestoreGuard {
 public:
  explicit RestoreGuard(T& variable) : variable_(variable), before_(variable) {}
  RestoreGuard(const RestoreGuard&) = delete;
  RestoreGuard& operator=(const RestoreGuard&) = delete;
  ~RestoreGuard() {
    if (!kept_) variable_ = before_;
  }
  void Keep() { kept_ = true; }

 private:
  T& variable_;
  T before_;
  bool kept_ = false;
};

}  // namespace tslm5

#endif  // TSLM5_STORAGE_RESTORE_GUARD_H_
