#include "delimited/described_text.h"

#include <string>

namespace tslm5::delimited {
namespace {

using nlohmann::json;

json CellJson(const Field& field, CellForm form) {
  if (form == CellForm::kTexts) return std::string(field.Text());
  if (field.field_class == FieldClass::kNumber) return field.value;
  if (field.field_class == FieldClass::kMissing) return nullptr;
  return std::string(field.Text());
}

json DialectJson(const Dialect& dialect) {
  return {{"separator", SeparatorName(dialect.separator)},
          {"decimal", std::string(1, dialect.decimal)},
          {"has_header", dialect.has_header},
          {"has_row_names", dialect.has_row_names},
          {"preamble_lines", dialect.preamble_lines},
          {"columns", dialect.columns},
          {"encoding", dialect.encoding}};
}

}  // namespace

json Describe(DelimitedReader& reader, CellForm form) {
  json records = json::array();
  json lines = json::array();
  FieldBlock block;
  while (reader.Next(block)) {
    for (std::size_t i = 0; i < block.Records(); ++i) {
      json& record = records.emplace_back(json::array());
      lines.push_back(block.Line(i));
      for (std::size_t k = 0; k < block.Columns(); ++k) {
        record.push_back(CellJson(block.Record(i)[k], form));
      }
    }
  }
  json findings = json::array();
  for (const Finding& finding : reader.Findings().All()) {
    findings.push_back({{"code", Name(finding.code)},
                        {"line", finding.line},
                        {"column", finding.column},
                        {"value", finding.value}});
  }
  return {{"dialect", DialectJson(reader.TextDialect())},
          {"labels", reader.TextHeader().labels},
          {"records", std::move(records)},
          {"record_lines", std::move(lines)},
          {"lines", reader.Counts().lines},
          {"empty_lines", reader.Counts().empty_lines},
          {"findings", std::move(findings)}};
}

ReadOptions OptionsFrom(const json& given) {
  ReadOptions options;
  const auto character = [](const json& text) {
    const auto characters = text.get<std::string>();
    return characters.empty() ? '\0' : characters[0];
  };
  for (const auto& [key, value] : given.items()) {
    if (key == "separator") {
      options.separator = character(value);
    } else if (key == "decimal") {
      options.decimal = character(value);
    } else if (key == "has_quotes") {
      options.has_quotes = value.get<bool>();
    } else if (key == "has_header") {
      options.has_header = value.get<bool>();
    } else if (key == "preamble_lines") {
      options.preamble_lines = value.get<std::int64_t>();
    } else if (key == "skips_preamble") {
      options.skips_preamble = value.get<bool>();
    } else if (key == "encoding") {
      options.encoding = value.get<std::string>();
    } else if (key == "missing_tokens") {
      options.missing_tokens = value.get<std::vector<std::string>>();
    } else {
      throw std::invalid_argument("no such option: " + key);
    }
  }
  return options;
}

}  // namespace tslm5::delimited
