#include "host/program/shell_words.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/program/shown_text.h"

namespace tslm5::host {
namespace {

bool IsPlain(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
         std::string_view("_./:=,+@%-").find(c) != std::string_view::npos;
}

/// Every byte that is not plain in figures, so that nothing of it reaches the terminal.
std::string InFigures(std::string_view word) {
  std::string text = "$'";
  for (const char c : word) {
    if (IsPlain(c) || c == ' ') {
      text += c;
    } else {
      text += fmt::format("\\{:03o}", static_cast<unsigned>(static_cast<unsigned char>(c)));
    }
  }
  return text + "'";
}

}  // namespace

std::string ShellWord(std::string_view word) {
  if (!word.empty() && std::all_of(word.begin(), word.end(), IsPlain)) return std::string(word);
  std::string without_slashes(word);
  std::erase(without_slashes, '\\');
  if (Escaped(without_slashes) != without_slashes) return InFigures(word);
  std::string text = "'";
  for (const char c : word) text += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return text + "'";
}

std::string ShellLine(const std::vector<std::string>& words) {
  std::string line;
  for (const std::string& word : words) {
    if (!line.empty()) line += ' ';
    line += ShellWord(word);
  }
  return line;
}

}  // namespace tslm5::host
