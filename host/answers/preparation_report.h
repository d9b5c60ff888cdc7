#ifndef TSLM5_HOST_ANSWERS_PREPARATION_REPORT_H_
#define TSLM5_HOST_ANSWERS_PREPARATION_REPORT_H_

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "host/preparation/prepared_load.h"

namespace tslm5::host {

/// What was made of the texts, in words, a line a subject.
std::string PreparationText(const PreparedLoad& load);

/// The same as one JSON object.
nlohmann::ordered_json PreparationJson(const PreparedLoad& load);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_ANSWERS_PREPARATION_REPORT_H_
