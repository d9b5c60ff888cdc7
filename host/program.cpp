#include "host/program.h"

#include <unistd.h>

#include <new>

#include "host/commands.h"
#include "host/interruption.h"
#include "host/shown_text.h"
#include "host/terminal.h"

namespace tslm5::host {
namespace {

struct Runner {
  Output& output;

  void operator()(const LoadOptions& options) const { RunLoad(options, output); }
  void operator()(const InfoOptions& options) const { RunInfo(options, output); }
  void operator()(const ShowOptions& options) const { RunShow(options, output); }
  void operator()(const HelpText& help) const { output.Write(help.text); }
};

ExitCode End(const Failure& failure) {
  Complain(failure.what());
  return failure.Code();
}

}  // namespace

ExitCode RunProgram(int argc, const char* const* argv) {
  CatchSignals();
  try {
    Output output(STDOUT_FILENO);
    std::visit(Runner{output}, ParseCommandLine(argc, argv));
    output.Flush();
    return ExitCode::kDone;
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
