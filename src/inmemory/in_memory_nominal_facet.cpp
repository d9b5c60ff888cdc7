#include "inmemory/in_memory_nominal_facet.h"

#include "inmemory/nominal_parsing.h"
#include "platform/only_errors.h"

namespace tslm5 {

void InMemoryNominalFacet::Parse(std::string_view pFileName, std::int32_t pSeparator,
                                 bool pHasLabels, std::int32_t pDataSetType, std::int32_t pLayout,
                                 std::int32_t pProblemCategory, IParseEventArgs* pEvArgs) {
  OnlyErrors([&] {
    NominalParsing(state_, pProblemCategory)
        .Parse(pFileName, pSeparator, pHasLabels, pDataSetType, pLayout, pEvArgs);
  });
}

void InMemoryNominalFacet::ParseString(std::string& pText, std::int32_t pSeparator, bool pHasLabels,
                                       std::int32_t pDataSetType, std::int32_t pLayout,
                                       std::int32_t pProblemCategory, IParseEventArgs* pEvArgs) {
  OnlyErrors([&] {
    NominalParsing(state_, pProblemCategory)
        .ParseString(pText, pSeparator, pHasLabels, pDataSetType, pLayout, pEvArgs);
  });
}

Variant InMemoryNominalFacet::GetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex) try {
  const double value = state_.Cell(pRowIndex, pColumnIndex);
  const RawCells* const texts = state_.data->Texts();
  if (texts != nullptr && texts->IsCategorical(pColumnIndex)) {
    return texts->Text(pRowIndex, pColumnIndex);
  }
  return value;
} catch (...) {
  RaiseAsError();
}

}  // namespace tslm5
