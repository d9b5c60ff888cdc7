#ifndef TSLM5_HOST_ANSWERS_STORED_TEXT_H_
#define TSLM5_HOST_ANSWERS_STORED_TEXT_H_

#include <string>
#include <vector>

#include "host/preparation/run_session.h"
#include "host/program/set_names.h"

namespace tslm5::host {

/// One warning for each column of a set in which text is stored, as a plain `Parse` of words leaves
/// it: the figures that the run keeps of such a column are not those of its numbers. `labels` has
/// the label of every column.
std::vector<std::string> WarningsOfStoredText(const RunSession& session, const SetName& set,
                                              const std::vector<std::string>& labels);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_ANSWERS_STORED_TEXT_H_
