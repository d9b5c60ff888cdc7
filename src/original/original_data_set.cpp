#include "original/original_data_set.h"

namespace tslm5 {

void* OriginalDataSet::FindFacet(const Uuid& pId) {
  if (pId == IDeploymentDataSet::kId) return static_cast<IDeploymentDataSet*>(&deployment_);
  if (pId == IDataSet::kId) return static_cast<IDataSet*>(&data_set_);
  if (pId == IPersistable::kId) return static_cast<IPersistable*>(&persistable_);
  return nullptr;
}

Ref<IUnknown> MakeOriginalDataSet() {
  return MakeObject<OriginalDataSet>();
}

}  // namespace tslm5
