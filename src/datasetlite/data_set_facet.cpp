// `IDataSet`: shape, flags, names, properties, and the calls of the files that do the work. The
// statistics and target queries are in target_queries.cpp.
#include "datasetlite/data_set_facet.h"

#include <algorithm>

#include "datacheck/data_check.h"
#include "datacheck/invalid_position.h"
#include "datasetlite/data_set_loading.h"
#include "datasetlite/file_loading.h"
#include "datasetlite/record_access.h"
#include "datasetlite/run_labels.h"
#include "platform/only_errors.h"
#include "support/math_helper.h"
#include "support/separators.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/platform/error.h"

namespace tslm5 {

std::int32_t DataSetFacet::DataSetType() {
  return state_.data_set_type;
}
void DataSetFacet::put_DataSetType(std::int32_t pDataSetType) {
  state_.data_set_type = pDataSetType;
}
bool DataSetFacet::HasLabels() {
  return state_.has_labels;
}

std::int32_t DataSetFacet::Rows() {
  return OrEmpty([&] { return state_.Rows(); });
}

std::int32_t DataSetFacet::Columns() {
  return OrEmpty([&] { return RecordAccess::Columns(state_); });
}

std::int32_t DataSetFacet::TerminalCount() {
  return OrEmpty([&] { return std::max(RecordAccess::Columns(state_) - 1, 0); });
}

std::string DataSetFacet::IndependentVarsPrefix() {
  return OnlyErrors([&] { return state_.independent_vars_prefix; });
}
void DataSetFacet::put_IndependentVarsPrefix(std::string_view pPrefix) {
  OnlyErrors([&] { state_.independent_vars_prefix = pPrefix; });
}
std::string DataSetFacet::DependentVarName() {
  return OnlyErrors([&] { return state_.dependent_var_name; });
}
void DataSetFacet::put_DependentVarName(std::string_view pName) {
  OnlyErrors([&] { state_.dependent_var_name = pName; });
}
bool DataSetFacet::IsReady() {
  return state_.is_ready;
}

std::string DataSetFacet::Name() {
  switch (state_.data_set_type) {
    case data_set_type::kTraining:
      return "Training";
    case data_set_type::kTesting:
      return "Testing";
    default:
      return {};
  }
}

std::string DataSetFacet::SetProperty(std::string_view pValue, std::string_view pKey) try {
  state_.properties.Put(pKey, pValue);
  state_.is_dirty = true;
  return std::string(pKey);
} catch (...) {
  RaiseAsError();
}

std::string DataSetFacet::GetProperty(std::string_view pKey) {
  return OnlyErrors([&] { return state_.properties.Find(pKey); });
}

void DataSetFacet::ResetProperties() {
  OnlyErrors([&] { state_.properties.Clear(); });
}

void DataSetFacet::Parse(std::string_view pFileName, std::int32_t pSeparator, bool pHasLabels,
                         std::int32_t pDataSetType, std::int32_t pLayout) {
  OnlyErrors(
      [&] { FileLoading(state_).Parse(pFileName, pSeparator, pHasLabels, pDataSetType, pLayout); });
}

// Carried for the interface's sake: a `DataSetLite` loads from files.
void DataSetFacet::ParseString(std::string&, std::int32_t, bool, std::int32_t, std::int32_t,
                               IParseEventArgs*) {}

void DataSetFacet::Replace(std::string_view pFileName, std::int32_t pSeparator, bool pHasLabels) {
  OnlyErrors([&] { FileLoading(state_).Replace(pFileName, pSeparator, pHasLabels); });
}

bool DataSetFacet::SetData(IUnknown* pSource, std::int32_t pDataSetType) {
  return OnlyErrors([&] { return DataSetLoading(state_).SetData(pSource, pDataSetType); });
}

bool DataSetFacet::IsValidDataSet(std::string_view pDataFilePath, bool pHasLabels,
                                  std::int32_t& pSeparator, std::string& outMessage) try {
  const Ref<IDataSet> keep_alive(this);  // a handler may let go of the set
  SinkDataCheckListener<IDataSetLiteEvents> listener(state_.sinks);
  return CheckDataFile(pDataFilePath, pHasLabels, pSeparator, RulesOf(state_.problem_category),
                       listener, outMessage);
} catch (...) {
  RaiseAsError();
}

Variant DataSetFacet::InvalidPosition(std::int32_t& pColumn, std::int32_t& pRow) {
  pColumn = LastInvalidPosition().column;
  pRow = LastInvalidPosition().row;
  return {};
}

double DataSetFacet::GetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex) {
  return OnlyErrors([&] { return RecordAccess::Item(state_, pColumnIndex, pRowIndex); });
}

std::string DataSetFacet::GetItemString(std::int32_t pColumnIndex, std::int32_t pRowIndex) {
  return RecordAccess::ItemText(state_, pColumnIndex, pRowIndex);
}

std::string DataSetFacet::GetLabel(std::int32_t pColumnIndex) {
  return OnlyErrors([&] { return RecordAccess::Label(state_, pColumnIndex); });
}

std::string DataSetFacet::GetLongLabel(std::int32_t pColumnIndex) {
  return OnlyErrors([&] { return RecordAccess::LongLabel(state_, pColumnIndex); });
}

std::string DataSetFacet::SeparatorToString(std::int32_t pSeparator) {
  return OnlyErrors([&] { return std::string(SharedFunctions::SeparatorToString(pSeparator)); });
}

void DataSetFacet::SetLabels(std::string_view pLabels) {
  OnlyErrors([&] { RunLabels::Set(state_, pLabels); });
}
void DataSetFacet::Clear() {
  OnlyErrors([&] { RecordAccess::Clear(state_); });
}
bool DataSetFacet::HasLabelPrefix() {
  return true;
}
std::int32_t DataSetFacet::GetRowNumber(std::int32_t pRowIndex) {
  return MathHelper::Successor(pRowIndex);
}

std::int32_t DataSetFacet::GetRowOriginalIndex(std::int32_t pRowIndex) {
  return OnlyErrors([&] { return RecordAccess::OriginalIndex(state_, pRowIndex); });
}

std::int32_t DataSetFacet::ProblemCategory() {
  return state_.problem_category;
}
void DataSetFacet::put_ProblemCategory(std::int32_t pProblemCategory) {
  state_.problem_category = pProblemCategory;
}
std::int32_t DataSetFacet::GetColumnIndex(std::int32_t pColumn) {
  return pColumn;
}

Variant DataSetFacet::GetRowOriginalValue(std::int32_t pRowIndex, std::int32_t pColumnIndex) {
  return OnlyErrors([&] { return RecordAccess::OriginalValue(state_, pRowIndex, pColumnIndex); });
}

Variant DataSetFacet::GetRowOriginalValueByRecordId(std::int32_t pRecordId,
                                                    std::int32_t pColumnIndex) {
  return OnlyErrors(
      [&] { return RecordAccess::OriginalValueOfRecord(state_, pRecordId, pColumnIndex); });
}

}  // namespace tslm5
