#ifndef TSLM5_HOST_PREPARATION_STORE_SET_H_
#define TSLM5_HOST_PREPARATION_STORE_SET_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/preparation/cell_survey.h"
#include "host/preparation/delimited_text.h"
#include "host/preparation/load_options.h"
#include "host/preparation/run_status.h"

namespace tslm5::host {

struct FieldFile;

/// What the run holds after a load.
struct StoredSet {
  std::int32_t rows = 0;
  std::int32_t columns = 0;
  bool has_labels = false;
  std::vector<std::string> labels;
  std::optional<std::int32_t> testing_rows;  ///< of the testing set that came with the training set
  std::vector<std::string> warnings;
};

/// Loads the file that `text` was read from, and `survey` found loadable, into its set of the run:
/// the set's table, the labels, the columns, the original texts, the history. All in one
/// transaction: whatever is raised, the run is as it was, and a new one is not there. Raises
/// `OutdatedStatus` when the run is no longer as `status` says.
StoredSet StoreSet(const LoadOptions& options, const RunStatus& status, const DelimitedText& text,
                   const CellSurvey& survey);

/// The same for a table of numbers alone, however its file is written.
StoredSet StoreNumbers(const LoadOptions& options, const RunStatus& status, const FieldFile& file);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_STORE_SET_H_
