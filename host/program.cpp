#include "host/program.h"

#include <unistd.h>

#include <new>

#include "host/command_line.h"
#include "host/interruption.h"
#include "host/shown_text.h"
#include "host/terminal.h"

namespace tslm5::host {
namespace {

ExitCode End(const Failure& failure) {
  Complain(failure.what());
  return failure.Code();
}

}  // namespace

ExitCode RunProgram(int argc, const char* const* argv) {
  CatchSignals();
  try {
    Output output(STDOUT_FILENO);
    const ExitCode code = ParseCommandLine(argc, argv).run(output);
    output.Flush();
    return code;
  } catch (const BrokenPipe&) {
    EndByBrokenPipe();
  } catch (const Failure& failure) {
    return End(failure);
  } catch (const Error& error) {
    return End(FailureOf(error));
  } catch (const std::bad_alloc&) {
    return End(Failure(ExitCode::kTrouble, "not enough memory"));
  } catch (const std::exception& error) {
    return End(Failure(ExitCode::kTrouble, Escaped(error.what())));
  }
}

}  // namespace tslm5::host
