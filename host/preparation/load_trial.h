#ifndef TSLM5_HOST_PREPARATION_LOAD_TRIAL_H_
#define TSLM5_HOST_PREPARATION_LOAD_TRIAL_H_

#include <cstdint>
#include <optional>
#include <string>

#include "host/preparation/delimited_file.h"

namespace tslm5::host {

/// The words in which `tslm5 load` would refuse a file that has no faults; nothing where it would
/// load it as the training set of a new run. `problem` is a `problem_category`, none: by the
/// response.
std::optional<std::string> LoadRefusal(const DelimitedFile& file,
                                       std::optional<std::int32_t> problem);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_LOAD_TRIAL_H_
