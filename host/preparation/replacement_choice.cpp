#include "host/preparation/replacement_choice.h"

#include <fmt/format.h>

#include <optional>

#include "host/preparation/replacement_type.h"
#include "host/preparation/run_change.h"
#include "host/program/failure.h"
#include "host/program/nearest_texts.h"
#include "host/program/shown_text.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

[[noreturn]] void RefuseReplacement(const std::string& words) {
  Misuse("--replace: " + words);
}

bool BeginsWith(std::string_view word, std::string_view token) {
  return word.starts_with(token) && word.substr(token.size()).starts_with('=');
}

/// The token that `word` begins with, and what stands behind its "=".
std::string FindToken(std::string_view word, const GapColumn& column, std::string_view& value) {
  const GapToken* found = nullptr;
  for (const GapToken& token : column.tokens) {
    const bool is_longer = found == nullptr || token.text.size() > found->text.size();
    if (is_longer && BeginsWith(word, token.text)) found = &token;
  }
  if (found != nullptr) {
    value = word.substr(found->text.size() + 1);
    return found->text;
  }
  const std::size_t equals = word.rfind('=');
  if (equals == std::string_view::npos) {
    RefuseReplacement(fmt::format(
        "{} has no =; expected TOKEN=mean, median, min, max, NUMBER or none", Quoted(word)));
  }
  for (const GapToken& token : column.tokens) {
    if (!token.text.empty() || !BeginsWith(word, kEmptyToken)) continue;
    value = word.substr(kEmptyToken.size() + 1);
    return {};
  }
  const std::string_view name = word.substr(0, equals);
  const std::string title = ColumnTitle(column.index, column.label);
  if (column.tokens.empty()) RefuseReplacement(fmt::format("{} has no gaps", title));
  RefuseReplacement(fmt::format("{} has no token {}; it has {}", title, Quoted(name),
                                NearestList(name, column.Texts())));
}

const ReplacementWord* FindWord(std::string_view value) {
  for (const ReplacementWord& one : kReplacementWords) {
    if (!one.word.empty() && one.word == value) return &one;
  }
  return nullptr;
}

}  // namespace

ReplacementChoice ParseReplacement(std::string_view word, const GapColumn& column,
                                   const CodedColumn& categories) {
  std::string_view value;
  ReplacementChoice choice;
  choice.token = FindToken(word, column, value);
  const ReplacementWord* known = FindWord(value);
  if (known != nullptr && known->type == replacement_type::kNone) return choice;
  const std::string title = ColumnTitle(column.index, column.label);
  if (column.is_categorical) {
    if (const CodedCategory* category = categories.Find(std::string(value))) {
      choice.type = replacement_type::kCategory;
      choice.value = category->code;
      return choice;
    }
    if (known != nullptr) {
      RefuseReplacement(
          fmt::format("{} is categorical and has no {}; give the name of a category or a number",
                      title, known->name));
    }
  } else if (known != nullptr) {
    choice.type = known->type;
    return choice;
  }
  if (ParseNumber(value, '.', choice.value)) {
    choice.type = replacement_type::kNumber;
    return choice;
  }
  if (column.is_categorical) {
    RefuseReplacement(fmt::format("{} is no number, and {} has no such category; it has {}",
                                  Quoted(value), title, NearestList(value, categories.Values())));
  }
  RefuseReplacement(
      fmt::format("{} cannot replace {}; expected mean, median, min, max, a number (decimals "
                  "behind a point) or none",
                  Quoted(value), choice.token.empty() ? kEmptyToken : Quoted(choice.token)));
}

}  // namespace tslm5::host
