#ifndef TSLM5_ENGINE_CONNECTION_DISPATCH_H_
#define TSLM5_ENGINE_CONNECTION_DISPATCH_H_

#include <span>
#include <string_view>

#include "tslm5/engine/connection.h"
#include "tslm5/platform/dispatch.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// The connection's operations by name: `Execute`, `ExecuteReader`, `BeginTrans`, `CommitTrans`,
/// `RollbackTrans` and `TableExists`.
class ConnectionDispatch final : public Facet<IDispatch> {
 public:
  ConnectionDispatch(IUnknown& owner, IConnection& connection)
      : Facet(owner), connection_(connection) {}

  Variant Invoke(std::string_view pName, std::span<const Variant> pArguments) override;

 private:
  IConnection& connection_;
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_CONNECTION_DISPATCH_H_
