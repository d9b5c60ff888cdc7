#ifndef TSLM5_SRC_CONTRACTS_PROPERTY_SOURCE_H_
#define TSLM5_SRC_CONTRACTS_PROPERTY_SOURCE_H_

#include "contracts/property_bag.h"
#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// A dataset's properties, all of them: for the dataset of another class that takes over its data.
/// Within the component alone; applications ask `IDataSet::GetProperty`, key by key.
class IPropertySource : public IUnknown {
 public:
  static constexpr Uuid kId{0x54534c4d350000a2ULL, 0x8a1f4c0b6d2e73a2ULL};

  /// Good until the dataset is next changed.
  virtual const PropertyBag& Properties() = 0;

 protected:
  ~IPropertySource() = default;
};

}  // namespace tslm5

#endif  // TSLM5_SRC_CONTRACTS_PROPERTY_SOURCE_H_
