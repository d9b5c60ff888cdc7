#include "host/coded_column.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <set>
#include <string_view>

#include "host/failure.h"
#include "tslm5/contracts/nominal_metadata.h"
#include "tslm5/platform/dictionary.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

/// From "VALUE CODE RECORDS"; the value may hold blanks itself.
CodedCategory ParseCategory(const std::string& value, const std::string& text) {
  CodedCategory category;
  category.value = value;
  const std::string_view rest =
      std::string_view(text).substr(std::min(text.size(), value.size() + 1));
  const std::size_t blank = rest.find(' ');
  double records = 0.0;
  if (blank == std::string_view::npos || !ParseNumber(rest.substr(0, blank), '.', category.code) ||
      !ParseNumber(rest.substr(blank + 1), '.', records)) {
    throw Failure(ExitCode::kTrouble, "the run's categories cannot be read: " + text);
  }
  category.records = Variant(records).ToInteger();
  return category;
}

std::optional<BinaryEncoding> ReadEncoding(INominalDataSetMetadata& metadata,
                                           const CodedColumn& column) {
  BinaryEncoding encoding;
  const double none = std::numeric_limits<double>::quiet_NaN();
  encoding.negative = none;
  encoding.positive = none;
  metadata.GetResponseEncoding(encoding.positive_class, encoding.negative, encoding.positive);
  if (std::isnan(encoding.positive)) return std::nullopt;
  const auto fits = [&encoding](const CodedCategory& one) {
    const bool is_positive = one.value == encoding.positive_class;
    return one.code == (is_positive ? encoding.positive : encoding.negative);
  };
  encoding.is_current = column.Find(encoding.positive_class) != nullptr &&
                        std::all_of(column.categories.begin(), column.categories.end(), fits);
  return encoding;
}

}  // namespace

std::size_t CodedColumn::Codes() const {
  std::set<double> codes;
  for (const CodedCategory& one : categories) codes.insert(one.code);
  return codes.size();
}

std::vector<std::string> CodedColumn::Values() const {
  std::vector<std::string> values;
  values.reserve(categories.size());
  for (const CodedCategory& one : categories) values.push_back(one.value);
  return values;
}

const CodedCategory* CodedColumn::Find(const std::string& value) const {
  const auto found = std::find_if(categories.begin(), categories.end(),
                                  [&value](const auto& one) { return one.value == value; });
  return found == categories.end() ? nullptr : &*found;
}

CodedColumn ReadCodedColumn(const Ref<IDataSet>& data_set, std::int32_t index) {
  const auto metadata = data_set.As<INominalDataSetMetadata>();
  CodedColumn column;
  column.index = index;
  column.label = data_set->GetLabel(index);
  column.is_categorical = metadata->GetIsCategorical(index);
  column.is_response = index == data_set->TerminalCount();
  std::map<double, int> sharing;
  const auto categories = metadata->GetCategories(index).ToMap();
  for (const auto& [value, text] : categories->Entries()) {
    column.categories.push_back(ParseCategory(value.ToString(), text.ToString()));
    ++sharing[column.categories.back().code];
  }
  for (CodedCategory& one : column.categories) one.is_merged = sharing[one.code] > 1;
  if (!column.categories.empty()) column.mode = metadata->GetModeMapping(index);
  if (column.is_response) column.encoding = ReadEncoding(*metadata, column);
  return column;
}

std::vector<CodedColumn> ReadCodedColumns(const Ref<IDataSet>& data_set) {
  std::vector<CodedColumn> columns;
  const auto indexes = data_set.As<INominalDataSetMetadata>()->GetCategoricalIndexes().ToMap();
  const std::int32_t response = data_set->TerminalCount();
  bool has_response = false;
  for (const auto& [name, index] : indexes->Entries()) {
    columns.push_back(ReadCodedColumn(data_set, index.ToInteger()));
    has_response = has_response || columns.back().is_response;
  }
  if (has_response) return columns;
  CodedColumn last = ReadCodedColumn(data_set, response);
  if (!last.categories.empty()) columns.push_back(std::move(last));
  return columns;
}

}  // namespace tslm5::host
