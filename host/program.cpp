#include "host/program.h"

#include <fmt/format.h>
#include <unistd.h>

#include <new>

#include "host/command_line.h"
#include "host/interruption.h"
#include "host/shown_text.h"
#include "host/terminal.h"

namespace tslm5::host {
namespace {

ExitCode End(const Failure& failure, const Output& output) {
  const std::string& done = output.Done();
  Complain(done.empty() ? failure.what()
                        : fmt::format("{}; {} all the same", failure.what(), done));
  return failure.Code();
}

}  // namespace

ExitCode RunProgram(int argc, const char* const* argv) {
  CatchSignals();
  Output output(STDOUT_FILENO);
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

}  // namespace tslm5::host
