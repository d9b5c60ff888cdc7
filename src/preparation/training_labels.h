#ifndef TSLM5_PREPARATION_TRAINING_LABELS_H_
#define TSLM5_PREPARATION_TRAINING_LABELS_H_

#include <cstdint>
#include <string>

#include "preparation/run_access.h"

namespace tslm5 {

/// An embedding that was done to the training set.
struct Embedding {
  std::int32_t dimension = 0;
  std::int32_t delay = 0;
};

/// The last embedding since the last load of a training set, by the run's history; false for none.
bool ReadCurrentEmbedding(const RunAccess& run, Embedding& embedding);

/// Writes the label of the series itself, unless a testing set has labels of its own in its place.
void WriteSeriesLabel(const RunAccess& run, const std::string& label);

/// Writes labels and columns of an embedding of the training set, and the labels of its original
/// texts.
void WriteEmbeddingLabels(const RunAccess& run, IDataSet& training, const Embedding& embedding);

/// Makes the labels and columns fit a training set that a reset or an undo has put in the place of
/// one of another width. With the same width they stay.
void FitLabels(const RunAccess& run, IDataSet& training);

}  // namespace tslm5

#endif  // TSLM5_PREPARATION_TRAINING_LABELS_H_
