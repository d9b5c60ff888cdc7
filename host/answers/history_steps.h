#ifndef TSLM5_HOST_ANSWERS_HISTORY_STEPS_H_
#define TSLM5_HOST_ANSWERS_HISTORY_STEPS_H_

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "host/preparation/run_history.h"

namespace tslm5::host {

// A step of a run's history in words.

/// The set or sets of a step; "" for a step of none.
std::string StepSet(const HistoryEntry& entry);

/// The parameters of a step: an object.
nlohmann::ordered_json StepParameters(const HistoryEntry& entry);

/// A parameter's value for people.
std::string StepValue(const nlohmann::ordered_json& value);

/// The command line that does the step again in the run `run`; "" for a step that cannot be told
/// as a command.
std::string StepCommandLine(const HistoryEntry& entry, const std::string& run);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_ANSWERS_HISTORY_STEPS_H_
