#include "host/preparation/code_changes.h"

#include <fmt/format.h>

#include <utility>

#include "host/program/failure.h"
#include "host/program/shown_text.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

/// The texts before and the number behind the last "=".
CodeChange Split(std::string_view word, std::string_view option, std::string_view form) {
  const std::size_t equals = word.rfind('=');
  if (equals == std::string_view::npos) {
    Misuse(fmt::format("{}: {} has no =; expected {}", option, Quoted(word), form));
  }
  CodeChange change;
  change.value = word.substr(0, equals);
  const std::string_view number = word.substr(equals + 1);
  if (!ParseNumber(number, '.', change.code)) {
    Misuse(fmt::format("{}: {} in {} is no number; expected {}, the decimals behind a point",
                       option, Quoted(number), Quoted(word), form));
  }
  change.code += 0.0;  // makes -0 a 0
  return change;
}

}  // namespace

CodeChange ParseCodeChange(std::string_view word) {
  return Split(word, "--set", "VALUE=NUMBER");
}

std::vector<CodeChange> ParseMerge(std::string_view word) {
  const CodeChange whole = Split(word, "--merge", "VALUE,VALUE=NUMBER");
  std::vector<CodeChange> changes;
  std::string_view rest = whole.value;
  for (std::size_t comma = 0; comma != std::string_view::npos; rest.remove_prefix(comma + 1)) {
    comma = rest.find(',');
    changes.push_back({std::string(rest.substr(0, comma)), whole.code});
    if (comma == std::string_view::npos) break;
  }
  if (changes.size() < 2) {
    Misuse(
        fmt::format("--merge: {} names one value; expected VALUE,VALUE=NUMBER (--set "
                    "gives one value a code)",
                    Quoted(word)));
  }
  return changes;
}

void AddCodeChange(CodeChange change, std::vector<CodeChange>& changes) {
  for (const CodeChange& former : changes) {
    if (former.value != change.value) continue;
    if (former.code == change.code) return;
    Misuse(fmt::format("the value {} is given two codes, {} and {}", Quoted(change.value),
                       NumberText(former.code), NumberText(change.code)));
  }
  changes.push_back(std::move(change));
}

}  // namespace tslm5::host
