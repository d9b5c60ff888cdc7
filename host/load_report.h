#ifndef TSLM5_HOST_LOAD_REPORT_H_
#define TSLM5_HOST_LOAD_REPORT_H_

#include <string>

#include "host/cell_survey.h"
#include "host/load_command.h"
#include "host/prepared_load.h"
#include "host/store_set.h"

namespace tslm5::host {

/// All that a load has to tell.
struct LoadReport {
  const LoadOptions& options;
  const SeparatorChoice& separator;
  const CellSurvey& survey;
  const StoredSet& stored;
  const PreparedLoad* prepared;  ///< nullptr where the numbers are those of the file
  const FieldTable* fields;      ///< of a prepared load: where its columns are in the file
};

/// In words, a line a subject.
std::string LoadText(const LoadReport& report);

/// As one JSON object on one line.
std::string LoadJson(const LoadReport& report);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_LOAD_REPORT_H_
