#ifndef TSLM5_HOST_PREPARATION_LOAD_TARGET_H_
#define TSLM5_HOST_PREPARATION_LOAD_TARGET_H_

#include <optional>
#include <string>

#include "host/preparation/run_session.h"
#include "host/program/beside_file.h"

namespace tslm5::host {

/// The run that a load fills, open for writing. One that exists is changed in place. A new one is
/// made in a file beside its name and moved there when it is complete, so that no other program
/// ever sees half of it, and a load that fails has nothing to remove but its own file.
class LoadTarget {
 public:
  /// Raises `Failure`, file or database trouble, where the run cannot be opened or made.
  explicit LoadTarget(const std::string& run);

  const RunSession& Session() const { return *session_; }

  /// Commits the load, closes the run and moves a new one to its name. Raises `Failure`, file
  /// trouble, when another program has made a run of that name meanwhile: that one stays.
  /// REQUIRES: every dataset of the session is released.
  void Finish(Transaction& transaction);

 private:
  void MakeNew();
  void MoveToName();

  std::string run_;    ///< as the user named it
  std::string place_;  ///< the same without symbolic links
  std::optional<BesideFile> made_;
  std::optional<RunSession> session_;
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_LOAD_TARGET_H_
