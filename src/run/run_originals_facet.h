#ifndef TSLM5_RUN_RUN_ORIGINALS_FACET_H_
#define TSLM5_RUN_RUN_ORIGINALS_FACET_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "run/run_catalog_state.h"
#include "tslm5/engine/record_appender.h"
#include "tslm5/platform/object.h"
#include "tslm5/run/run_originals.h"

namespace tslm5 {

/// `IRunOriginals` of a `RunCatalog`.
class RunOriginalsFacet final : public Facet<IRunOriginals> {
 public:
  RunOriginalsFacet(IUnknown& owner, RunCatalogState& state) : Facet(owner), state_(state) {}

  std::int32_t Columns() override;
  void Create(std::int32_t pColumns) override;
  void Fit(std::int32_t pColumns) override;
  std::int32_t MakeRoom(std::int32_t pType, std::int32_t pRecords, std::int32_t pColumns) override;
  void Append(std::span<const std::string_view> pTexts, std::int32_t pKey) override;
  Ref<IDataReader> OpenTexts(std::int32_t pType, const std::vector<std::int32_t>& pColumns,
                             std::int32_t pFirstRow) override;
  Ref<IDataReader> OpenRecords(std::int32_t pType) override;
  Ref<IDataReader> OpenTrainingColumn(std::int32_t pColumn) override;
  bool WriteEmbedded(std::int32_t pDimension, std::int32_t pDelay, std::int32_t pRecords) override;
  void TakeEmbedded() override;

 private:
  /// `Append` where the connection offers no appender.
  void Insert(std::span<const std::string_view> texts, std::int32_t key);

  RunCatalogState& state_;
  std::vector<RecordCell> cells_;  // the buffers of `Append`
  std::string insert_;
};

}  // namespace tslm5

#endif  // TSLM5_RUN_RUN_ORIGINALS_FACET_H_
