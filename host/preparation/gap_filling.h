#ifndef TSLM5_HOST_PREPARATION_GAP_FILLING_H_
#define TSLM5_HOST_PREPARATION_GAP_FILLING_H_

#include <cstdint>
#include <vector>

#include "host/preparation/gap_column.h"
#include "host/preparation/replacement_choice.h"
#include "host/preparation/run_session.h"

namespace tslm5::host {

// Changes of a run's missing values, each to be called inside a transaction.

/// Keeps the choices for a column's tokens; one that is taken back opens the cells again that were
/// filled. Raises `Failure` for a token that the component does not take.
void ChooseReplacements(const RunSession& session, const Ref<IDataSet>& data_set,
                        const GapColumn& column, const std::vector<ReplacementChoice>& choices);

/// Writes the chosen replacements of a column into the data, in the run's scale. Raises `Failure`,
/// which tells why, when the component could not.
void FillGaps(const RunSession& session, const Ref<IDataSet>& data_set, const GapColumn& column);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_GAP_FILLING_H_
