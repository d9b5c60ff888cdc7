#ifndef TSLM5_HOST_PROGRAM_PROGRESS_H_
#define TSLM5_HOST_PROGRAM_PROGRESS_H_

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

#include "host/program/terminal.h"

namespace tslm5::host {

/// The progress bar of one command: one line of standard error, rewritten in place and wiped out
/// at the end. Shows nothing when standard error is no terminal.
class Progress {
 public:
  explicit Progress(Terminal terminal) : terminal_(terminal) {}
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress() { End(); }

  /// Starts a stage of `total` steps; `name` must live as long as the stage.
  void Begin(std::string_view name, std::int64_t total);
  /// `done` steps of the stage are done. Cheap: draws at most ten times a second.
  void At(std::int64_t done) {
    if (terminal_.is_terminal && done % kStepsBetweenLooks == 0) Look(done);
  }
  /// The same for a stage of few steps: looks at the clock every time.
  void Step(std::int64_t done) {
    if (terminal_.is_terminal) Look(done);
  }
  /// Wipes the bar out.
  void End();

  /// The bar's text, without the carriage return before it.
  static std::string Line(std::string_view name, std::int64_t done, std::int64_t total,
                          bool coloured);

 private:
  static constexpr std::int64_t kStepsBetweenLooks = 256;

  void Look(std::int64_t done);
  void Draw(std::int64_t done);

  Terminal terminal_;
  std::string_view name_;
  std::int64_t total_ = 0;
  std::size_t drawn_width_ = 0;
  std::chrono::steady_clock::time_point next_draw_{};
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PROGRAM_PROGRESS_H_
