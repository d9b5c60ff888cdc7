#include "host/program.h"

#include <unistd.h>

#include <new>

#include "host/commands.h"
#include "host/interruption.h"
#include "host/shown_text.h"
#include "host/terminal.h"

namespace tslm5::host {
namespace {

/// Runs the command that the command line asks for.
ExitCode Run(const Invocation& invocation, Output& output) {
  if (const auto* check = std::get_if<CheckOptions>(&invocation)) return RunCheck(*check, output);
  if (const auto* load = std::get_if<LoadOptions>(&invocation)) RunLoad(*load, output);
  if (const auto* info = std::get_if<InfoOptions>(&invocation)) RunInfo(*info, output);
  if (const auto* show = std::get_if<ShowOptions>(&invocation)) RunShow(*show, output);
  if (const auto* stats = std::get_if<StatsOptions>(&invocation)) RunStats(*stats, output);
  if (const auto* help = std::get_if<HelpText>(&invocation)) output.Write(help->text);
  return ExitCode::kDone;
}

ExitCode End(const Failure& failure) {
  Complain(failure.what());
  return failure.Code();
}

}  // namespace

ExitCode RunProgram(int argc, const char* const* argv) {
  CatchSignals();
  try {
    Output output(STDOUT_FILENO);
    const ExitCode code = Run(ParseCommandLine(argc, argv), output);
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
