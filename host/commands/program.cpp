#include "host/commands/program.h"

#include <fmt/format.h>
#include <unistd.h>

#include <new>
#include <string_view>

#include "host/commands/command_line.h"
#include "host/program/interruption.h"
#include "host/program/shown_text.h"
#include "host/program/terminal.h"

namespace tslm5::host {
namespace {

ExitCode End(const Failure& failure, const Output& output) {
  const std::string_view done = output.Done();
  Complain(done.empty() ? failure.what()
                        : fmt::format("{}; {} all the same", failure.what(), done));
  return failure.Code();
}

/// As `End`, when memory is too short for making words: allocates nothing.
ExitCode EndWithoutMemory(const Output& output) noexcept {
  const std::string_view done = output.Done();
  const std::string_view tail = done.empty() ? "\n" : " all the same\n";
  for (const std::string_view words : {std::string_view("tslm5: not enough memory"),
                                       std::string_view(done.empty() ? "" : "; "), done, tail}) {
    (void)!::write(STDERR_FILENO, words.data(), words.size());
  }
  return ExitCode::kTrouble;
}

ExitCode RunCommand(int argc, const char* const* argv, Output& output) {
  try {
    const ExitCode code = ParseCommandLine(argc, argv).run(output);
    output.Flush();
    return code;
  } catch (const BrokenPipe&) {
    EndByBrokenPipe();
  } catch (const Failure& failure) {
    return End(failure, output);
  } catch (const Error& error) {
    return End(FailureOf(error), output);
  } catch (const std::bad_alloc&) {
    return End(Failure(ExitCode::kTrouble, "not enough memory"), output);
  } catch (const std::exception& error) {
    return End(Failure(ExitCode::kTrouble, Escaped(error.what())), output);
  }
}

}  // namespace

ExitCode RunProgram(int argc, const char* const* argv) {
  CatchSignals();
  Output output(STDOUT_FILENO);
  try {
    return RunCommand(argc, argv, output);
  } catch (const std::exception&) {  // while the words of a failure were made
    return EndWithoutMemory(output);
  }
}

}  // namespace tslm5::host
