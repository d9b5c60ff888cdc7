#include "host/answers/preparation_report.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "host/preparation/label_list.h"
#include "host/program/common_options.h"
#include "host/program/shown_text.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

constexpr std::size_t kShownUnseen = 12;

std::string Subject(const char* title, const std::string& text) {
  return fmt::format("{:<10} {}\n", title, text);
}

const std::string& LabelOf(const PreparedLoad& load, std::size_t column) {
  return load.stored.labels[column];
}

std::string ResponseText(const PreparedLoad& load) {
  const Preparation& preparation = load.preparation;
  std::string text =
      fmt::format("{} ({})", Cut(load.stored.labels.back()), ProblemName(preparation.problem));
  if (preparation.two_classes) {
    const TwoClasses& two = *preparation.two_classes;
    text += fmt::format(", {} is {}, {} {}", Quoted(two.positive_class), NumberText(two.positive),
                        preparation.IsMerging() ? "every other" : "the other",
                        NumberText(two.negative));
  }
  return Subject("response", text);
}

std::string CodedText(const PreparedLoad& load) {
  std::string text;
  for (std::size_t i = 0; i < load.preparation.columns.size(); ++i) {
    const PreparedColumn& column = load.preparation.columns[i];
    if (!column.is_nominal) continue;
    text += Subject(
        text.empty() ? "coded" : "",
        fmt::format("{}: {} categories", Cut(LabelOf(load, i)), column.categories.All().size()));
  }
  return text;
}

std::string TokensText(const PreparedLoad& load) {
  std::string text;
  for (std::size_t i = 0; i < load.preparation.columns.size(); ++i) {
    const std::vector<MissingToken>& tokens = load.preparation.columns[i].tokens;
    if (tokens.empty()) continue;
    std::string list;
    for (const MissingToken& token : tokens) {
      list += fmt::format("{}{} {}", list.empty() ? "" : ", ", Quoted(token.text), token.count);
    }
    text += Subject(text.empty() ? "tokens" : "", Cut(LabelOf(load, i)) + ": " + list);
  }
  return text;
}

std::string ScaleSubject(const PreparedLoad& load) {
  if (load.preparation.scale.type == normalization_type::kNone) return {};
  std::vector<std::string> labels;
  for (std::size_t i = 0; i < load.preparation.columns.size(); ++i) {
    if (load.preparation.columns[i].is_scaled) labels.push_back(LabelOf(load, i));
  }
  return Subject("normalised", fmt::format("{}: {}", ScaleText(load.preparation.scale),
                                           labels.empty() ? "no column" : LabelList(labels)));
}

std::string UnseenText(const PreparedLoad& load) {
  std::string text;
  for (std::size_t i = 0; i < load.unseen.size() && i < kShownUnseen; ++i) {
    const UnseenCategory& one = load.unseen[i];
    text += Subject(text.empty() ? "unseen" : "",
                    fmt::format("{}: {} in {} testing {}, in no training record, coded {}",
                                Cut(LabelOf(load, one.column)), Quoted(one.text), one.count,
                                one.count == 1 ? "record" : "records", NumberText(one.code)));
  }
  if (load.unseen.size() > kShownUnseen) {
    text += Subject("", fmt::format("and {} more", load.unseen.size() - kShownUnseen));
  }
  return text;
}

nlohmann::ordered_json ColumnJson(const PreparedLoad& load, std::size_t i) {
  const PreparedColumn& column = load.preparation.columns[i];
  nlohmann::ordered_json tokens = nlohmann::ordered_json::array();
  for (const MissingToken& token : column.tokens) {
    tokens.push_back({{"token", token.text}, {"count", token.count}});
  }
  return {{"name", fmt::format("d{}", i)},
          {"label", LabelOf(load, i)},
          {"kind", column.is_nominal ? "categories" : "numbers"},
          {"categories", column.categories.All().size()},
          {"missing", column.missing},
          {"tokens", std::move(tokens)},
          {"normalised", column.is_scaled}};
}

nlohmann::ordered_json UnseenJson(const PreparedLoad& load) {
  nlohmann::ordered_json list = nlohmann::ordered_json::array();
  for (const UnseenCategory& one : load.unseen) {
    list.push_back({{"label", LabelOf(load, one.column)},
                    {"value", one.text},
                    {"code", one.code},
                    {"count", one.count}});
  }
  return list;
}

}  // namespace

std::string PreparationText(const PreparedLoad& load) {
  return ResponseText(load) + CodedText(load) + TokensText(load) + ScaleSubject(load) +
         UnseenText(load);
}

nlohmann::ordered_json PreparationJson(const PreparedLoad& load) {
  const Preparation& preparation = load.preparation;
  nlohmann::ordered_json columns = nlohmann::ordered_json::array();
  for (std::size_t i = 0; i < preparation.columns.size(); ++i) {
    columns.push_back(ColumnJson(load, i));
  }
  nlohmann::ordered_json json = {{"problem", ProblemName(preparation.problem)},
                                 {"response", load.stored.labels.back()},
                                 {"normalize", ScaleText(preparation.scale)},
                                 {"testingRows", nullptr},
                                 {"testingShare", nullptr},
                                 {"seed", nullptr},
                                 {"positiveClass", nullptr},
                                 {"merging", preparation.IsMerging()},
                                 {"columns", std::move(columns)},
                                 {"unseenCategories", UnseenJson(load)}};
  if (load.stored.testing_rows) json["testingRows"] = *load.stored.testing_rows;
  if (load.share) {
    json["testingShare"] = load.share->share;
    json["seed"] = load.share->seed;
  }
  if (preparation.two_classes) json["positiveClass"] = preparation.two_classes->positive_class;
  return json;
}

}  // namespace tslm5::host
