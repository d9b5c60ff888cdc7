#include "host/answers/gap_report.h"

#include <fmt/format.h>

#include "host/preparation/replacement_choice.h"
#include "host/preparation/replacement_type.h"
#include "host/preparation/run_change.h"
#include "host/program/json_text.h"
#include "host/program/shown_text.h"
#include "host/program/text_table.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

std::string ChosenAs(std::int32_t type) {
  for (const ReplacementWord& one : kReplacementWords) {
    if (one.type == type) return std::string(one.name);
  }
  return fmt::format("type {}", type);
}

/// The categories of a code.
std::vector<std::string> CategoriesOf(const CodedColumn& column, double code) {
  std::vector<std::string> values;
  for (const CodedCategory& one : column.categories) {
    if (one.code == code) values.push_back(one.value);
  }
  return values;
}

std::string ReplacementText(const ReportedGaps& column, const GapToken& token) {
  if (!token.replacement) return "-";
  std::string text = NumberText(*token.replacement);
  const std::vector<std::string> names = CategoriesOf(column.categories, *token.replacement);
  if (names.empty()) return text;
  text += fmt::format(" ({}", Cut(names.front()));
  if (names.size() > 1) text += fmt::format(" and {} more", names.size() - 1);
  return text + ")";
}

std::string ColumnText(const ReportedGaps& column) {
  const GapColumn& gaps = column.gaps;
  std::string text = ColumnTitle(gaps.index, gaps.label);
  if (gaps.is_categorical) text += ", categorical";
  if (gaps.tokens.empty()) return text + ": no gaps\n";
  text += fmt::format(": {} gap{}\n", gaps.cells, gaps.cells == 1 ? "" : "s");
  std::vector<TableLine> lines = {{"token", "cells", "open", "replacement", "chosen as"}};
  for (const GapToken& token : gaps.tokens) {
    lines.push_back({token.text.empty() ? std::string(kEmptyToken) : Cut(token.text),
                     fmt::format("{}", token.cells), fmt::format("{}", token.open),
                     ReplacementText(column, token), ChosenAs(token.type)});
  }
  return text + AlignedTable(lines, 3);
}

}  // namespace

std::string GapText(const std::vector<ReportedGaps>& columns) {
  if (columns.empty()) return "no column has gaps\n";
  std::string text;
  for (const ReportedGaps& column : columns) {
    if (!text.empty()) text += '\n';
    text += ColumnText(column);
  }
  return text;
}

std::string GapJson(const std::vector<ReportedGaps>& columns) {
  nlohmann::ordered_json list = nlohmann::ordered_json::array();
  for (const ReportedGaps& column : columns) {
    nlohmann::ordered_json tokens = nlohmann::ordered_json::array();
    for (const GapToken& token : column.gaps.tokens) {
      nlohmann::ordered_json one = {{"token", token.text},
                                    {"cells", token.cells},
                                    {"open", token.open},
                                    {"replacement", nullptr},
                                    {"replacementType", token.type},
                                    {"chosenAs", ChosenAs(token.type)}};
      if (token.replacement) one["replacement"] = *token.replacement;
      if (column.gaps.is_categorical) {
        one["categories"] = token.replacement ? CategoriesOf(column.categories, *token.replacement)
                                              : std::vector<std::string>();
      }
      tokens.push_back(std::move(one));
    }
    list.push_back({{"index", column.gaps.index},
                    {"label", column.gaps.label},
                    {"categorical", column.gaps.is_categorical},
                    {"cells", column.gaps.cells},
                    {"tokens", std::move(tokens)}});
  }
  return JsonText({{"columns", std::move(list)}});
}

}  // namespace tslm5::host
