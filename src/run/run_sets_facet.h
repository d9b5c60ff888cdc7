#ifndef TSLM5_RUN_RUN_SETS_FACET_H_
#define TSLM5_RUN_RUN_SETS_FACET_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "run/run_catalog_state.h"
#include "tslm5/platform/object.h"
#include "tslm5/run/run_catalog.h"

namespace tslm5 {

/// `IRunCatalog` of a `RunCatalog`, its main interface.
class RunSetsFacet final : public Facet<IRunCatalog> {
 public:
  RunSetsFacet(IUnknown& owner, RunCatalogState& state) : Facet(owner), state_(state) {}

  void Open(IUnknown* pRun) override;
  bool IsForeign() override;
  bool HasSet(std::int32_t pType) override;
  bool HasRecords(std::int32_t pType) override;
  std::int32_t SetColumns(std::int32_t pType) override;
  std::int32_t FirstKey(std::int32_t pType) override;
  std::int32_t LastKey(std::int32_t pType) override;
  bool SetsShareKeys() override;
  void ReadKeys(std::int32_t pType, std::vector<std::int32_t>& pKeys) override;
  void WriteKeys(std::int32_t pType, const std::vector<std::int32_t>& pKeys) override;
  void MoveKeys(std::int32_t pType, std::int32_t pDistance) override;
  void CountMissing(std::int32_t pType, std::vector<std::int32_t>& pCounts) override;
  void CountTexts(std::int32_t pType, std::vector<std::int32_t>& pCounts) override;
  void FillCells(std::int32_t pType, std::int32_t pColumn, std::string_view pText,
                 double pValue) override;
  void DropSet(std::int32_t pType) override;
  bool HasBackup() override;
  std::int32_t BackupRows() override;

 private:
  RunCatalogState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_RUN_RUN_SETS_FACET_H_
