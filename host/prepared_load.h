#ifndef TSLM5_HOST_PREPARED_LOAD_H_
#define TSLM5_HOST_PREPARED_LOAD_H_

#include <optional>
#include <vector>

#include "host/delimited_text.h"
#include "host/field_table.h"
#include "host/load_command.h"
#include "host/preparation.h"
#include "host/run_preparation.h"
#include "host/store_set.h"

namespace tslm5::host {

/// A file and its fields, which are views into its text.
struct FieldFile {
  DelimitedText text;
  SeparatorChoice separator;
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
/// is raised, the run is as it was, and a new one is not there.
PreparedLoad StorePrepared(const LoadOptions& options, const FieldFile& main,
                           const FieldFile* testing, bool comma_is_decimal);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARED_LOAD_H_
