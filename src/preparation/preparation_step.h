#ifndef TSLM5_PREPARATION_PREPARATION_STEP_H_
#define TSLM5_PREPARATION_PREPARATION_STEP_H_

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "preparation/run_access.h"

namespace tslm5 {

/// Appends what was done to the training set to the run's history: the command, its parameters, and
/// the words that repeat it.
void AppendStep(const RunAccess& run, const std::string& command, nlohmann::ordered_json parameters,
                const std::vector<std::string>& words);

}  // namespace tslm5

#endif  // TSLM5_PREPARATION_PREPARATION_STEP_H_
