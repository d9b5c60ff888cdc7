#include "host/preparation/coded_column.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <set>

#include "tslm5/contracts/nominal_metadata.h"
#include "tslm5/platform/dictionary.h"

namespace tslm5::host {
namespace {

/// The categories by text, or by number where the column holds numbers. The component's own answer
/// holds each text several times.
std::vector<CodedCategory> ReadCategories(const RunSession& session, const CodedColumn& column) {
  std::vector<RunCategory> kept;
  session.Categories().ReadColumnCategories(column.index, !column.is_categorical, kept);
  std::vector<CodedCategory> categories;
  categories.reserve(kept.size());
  for (const RunCategory& one : kept) categories.push_back({one.text, one.code, one.count});
  return categories;
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

CodedColumn ReadCodedColumn(const RunSession& session, const Ref<IDataSet>& data_set,
                            std::int32_t index) {
  const auto metadata = data_set.As<INominalDataSetMetadata>();
  CodedColumn column;
  column.index = index;
  column.label = data_set->GetLabel(index);
  column.is_categorical = metadata->GetIsCategorical(index);
  column.is_response = index == data_set->TerminalCount();
  column.categories = ReadCategories(session, column);
  std::map<double, int> sharing;
  for (const CodedCategory& one : column.categories) ++sharing[one.code];
  for (CodedCategory& one : column.categories) one.is_merged = sharing[one.code] > 1;
  if (!column.categories.empty()) column.mode = metadata->GetModeMapping(index);
  if (column.is_response) column.encoding = ReadEncoding(*metadata, column);
  return column;
}

std::vector<CodedColumn> ReadCodedColumns(const RunSession& session,
                                          const Ref<IDataSet>& data_set) {
  std::vector<CodedColumn> columns;
  const auto indexes = data_set.As<INominalDataSetMetadata>()->GetCategoricalIndexes().ToMap();
  const std::int32_t response = data_set->TerminalCount();
  bool has_response = false;
  for (const auto& [name, index] : indexes->Entries()) {
    columns.push_back(ReadCodedColumn(session, data_set, index.ToInteger()));
    has_response = has_response || columns.back().is_response;
  }
  if (has_response) return columns;
  CodedColumn last = ReadCodedColumn(session, data_set, response);
  if (!last.categories.empty()) columns.push_back(std::move(last));
  return columns;
}

}  // namespace tslm5::host
