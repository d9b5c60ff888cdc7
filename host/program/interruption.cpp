#include "host/program/interruption.h"

#include <csignal>
#include <cstdlib>

#include "host/program/failure.h"

namespace tslm5::host {
namespace {

volatile std::sig_atomic_t interrupted = 0;

extern "C" void NoteInterrupt(int) {
  interrupted = 1;
}

}  // namespace

void CatchSignals() {
  struct sigaction action {};
  action.sa_handler = NoteInterrupt;  // no SA_RESTART: a waiting write must come back
  sigemptyset(&action.sa_mask);
  sigaction(SIGINT, &action, nullptr);
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

bool Interrupted() {
  return interrupted != 0;
}

void StopIfInterrupted() {
  if (Interrupted()) throw Failure(ExitCode::kInterrupted, "cancelled");
}

void EndByBrokenPipe() {
  std::signal(SIGPIPE, SIG_DFL);
  std::raise(SIGPIPE);
  std::_Exit(static_cast<int>(ExitCode::kDone));
}

}  // namespace tslm5::host
