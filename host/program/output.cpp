#include "host/program/output.h"

#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "host/program/failure.h"
#include "host/program/interruption.h"

namespace tslm5::host {
namespace {

constexpr std::size_t kHeldBytes = 1 << 16;

}  // namespace

void Output::Write(std::string_view text) {
  held_ += text;
  if (held_.size() >= kHeldBytes) Flush();
}

void Output::Flush() {
  std::string_view left = held_;
  while (!left.empty()) {
    const ssize_t written = ::write(descriptor_, left.data(), left.size());
    if (written >= 0) {
      left.remove_prefix(static_cast<std::size_t>(written));
      continue;
    }
    if (errno == EPIPE) throw BrokenPipe{};
    if (errno != EINTR) {
      throw Failure(ExitCode::kTrouble, "the result cannot be written to standard output: " +
                                            std::generic_category().message(errno));
    }
    StopIfInterrupted();
  }
  held_.clear();
}

}  // namespace tslm5::host
