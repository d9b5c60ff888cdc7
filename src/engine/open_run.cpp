#include "tslm5/engine/open_run.h"
#include "platform/only_errors.h"

#include "engine/run_connection.h"
#include "tslm5/engine/run_recovery.h"
#include "tslm5/platform/object.h"

namespace tslm5 {
namespace {

/// The connection service: one connection for the life of the run object.
class Run final : public CountedObject<IConnectionService> {
 public:
  explicit Run(Ref<RunConnection> connection) : connection_(std::move(connection)) {}

  std::string_view TypeName() override { return "Run"; }
  Variant GetConnection() override { return Variant(connection_); }

  bool QueryInterface(const Uuid& pId, void** pObject) override {
    if (pId != IRunRecovery::kId) return CountedObject::QueryInterface(pId, pObject);
    *pObject = static_cast<IRunRecovery*>(&recovery_facet_);
    AddRef();
    return true;
  }

 private:
  class RecoveryFacet final : public Facet<IRunRecovery> {
   public:
    explicit RecoveryFacet(Run& owner) : Facet(owner), run_(owner) {}
    bool WasRecovered() override { return run_.connection_->OpeningRecovery().was_recovered; }
    std::int64_t InterruptedAt() override {
      return run_.connection_->OpeningRecovery().interrupted_at;
    }

   private:
    Run& run_;
  };

  ~Run() override = default;

  Ref<RunConnection> connection_;
  RecoveryFacet recovery_facet_{*this};
};

}  // namespace

Ref<IConnectionService> OpenRun(const std::string& path, const RunOptions& options) {
  return OnlyErrors([&] { return MakeObject<Run>(MakeObject<RunConnection>(path, options)); });
}

}  // namespace tslm5
