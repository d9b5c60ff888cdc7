#ifndef TSLM5_HOST_PREPARATION_PREPARED_LOAD_H_
#define TSLM5_HOST_PREPARATION_PREPARED_LOAD_H_

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/preparation/delimited_file.h"
#include "host/preparation/field_table.h"
#include "host/preparation/load_options.h"
#include "host/preparation/preparation.h"
#include "host/preparation/run_preparation.h"
#include "host/preparation/store_set.h"

namespace tslm5::host {

/// A file and its fields.
struct FieldFile {
  DelimitedFile file;
  FieldTable table;
};

/// What the run holds after a load that prepared its records.
struct PreparedLoad {
  StoredSet stored;  ///< of the set named on the command line
  Preparation preparation;
  std::optional<ShareOfRecords> share;
  std::vector<UnseenCategory> unseen;
};

/// Makes numbers of the records of `main`, as its set of the run, and stores both the numbers and
/// the texts; with `testing`, or a share of the records, the testing set too. A testing set that
/// the run holds already is prepared anew with a new training set. All in one transaction: whatever
/// is raised, the run is as it was, and a new one is not there. Raises `OutdatedStatus` when the
/// run is no longer as `status` says.
PreparedLoad StorePrepared(const LoadOptions& options, const RunStatus& status,
                           const FieldFile& main, const FieldFile* testing);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_PREPARED_LOAD_H_
