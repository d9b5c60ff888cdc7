#ifndef TSLM5_HOST_PROGRAM_OUTPUT_H_
#define TSLM5_HOST_PROGRAM_OUTPUT_H_

#include <string>
#include <string_view>

namespace tslm5::host {

/// Nobody reads the output any more: the program ends without a word.
struct BrokenPipe {};

/// The results of a command, on a file descriptor. A failed write raises `Failure` (file trouble),
/// one into a pipe without a reader `BrokenPipe`.
class Output {
 public:
  explicit Output(int descriptor) : descriptor_(descriptor) {}

  void Write(std::string_view text);
  /// Writes what is still held back. To be called before the program says that it is done.
  void Flush();

  /// What the command has done already, "the load is stored": to be told whatever fails afterwards.
  /// A literal: short memory must not keep it from being told.
  void NoteDone(std::string_view words) { done_ = words; }
  std::string_view Done() const { return done_; }

 private:
  int descriptor_;
  std::string held_;
  std::string_view done_;
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PROGRAM_OUTPUT_H_
