#ifndef TSLM5_HOST_PROGRAM_FAILURE_H_
#define TSLM5_HOST_PROGRAM_FAILURE_H_

#include <stdexcept>
#include <string>

#include "tslm5/platform/error.h"

namespace tslm5::host {

/// What the program answers to the shell.
enum class ExitCode : int {
  kDone = 0,
  kRefused = 1,  ///< the data were refused
  kUsage = 2,    ///< wrong usage
  kTrouble = 3,  ///< file or database trouble
  kInterrupted = 130,
};

/// Ends a command: the words for the user, without the program's name, and the exit code.
class Failure : public std::runtime_error {
 public:
  Failure(ExitCode code, const std::string& text) : std::runtime_error(text), code_(code) {}

  ExitCode Code() const { return code_; }

 private:
  ExitCode code_;
};

/// Ends a command because the data were refused.
[[noreturn]] void Refuse(const std::string& message);

/// Ends a command because of wrong usage.
[[noreturn]] void Misuse(const std::string& message);

/// Whether `error` came from the storage engine, so that its number is SQLite's extended code.
bool IsEngineError(const Error& error);

/// Whether the storage engine refused a statement for what it holds, not for trouble with a file.
bool IsRefusedStatement(const Error& error);

/// The failure that an error of the component means to the user.
Failure FailureOf(const Error& error);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PROGRAM_FAILURE_H_
