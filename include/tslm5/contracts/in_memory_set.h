#ifndef TSLM5_CONTRACTS_IN_MEMORY_SET_H_
#define TSLM5_CONTRACTS_IN_MEMORY_SET_H_

#include <cstdint>
#include <string>

#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/event_args.h"
#include "tslm5/platform/ref.h"
#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// What an `InMemorySet` offers beyond the dataset interfaces.
class IInMemorySet : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000027ULL, 0x8a1f4c0b6d2e7327ULL};

  /// A deep copy, without the listeners.
  virtual Ref<IDataSet> Clone() = 0;
  /// Sets the type code and the name that goes with it.
  virtual void SetDataSetType(std::int32_t pDataSetType) = 0;
  /// Removes empty lines at the end of `pData`, in place, and returns the text.
  virtual std::string RemoveEmptyLinesAtEnd(std::string& pData) = 0;
  /// As `IDataSet::Parse`, its events carrying the caller's `pEvArgs` (may be null).
  virtual void ParseWithEvents(std::string_view pFileName, std::int32_t pSeparator, bool pHasLabels,
                               std::int32_t pDataSetType, std::int32_t pLayout,
                               IParseEventArgs* pEvArgs) = 0;

 protected:
  ~IInMemorySet() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_IN_MEMORY_SET_H_
