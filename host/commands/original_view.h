#ifndef TSLM5_HOST_COMMANDS_ORIGINAL_VIEW_H_
#define TSLM5_HOST_COMMANDS_ORIGINAL_VIEW_H_

#include <cstdint>
#include <string>
#include <vector>

#include "host/commands/original_command.h"
#include "host/preparation/run_session.h"
#include "tslm5/contracts/deployment_data_set.h"

namespace tslm5::host {

/// The untransformed records of a run, opened as the options ask for.
class OriginalView {
 public:
  /// Raises `Failure` for a set that the run does not have, a run without original texts, and
  /// classes that the run cannot tell.
  explicit OriginalView(const OriginalOptions& options);

  IDeploymentDataSet& DataSet() const { return *data_set_; }
  std::vector<std::string> Labels() const;

 private:
  void RequireSets(const OriginalOptions& options) const;
  void RequireClasses(const OriginalOptions& options) const;
  /// The response's column, -1 where the run tells of none.
  std::int32_t ResponseColumn() const;
  /// Whether every class of the response is called by the number that the run has for it.
  bool ClassesAreNumbers() const;

  RunSession session_;
  bool is_combined_;
  Ref<IDeploymentDataSet> data_set_;
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_COMMANDS_ORIGINAL_VIEW_H_
