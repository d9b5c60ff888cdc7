#include "original/original_data_set_facet.h"

#include "original/original_columns.h"
#include "platform/only_errors.h"

namespace tslm5 {

bool OriginalDataSetFacet::HasLabels() {
  return state_.is_relabelled;
}
std::int32_t OriginalDataSetFacet::Rows() {
  return state_.cells.Rows();
}
std::int32_t OriginalDataSetFacet::Columns() {
  return state_.cells.Columns();
}
std::int32_t OriginalDataSetFacet::TerminalCount() {
  return state_.cells.Columns() - 1;
}

std::string OriginalDataSetFacet::GetItemString(std::int32_t pColumnIndex, std::int32_t pRowIndex) {
  return OnlyErrors([&] { return std::string(state_.cells.Text(pColumnIndex, pRowIndex)); });
}

std::string OriginalDataSetFacet::GetLabel(std::int32_t pColumnIndex) {
  return OnlyErrors([&] { return ElementOf(state_.labels, pColumnIndex); });
}
std::string OriginalDataSetFacet::GetLongLabel(std::int32_t pColumnIndex) {
  return OnlyErrors([&] { return OriginalColumns::LongLabel(state_, pColumnIndex); });
}
std::int32_t OriginalDataSetFacet::GetColumnIndex(std::int32_t pColumn) {
  return OnlyErrors([&] { return ElementOf(state_.column_indexes, pColumn); });
}
std::int32_t OriginalDataSetFacet::GetRowNumber(std::int32_t pRowIndex) {
  return pRowIndex + 1;
}
std::int32_t OriginalDataSetFacet::GetRowOriginalIndex(std::int32_t pRowIndex) {
  return pRowIndex + 1;
}

void OriginalDataSetFacet::CalculateStatistics(IFeedback* pFeedback) {
  state_.feedback = Ref<IFeedback>(pFeedback);
}

}  // namespace tslm5
