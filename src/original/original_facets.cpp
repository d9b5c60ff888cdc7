#include "original/original_facets.h"

#include "original/original_loading.h"
#include "platform/only_errors.h"
#include "tslm5/contracts/codes.h"

namespace tslm5 {

void OriginalDeploymentFacet::Open(const Variant& pConnection, std::int32_t pSetType,
                                   bool pBinarise) {
  OnlyErrors([&] { OriginalLoading(state_).Open(pConnection, pSetType, pBinarise); });
}

void OriginalDeploymentFacet::OpenFromFile(std::string_view pDataFilePath, std::int32_t pSetType,
                                           bool pBinarise) {
  OnlyErrors([&] { OriginalLoading(state_).OpenFromFile(pDataFilePath, pSetType, pBinarise); });
}

bool OriginalDeploymentFacet::HasLabels() {
  return state_.is_relabelled;
}
std::int32_t OriginalDeploymentFacet::Rows() {
  return state_.cells.Rows();
}
std::int32_t OriginalDeploymentFacet::Columns() {
  return state_.cells.Columns();
}
std::int32_t OriginalDeploymentFacet::TerminalCount() {
  return state_.cells.Columns() - 1;
}

std::string OriginalDeploymentFacet::GetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex) {
  return OnlyErrors([&] { return std::string(state_.cells.Text(pColumnIndex, pRowIndex)); });
}

std::string OriginalDeploymentFacet::GetLabel(std::int32_t pColumnIndex) {
  return OnlyErrors([&] { return ElementOf(state_.labels, pColumnIndex); });
}
double OriginalDeploymentFacet::GetTargetMax() {
  return state_.target_maximum;
}
std::int32_t OriginalDeploymentFacet::GetRowOriginalIndex(std::int32_t pRowIndex) {
  return OnlyErrors([&] { return ElementOf(state_.row_keys, pRowIndex); });
}
bool OriginalDeploymentFacet::IsColumnCategorical(std::int32_t pColumnIndex) {
  return OnlyErrors([&] { return ElementOf(state_.is_nominal, pColumnIndex); });
}

bool OriginalDeploymentFacet::HasMissingValues(std::int32_t pColumnIndex) {
  const auto found = state_.has_missing.find(pColumnIndex);
  return found != state_.has_missing.end() && found->second;
}

std::int32_t OriginalDeploymentFacet::GetDataSetRows(std::int32_t pSetType) {
  switch (pSetType) {
    case data_set_type::kTraining:
      return state_.training_rows;
    case data_set_type::kTesting:
      return state_.testing_rows;
    default:
      return 0;
  }
}

bool OriginalPersistableFacet::Load(const Variant& pRunPath, const Variant&) try {
  OriginalLoading(state_).Open(pRunPath, data_set_type::kUnknown, true);
  return true;
} catch (...) {
  RaiseAsError();
}

}  // namespace tslm5
