#include "host/answers/category_report.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/preparation/run_change.h"
#include "host/program/json_text.h"
#include "host/program/shown_text.h"
#include "host/program/text_table.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

constexpr std::size_t kFirstCategories = 20;

std::string Count(std::size_t count, std::string_view one, std::string_view many) {
  return fmt::format("{} {}", count, count == 1 ? one : many);
}

std::string Marks(const CodedColumn& column, const CodedCategory& category) {
  std::vector<std::string> marks;
  if (category.is_merged) marks.emplace_back("merged");
  if (category.records == 0) marks.emplace_back("not in the training set");
  if (column.encoding && column.encoding->positive_class == category.value) {
    marks.emplace_back("positive class");
  }
  return fmt::format("{}", fmt::join(marks, ", "));
}

std::string EncodingText(const CodedColumn& column) {
  if (!column.encoding) return "encoding: none\n";
  const BinaryEncoding& encoding = *column.encoding;
  return fmt::format("encoding: {} is {}, every other class {}{}\n",
                     Quoted(encoding.positive_class), NumberText(encoding.positive),
                     NumberText(encoding.negative),
                     encoding.is_current ? "" : "; the categories have other codes (--encode)");
}

std::string ColumnText(const CodedColumn& column, bool is_whole) {
  std::string text = ColumnTitle(column.index, column.label);
  if (column.is_response) text += ", the response";
  if (column.categories.empty()) return text + ": no categories\n";
  const std::size_t codes = column.Codes();
  text += fmt::format(": {}, {}; the most frequent has code {}\n",
                      Count(column.categories.size(), "category", "categories"),
                      Count(codes, "code", "codes"), NumberText(column.mode));
  const std::size_t all = column.categories.size();
  const std::size_t shown = is_whole ? all : std::min(all, kFirstCategories);
  std::vector<TableLine> lines = {{"value", "code", "records"}};
  for (std::size_t i = 0; i < shown; ++i) {
    const CodedCategory& one = column.categories[i];
    lines.push_back(
        {Cut(one.value), NumberText(one.code), fmt::format("{}", one.records), Marks(column, one)});
  }
  text += AlignedTable(lines, 2);
  if (shown < all) {
    text += fmt::format("and {} more; tslm5 categories RUN.db d{} shows them\n", all - shown,
                        column.index);
  }
  if (column.is_response) text += EncodingText(column);
  return text;
}

nlohmann::ordered_json ColumnJson(const CodedColumn& column) {
  nlohmann::ordered_json categories = nlohmann::ordered_json::array();
  for (const CodedCategory& one : column.categories) {
    categories.push_back({{"value", one.value},
                          {"code", one.code},
                          {"records", one.records},
                          {"merged", one.is_merged}});
  }
  nlohmann::ordered_json object = {{"index", column.index},
                                   {"label", column.label},
                                   {"categorical", column.is_categorical},
                                   {"response", column.is_response},
                                   {"mostFrequentCode", nullptr},
                                   {"categories", std::move(categories)}};
  if (!column.categories.empty()) object["mostFrequentCode"] = column.mode;
  if (!column.is_response) return object;
  object["encoding"] = nullptr;
  if (column.encoding) {
    object["encoding"] = {{"positiveClass", column.encoding->positive_class},
                          {"positive", column.encoding->positive},
                          {"negative", column.encoding->negative},
                          {"current", column.encoding->is_current}};
  }
  return object;
}

}  // namespace

std::string CategoryText(const CategoryReport& report) {
  std::string text;
  for (const CodedColumn& column : report.columns) {
    if (!text.empty()) text += '\n';
    text += ColumnText(column, report.is_whole);
  }
  if (report.columns.empty()) text = "no column has categories\n";
  if (report.check) {
    text += report.check->is_fit ? "check: the response can be used as a binary one\n"
                                 : fmt::format("check: {}\n", Escaped(report.check->message));
  }
  return text;
}

std::string CategoryJson(const CategoryReport& report) {
  nlohmann::ordered_json columns = nlohmann::ordered_json::array();
  for (const CodedColumn& column : report.columns) columns.push_back(ColumnJson(column));
  nlohmann::ordered_json object = {{"columns", std::move(columns)}};
  if (report.check) {
    object["check"] = {{"fit", report.check->is_fit}, {"message", nullptr}};
    if (!report.check->is_fit) object["check"]["message"] = report.check->message;
  }
  return JsonText(object);
}

}  // namespace tslm5::host
