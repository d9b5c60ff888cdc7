#include "inmemory/in_memory_facets.h"

#include <algorithm>

#include "inmemory/in_memory_set.h"
#include "inmemory/text_parsing.h"
#include "platform/only_errors.h"
#include "tslm5/platform/error.h"

namespace tslm5 {

Ref<IDataSet> InMemorySetFacet::Clone() {
  return OnlyErrors([&] { return Query<IDataSet>(CloneInMemorySet(state_)); });
}

std::string InMemorySetFacet::RemoveEmptyLinesAtEnd(std::string& pData) try {
  pData.resize(pData.find_last_not_of('\n') + 1);  // npos + 1 is 0
  return pData;
} catch (...) {
  RaiseAsError();
}

void InMemorySetFacet::ParseWithEvents(std::string_view pFileName, std::int32_t pSeparator,
                                       bool pHasLabels, std::int32_t pDataSetType,
                                       std::int32_t pLayout, IParseEventArgs* pEvArgs) {
  OnlyErrors([&] {
    TextParsing(state_).Parse(pFileName, pSeparator, pHasLabels, pDataSetType, pLayout, pEvArgs);
  });
}

bool InMemoryIteratorFacet::GetCurrentSample(Array<double>& pArray) try {
  const std::int32_t position = state_.iterator_position;
  if (position == -1) throw Error(error_number::kIteratorNotReset);
  if (position >= state_.Rows()) return false;
  const std::int32_t columns = state_.Columns();
  if (pArray.Size() < static_cast<std::size_t>(columns)) {
    pArray.Elements().resize(static_cast<std::size_t>(columns));
  }
  for (std::int32_t j = 0; j < columns; ++j) {
    pArray[pArray.LowerBound() + j] = state_.Cell(j, position);
  }
  ++state_.iterator_position;
  return true;
} catch (...) {
  RaiseAsError();
}

bool InMemoryPersistableFacet::Save(const Variant&, const Variant&) try {
  throw Error(error_number::kNotImplemented, "IPersistable_Save", "NOT IMPLEMENTED");
} catch (...) {
  RaiseAsError();
}

}  // namespace tslm5
