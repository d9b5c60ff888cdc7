#ifndef TSLM5_HOST_PREPARATION_RUN_CHANGE_H_
#define TSLM5_HOST_PREPARATION_RUN_CHANGE_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/preparation/run_session.h"

namespace tslm5::host {

// What the commands have in common that change the cells of a run.

/// The run's training set. Raises `Failure` when it has none.
Ref<IDataSet> RequireTrainingSet(const RunSession& session, const std::string& run);

/// The word that names a column on a command line: its label where that is beyond doubt, else its
/// name, d0, d1, ...
std::string ColumnWord(std::int32_t column, const std::vector<std::string>& labels);

/// "LABEL (d3)", for people.
std::string ColumnTitle(std::int32_t column, const std::string& label);

/// The run parameter "NormalizationType"; 0 where the run has none.
std::int32_t NormalizationType(const RunSession& session);

/// Writes `value` into the cells of a column whose original text is `text`, in the training and the
/// testing set; not a number leaves them without a value.
void WriteCellsOf(const RunSession& session, std::int32_t column, std::string_view text,
                  double value);

/// Forgets the statistics of the training and the testing set, whose cells have changed, and
/// computes them anew if `compute`. Raises `Failure` when Ctrl-C was pressed.
void RenewStatistics(const RunSession& session, bool compute);

/// Raises `Failure`, the data refused, for a text with an apostrophe: the component pastes texts
/// into its statements. `what` says what the text is.
void RefuseApostrophe(std::string_view what, std::string_view text);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_RUN_CHANGE_H_
