#ifndef TSLM5_HOST_OUTPUT_H_
#define TSLM5_HOST_OUTPUT_H_

#include <string>
#include <string_view>
#include <utility>

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
  void NoteDone(std::string words) { done_ = std::move(words); }
  const std::string& Done() const { return done_; }

 private:
  int descriptor_;
  std::string held_;
  std::string done_;
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_OUTPUT_H_
