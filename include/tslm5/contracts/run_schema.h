#ifndef TSLM5_CONTRACTS_RUN_SCHEMA_H_
#define TSLM5_CONTRACTS_RUN_SCHEMA_H_

#include <cstdint>

#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// Makes the tables of a new run, on the application's behalf.
class IRunSchema : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000028ULL, 0x8a1f4c0b6d2e7328ULL};

  /// Creates every table and view of a run that `pRun` (a connection service) does not have yet, in
  /// one transaction, and notes the schema version. Raises 41001 when `pRun` is no run, and what
  /// the engine raises; nothing has been created then.
  virtual void CreateSchema(IUnknown* pRun) = 0;
  /// The schema version that this component writes; it reads this version and older ones.
  virtual std::int32_t NewestVersion() = 0;
  /// The schema version noted in the run; 0 when it has none.
  virtual std::int32_t Version(IUnknown* pRun) = 0;

 protected:
  ~IRunSchema() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_RUN_SCHEMA_H_
