#include "host/program/progress.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>

namespace tslm5::host {
namespace {

constexpr std::int64_t kBarWidth = 30;
constexpr std::chrono::milliseconds kBetweenDraws{100};
constexpr std::string_view kGreen = "\033[32m";
constexpr std::string_view kPlain = "\033[0m";

void Send(const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stderr);
  std::fflush(stderr);
}

}  // namespace

void Progress::Begin(std::string_view name, std::int64_t total) {
  name_ = name;
  total_ = total;
  if (terminal_.is_terminal) Draw(0);
}

void Progress::End() {
  if (drawn_width_ == 0) return;
  Send(fmt::format("\r{:{}}\r", "", drawn_width_));
  drawn_width_ = 0;
}

std::string Progress::Line(std::string_view name, std::int64_t done, std::int64_t total,
                           bool coloured) {
  const double part =
      total <= 0 ? 1.0
                 : std::clamp(static_cast<double>(done) / static_cast<double>(total), 0.0, 1.0);
  const auto filled = static_cast<std::size_t>(part * static_cast<double>(kBarWidth));
  const std::string bar(filled, '#');
  const std::string rest(static_cast<std::size_t>(kBarWidth) - filled, '.');
  return fmt::format("{} [{}{}{}{}] {:3} %", name, coloured ? kGreen : "", bar,
                     coloured ? kPlain : "", rest, static_cast<int>(part * 100.0));
}

void Progress::Look(std::int64_t done) {
  if (std::chrono::steady_clock::now() >= next_draw_) Draw(done);
}

void Progress::Draw(std::int64_t done) {
  const std::string line = Line(name_, done, total_, terminal_.has_colour);
  const std::size_t width = Line(name_, done, total_, false).size();
  const std::size_t left_over = drawn_width_ > width ? drawn_width_ - width : 0;
  Send(fmt::format("\r{}{:{}}", line, "", left_over));
  drawn_width_ = width;
  next_draw_ = std::chrono::steady_clock::now() + kBetweenDraws;
}

}  // namespace tslm5::host
