// `IDataSet`: shape, names, properties, cells, loading. The figures of columns, and what is carried
// for the interface's sake, are in in_memory_queries.cpp.
#include "inmemory/in_memory_data_set_facet.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

#include "datacheck/data_check.h"
#include "datacheck/invalid_position.h"
#include "inmemory/label_line.h"
#include "inmemory/text_parsing.h"
#include "platform/only_errors.h"
#include "support/locale.h"
#include "support/separators.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/extra_set.h"
#include "tslm5/platform/number_text.h"

namespace tslm5 {

std::int32_t InMemoryDataSetFacet::DataSetType() {
  return state_.data_set_type;
}
void InMemoryDataSetFacet::put_DataSetType(std::int32_t pDataSetType) {
  state_.data_set_type = pDataSetType;
}
bool InMemoryDataSetFacet::HasLabels() {
  return state_.has_labels;
}
std::int32_t InMemoryDataSetFacet::Rows() {
  return state_.Rows();
}
std::int32_t InMemoryDataSetFacet::Columns() {
  return state_.Columns();
}
std::int32_t InMemoryDataSetFacet::TerminalCount() {
  return state_.Columns() - 1;
}
std::string InMemoryDataSetFacet::IndependentVarsPrefix() {
  return OnlyErrors([&] { return state_.independent_vars_prefix; });
}
void InMemoryDataSetFacet::put_IndependentVarsPrefix(std::string_view pPrefix) {
  OnlyErrors([&] { state_.independent_vars_prefix = pPrefix; });
}
std::string InMemoryDataSetFacet::DependentVarName() {
  return OnlyErrors([&] { return state_.dependent_var_name; });
}
void InMemoryDataSetFacet::put_DependentVarName(std::string_view pName) {
  OnlyErrors([&] { state_.dependent_var_name = pName; });
}
bool InMemoryDataSetFacet::IsReady() {
  return state_.is_ready;
}

std::string InMemoryDataSetFacet::Name() {
  switch (state_.data_set_type) {
    case data_set_type::kTraining:
      return "Training";
    case data_set_type::kTesting:
      return "Testing";
    default:
      return {};
  }
}

std::string InMemoryDataSetFacet::SetProperty(std::string_view pValue, std::string_view pKey) try {
  state_.SetProperty(pKey, pValue);
  return std::string(pKey);
} catch (...) {
  RaiseAsError();
}

std::string InMemoryDataSetFacet::GetProperty(std::string_view pKey) try {
  if (pKey == property_key::kReplacedNullValues) {
    return std::to_string(state_.replaced_missing_count);
  }
  return state_.properties.Get(pKey);
} catch (...) {
  RaiseAsError();
}

void InMemoryDataSetFacet::ResetProperties() {
  OnlyErrors([&] { state_.ResetProperties(); });
}

void InMemoryDataSetFacet::Parse(std::string_view pFileName, std::int32_t pSeparator,
                                 bool pHasLabels, std::int32_t pDataSetType, std::int32_t pLayout) {
  OnlyErrors([&] {
    TextParsing(state_).Parse(pFileName, pSeparator, pHasLabels, pDataSetType, pLayout, nullptr);
  });
}

void InMemoryDataSetFacet::ParseString(std::string& pText, std::int32_t pSeparator, bool pHasLabels,
                                       std::int32_t pDataSetType, std::int32_t pLayout,
                                       IParseEventArgs* pEvArgs) {
  OnlyErrors([&] {
    TextParsing(state_).ParseString(pText, pSeparator, pHasLabels, pDataSetType, pLayout, pEvArgs);
  });
}

bool InMemoryDataSetFacet::IsValidDataSet(std::string_view pDataFilePath, bool pHasLabels,
                                          std::int32_t& pSeparator, std::string& outMessage) try {
  const Ref<IDataSet> keep_alive(this);  // a handler may let go of the set
  SinkDataCheckListener<IInMemorySetEvents> listener(state_.sinks);
  return CheckDataFile(pDataFilePath, pHasLabels, pSeparator, DataCheckRules(), listener,
                       outMessage);
} catch (...) {
  RaiseAsError();
}

Variant InMemoryDataSetFacet::InvalidPosition(std::int32_t& pColumn, std::int32_t& pRow) {
  pColumn = LastInvalidPosition().column;
  pRow = LastInvalidPosition().row;
  return {};
}

double InMemoryDataSetFacet::GetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex) {
  return OnlyErrors([&] { return state_.Cell(pRowIndex, pColumnIndex); });
}

std::string InMemoryDataSetFacet::GetItemString(std::int32_t pColumnIndex,
                                                std::int32_t pRowIndex) try {
  if (pColumnIndex < 0 || pRowIndex < 0) throw Error(error_number::kInvalidArgument);
  const double value = state_.Cell(pRowIndex, pColumnIndex);
  if (std::isnan(value)) return {};
  std::string text = NumberText(value);
  std::replace(text.begin(), text.end(), '.', CurrentLocale().DecimalSymbol());
  return text;
} catch (...) {
  RaiseAsError();
}

std::string InMemoryDataSetFacet::GetLabel(std::int32_t pColumnIndex) try {
  const auto index = static_cast<std::size_t>(pColumnIndex);
  if (pColumnIndex < 0 || index >= state_.labels.size()) RaiseSubscriptOutOfRange();
  return state_.labels[index];
} catch (...) {
  RaiseAsError();
}

std::string InMemoryDataSetFacet::GetLongLabel(std::int32_t pColumnIndex) {
  return OnlyErrors([&] { return GetLabel(pColumnIndex); });
}

std::string InMemoryDataSetFacet::SeparatorToString(std::int32_t pSeparator) {
  return OnlyErrors([&] { return std::string(SharedFunctions::SeparatorToString(pSeparator)); });
}

void InMemoryDataSetFacet::SetLabels(std::string_view pLabels) try {
  state_.labels = LabelLine::Read(std::string(pLabels) + '\n',
                                  state_.properties.Find(property_key::kSeparator));
  state_.has_labels = true;
} catch (...) {
  RaiseAsError();
}

bool InMemoryDataSetFacet::SetData(IUnknown* pSource, std::int32_t) try {
  const Ref<IDataSet> source = Query<IDataSet>(pSource);
  const Ref<IExtraSet> extra = Query<IExtraSet>(pSource);
  if (!source || !extra) return false;
  const std::int32_t rows = extra->Rows();
  // Of an extra set's columns the first one is the series; the others stay 0 (meant).
  auto data = std::make_shared<CellArray>(rows, extra->Columns());
  for (std::int32_t row = 0; row < rows; ++row) data->Put(row, 0, extra->GetItem(0, row));
  state_.data = std::move(data);
  state_.EndExtraSet();
  state_.column_count = 1;
  state_.SetType(data_set_type::kTimeSeriesTesting);
  state_.MakeDefaultLabels();
  state_.is_ready = true;
  return true;
} catch (...) {
  RaiseAsError();
}

void InMemoryDataSetFacet::Clear() {
  OnlyErrors([&] { state_.Reset(); });
}

std::int32_t InMemoryDataSetFacet::ProblemCategory() {
  return state_.problem_category;
}
void InMemoryDataSetFacet::put_ProblemCategory(std::int32_t pProblemCategory) {
  state_.problem_category = pProblemCategory;
}

}  // namespace tslm5
