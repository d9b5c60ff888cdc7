#include "support/shared_functions.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <utility>

#include "support/text_cleanup.h"
#include "tslm5/platform/error.h"

namespace tslm5::SharedFunctions {

std::string ReadTextFile(std::string_view path) {
  std::string text = FileHelpers::ReadAllText(path);
  TextCleanup::ReplaceToken(text, "\r\n", "\n");
  return text;
}

FileHelpers::TextFile ReadFile(std::string_view path) {
  FileHelpers::TextFile file = FileHelpers::ReadFile(path);
  TextCleanup::ReplaceToken(file.text, "\r\n", "\n");
  return file;
}

std::string ReadExistingFile(std::string_view path, const char* source) {
  using Kind = FileHelpers::TextFile::Kind;
  FileHelpers::TextFile file = ReadFile(path);
  if (file.kind == Kind::kForbidden) FileHelpers::RaiseForbidden(path);
  if (file.kind == Kind::kAbsent) {
    throw Error(error_number::kFileNotFound, source,
                std::string("The file ").append(path).append(" was not found."));
  }
  if (file.kind == Kind::kFolder) {
    throw Error(error_number::kFileAccess, source,
                std::string(path).append(" is a folder; a delimited text file was expected."));
  }
  return std::move(file.text);
}

bool HasLoneReturns(std::string_view text) {
  const std::string_view line = text.substr(0, text.find_last_not_of("\r\n") + 1);
  return line.find('\r') != std::string_view::npos && line.find('\n') == std::string_view::npos;
}

std::int32_t MergeRepeats(std::string_view token, std::string& text) {
  if (token.empty()) return 0;
  if (token.size() == 1) {  // each pass halves every run, rounding up
    const std::size_t longest = TextCleanup::CollapseRuns(text, token[0]);
    return longest == 0 ? 0 : static_cast<std::int32_t>(std::bit_width(longest - 1));
  }
  const std::string pair = std::string(token) + std::string(token);
  std::int32_t passes = 0;
  while (TextCleanup::ReplaceToken(text, pair, token)) ++passes;
  return passes;
}

void CleanLine(std::string& line) {
  std::erase_if(line, [](char c) { return c == '\t' || c == ';'; });
  if (line.find('\n') == std::string::npos) return;
  TextCleanup::ReplaceToken(line, "\n ", "\n");
  TextCleanup::ReplaceToken(line, "\n\n", "");
  line.erase(0, std::min(line.find_first_not_of('\n'), line.size()));
}

}  // namespace tslm5::SharedFunctions
