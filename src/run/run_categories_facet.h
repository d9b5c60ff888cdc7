#ifndef TSLM5_RUN_RUN_CATEGORIES_FACET_H_
#define TSLM5_RUN_RUN_CATEGORIES_FACET_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "run/run_catalog_state.h"
#include "tslm5/platform/object.h"
#include "tslm5/run/run_categories.h"

namespace tslm5 {

/// `IRunCategories` of a `RunCatalog`.
class RunCategoriesFacet final : public Facet<IRunCategories> {
 public:
  RunCategoriesFacet(IUnknown& owner, RunCatalogState& state) : Facet(owner), state_(state) {}

  void ReadCategories(std::vector<RunCategory>& pCategories) override;
  void ReadColumnCategories(std::int32_t pColumn, bool pByNumber,
                            std::vector<RunCategory>& pCategories) override;
  void WriteCategories(const std::vector<RunCategory>& pCategories) override;
  bool ReadEncoding(ResponseEncoding& pEncoding) override;
  void WriteEncoding(const ResponseEncoding& pEncoding) override;
  void DropEncoding() override;

 private:
  RunCatalogState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_RUN_RUN_CATEGORIES_FACET_H_
