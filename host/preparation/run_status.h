#ifndef TSLM5_HOST_PREPARATION_RUN_STATUS_H_
#define TSLM5_HOST_PREPARATION_RUN_STATUS_H_

#include <string>

#include "host/preparation/run_session.h"

namespace tslm5::host {

/// What a load must know of its run beforehand, to choose the way in which it stores a file.
struct RunStatus {
  bool is_prepared = false;
  bool has_training = false;
  bool has_testing = false;
  std::string response;  ///< the label of the response; "" when there is none

  bool operator==(const RunStatus&) const = default;
};

/// Of the run at `path`; one that is not there yet has nothing.
RunStatus ReadRunStatus(const std::string& path);

/// Another program has changed the run since its status was read.
struct OutdatedStatus {};

/// Raises `OutdatedStatus` when the run is no longer as `status` says. Called inside the
/// transaction of the load, from where on nobody else can change it.
void RequireStatus(const RunSession& session, const RunStatus& status);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_RUN_STATUS_H_
