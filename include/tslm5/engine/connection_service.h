#ifndef TSLM5_ENGINE_CONNECTION_SERVICE_H_
#define TSLM5_ENGINE_CONNECTION_SERVICE_H_

#include "tslm5/platform/unknown.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// The run object: lends the connection to the run database. Its type name is "Run".
/// The application makes it with `OpenRun`, hands it to the datasets and keeps it while they live.
class IConnectionService : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000044ULL, 0x8a1f4c0b6d2e7344ULL};

  /// A variant holding the `IConnection`.
  virtual Variant GetConnection() = 0;

 protected:
  ~IConnectionService() = default;
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_CONNECTION_SERVICE_H_
