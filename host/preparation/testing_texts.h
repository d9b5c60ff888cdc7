#ifndef TSLM5_HOST_PREPARATION_TESTING_TEXTS_H_
#define TSLM5_HOST_PREPARATION_TESTING_TEXTS_H_

#include <cstddef>
#include <string>
#include <vector>

#include "host/preparation/field_table.h"
#include "host/preparation/run_session.h"

namespace tslm5::host {

/// The testing records of the run as the texts that they were made from, which the table keeps.
/// Records without a text are left out.
FieldTable ReadTestingTexts(const RunSession& session, std::size_t columns,
                            const std::vector<std::string>& labels, char decimal);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_TESTING_TEXTS_H_
