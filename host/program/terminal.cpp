#include "host/program/terminal.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace tslm5::host {
namespace {

constexpr std::string_view kRed = "\033[1;31m";
constexpr std::string_view kYellow = "\033[1;33m";
constexpr std::string_view kPlain = "\033[0m";

void Say(std::string_view colour, std::string_view mark, std::string_view words) {
  const bool coloured = Terminal::OfStandardError().has_colour;
  const std::string line = coloured ? fmt::format("{}{}{} {}\n", colour, mark, kPlain, words)
                                    : fmt::format("{} {}\n", mark, words);
  std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace

Terminal Terminal::OfStandardError() {
  const char* kind = std::getenv("TERM");
  const char* no_colour = std::getenv("NO_COLOR");
  const bool is_dumb = kind == nullptr || *kind == '\0' || std::string_view(kind) == "dumb";
  Terminal terminal;
  terminal.is_terminal = !is_dumb && isatty(STDERR_FILENO) == 1;
  terminal.has_colour = terminal.is_terminal && (no_colour == nullptr || *no_colour == '\0');
  return terminal;
}

void Complain(std::string_view words) {
  Say(kRed, "tslm5:", words);
}

void Warn(std::string_view words) {
  Say(kYellow, "tslm5: warning:", words);
}

}  // namespace tslm5::host
