#ifndef TSLM5_HOST_PROGRAM_TERMINAL_H_
#define TSLM5_HOST_PROGRAM_TERMINAL_H_

#include <string>
#include <string_view>

namespace tslm5::host {

/// What standard error can show.
struct Terminal {
  bool is_terminal = false;  ///< a terminal that understands carriage returns
  bool has_colour = false;   ///< and may be coloured: NO_COLOR is not set

  /// Of standard error, by the environment (TERM, NO_COLOR).
  static Terminal OfStandardError();
};

/// Writes "tslm5: error words" or "tslm5: warning: words" as one line to standard error.
void Complain(std::string_view words);
void Warn(std::string_view words);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PROGRAM_TERMINAL_H_
