#include "tslm5/engine/open_run.h"

#include "engine/run_connection.h"
#include "tslm5/platform/object.h"

namespace tslm5 {
namespace {

/// The connection service: one connection for the life of the run object.
class Run final : public CountedObject<IConnectionService> {
 public:
  explicit Run(Ref<RunConnection> connection) : connection_(std::move(connection)) {}

  std::string_view TypeName() override { return "Run"; }
  Variant GetConnection() override { return Variant(connection_); }

 private:
  ~Run() override = default;

  Ref<RunConnection> connection_;
};

}  // namespace

Ref<IConnectionService> OpenRun(const std::string& path, const RunOptions& options) {
  return MakeObject<Run>(MakeObject<RunConnection>(path, options));
}

}  // namespace tslm5
