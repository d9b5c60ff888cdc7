#ifndef TSLM5_HOST_PROGRAM_INTERRUPTION_H_
#define TSLM5_HOST_PROGRAM_INTERRUPTION_H_

namespace tslm5::host {

/// From here on Ctrl-C only sets a flag, and writing into a closed pipe or past a size limit is an
/// error to handle instead of a signal that ends the program.
void CatchSignals();

/// Whether Ctrl-C was pressed.
bool Interrupted();

/// Raises the `Failure` "cancelled" when Ctrl-C was pressed.
void StopIfInterrupted();

/// Ends the program as a closed pipe would have done without `CatchSignals`.
[[noreturn]] void EndByBrokenPipe();

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PROGRAM_INTERRUPTION_H_
