#ifndef TSLM5_HOST_PREPARATION_SET_AGREEMENT_H_
#define TSLM5_HOST_PREPARATION_SET_AGREEMENT_H_

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "host/preparation/run_session.h"
#include "host/program/set_names.h"

namespace tslm5::host {

/// The testing set of the training set, and the other way round.
const SetName& OtherSet(const SetName& set);

/// The records of both sets are records of one problem: they must have the same columns. Raises
/// `Failure`, refused, when the run's other set has another number of them.
void RequireSameColumns(const RunSession& session, const SetName& set, std::size_t columns);

/// The labels of a run are those of its training set. What to warn of when another set's are not
/// the same.
std::optional<std::string> CompareLabels(const RunSession& session,
                                         const std::vector<std::string>& labels,
                                         const SetName& set);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_SET_AGREEMENT_H_
