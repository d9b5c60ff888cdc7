#ifndef TSLM5_INMEMORY_IN_MEMORY_NOMINAL_FACET_H_
#define TSLM5_INMEMORY_IN_MEMORY_NOMINAL_FACET_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "inmemory/in_memory_state.h"
#include "tslm5/contracts/nominal_data_set.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// `INominalDataSet` of an `InMemorySet`. What it shares with `IDataSet` is that one's.
class InMemoryNominalFacet final : public Facet<INominalDataSet> {
 public:
  InMemoryNominalFacet(IUnknown& owner, InMemoryState& state) : Facet(owner), state_(state) {}

  void Parse(std::string_view pFileName, std::int32_t pSeparator, bool pHasLabels,
             std::int32_t pDataSetType, std::int32_t pLayout, std::int32_t pProblemCategory,
             IParseEventArgs* pEvArgs) override;
  void ParseString(std::string& pText, std::int32_t pSeparator, bool pHasLabels,
                   std::int32_t pDataSetType, std::int32_t pLayout, std::int32_t pProblemCategory,
                   IParseEventArgs* pEvArgs) override;
  Variant GetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex) override;
  std::int32_t Rows() override { return state_.Rows(); }
  std::int32_t Columns() override { return state_.Columns(); }
  std::string SetProperty(std::string_view pValue, std::string_view pKey) override {
    return state_.sender->SetProperty(pValue, pKey);
  }
  std::string GetProperty(std::string_view pKey) override {
    return state_.sender->GetProperty(pKey);
  }
  bool IsReady() override { return state_.is_ready; }
  void ResetProperties() override { state_.sender->ResetProperties(); }
  bool FormatDataAs(std::int32_t pFormat) override { return state_.sender->FormatDataAs(pFormat); }

 private:
  InMemoryState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_INMEMORY_IN_MEMORY_NOMINAL_FACET_H_
