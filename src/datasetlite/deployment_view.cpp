#include "datasetlite/deployment_view.h"

#include "platform/only_errors.h"

namespace tslm5 {
namespace {

bool FlagOf(const std::map<std::int32_t, bool>& flags, std::int32_t column) {
  const auto found = flags.find(column);
  return found != flags.end() && found->second;
}

}  // namespace

std::string DeploymentViewFacet::GetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex) {
  return OnlyErrors([&] { return data_set_.GetItemString(pColumnIndex, pRowIndex); });
}
std::string DeploymentViewFacet::GetLabel(std::int32_t pColumnIndex) {
  return OnlyErrors([&] { return data_set_.GetLabel(pColumnIndex); });
}
double DeploymentViewFacet::GetTargetMax() {
  return OnlyErrors([&] { return data_set_.GetMax(data_set_.TerminalCount(), 0, 0); });
}
std::int32_t DeploymentViewFacet::GetRowOriginalIndex(std::int32_t pRowIndex) {
  return OnlyErrors([&] { return data_set_.GetRowOriginalIndex(pRowIndex); });
}
bool DeploymentViewFacet::IsColumnCategorical(std::int32_t pColumnIndex) {
  return FlagOf(state_.is_categorical, pColumnIndex);
}
bool DeploymentViewFacet::HasMissingValues(std::int32_t pColumnIndex) {
  return FlagOf(state_.has_missing, pColumnIndex);
}

}  // namespace tslm5
