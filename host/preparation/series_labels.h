#ifndef TSLM5_HOST_PREPARATION_SERIES_LABELS_H_
#define TSLM5_HOST_PREPARATION_SERIES_LABELS_H_

#include <cstdint>
#include <optional>
#include <string>

#include "host/preparation/run_session.h"

namespace tslm5::host {

struct SeriesStep {
  std::int32_t dimension = 0;
  std::int32_t delay = 0;
};

/// The last embedding since the last load of a training set, by the run's history.
std::optional<SeriesStep> CurrentEmbedding(const RunSession& session);

/// Notes the label of the series itself, which the run keeps under set id 2, unless a testing set
/// has left one there.
void KeepSeriesLabel(const RunSession& session, const std::string& label);

/// Writes labels and column records of an embedding of the training set, and the labels of its
/// original texts.
void WriteEmbeddingLabels(const RunSession& session, IDataSet& training, const SeriesStep& step);

/// Makes the labels and column records fit a training set that a reset or an undo has put in the
/// place of one of another width. With the same width they stay.
void FitLabels(const RunSession& session, IDataSet& training);

/// Takes the testing samples of a former embedding away. REQUIRES: no set of the run is open.
void DropTestingSamples(const RunSession& session);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_SERIES_LABELS_H_
