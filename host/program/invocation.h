#ifndef TSLM5_HOST_PROGRAM_INVOCATION_H_
#define TSLM5_HOST_PROGRAM_INVOCATION_H_

#include <any>
#include <functional>
#include <type_traits>
#include <utility>

#include "host/program/command_spec.h"
#include "host/program/failure.h"
#include "host/program/output.h"

namespace tslm5::host {

/// What the command line asks for, ready to be run.
struct Invocation {
  std::any options;                      ///< of the chosen command, as `run` takes them
  std::function<ExitCode(Output&)> run;  ///< raises `Failure` or the component's `Error`
};

/// Describes one command to `program`. When the command line names it, `invocation` is
/// filled. Raises `Failure`, wrong usage, then.
using AddCommand = void (*)(CommandSpec& program, Invocation& invocation);

/// What is to happen when `command` was chosen: `make` gives its options, `run` does its work and
/// returns an exit code, or nothing where there is no other end than success.
template <class Make, class Run>
void WhenChosen(CommandSpec& command, Invocation& invocation, Make make, Run run) {
  command.WhenRead([&invocation, make, run] {
    auto options = make();
    invocation.options = options;
    invocation.run = [options, run](Output& output) {
      if constexpr (std::is_void_v<decltype(run(options, output))>) {
        run(options, output);
        return ExitCode::kDone;
      } else {
        return run(options, output);
      }
    };
  });
}

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PROGRAM_INVOCATION_H_
