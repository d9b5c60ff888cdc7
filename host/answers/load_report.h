#ifndef TSLM5_HOST_ANSWERS_LOAD_REPORT_H_
#define TSLM5_HOST_ANSWERS_LOAD_REPORT_H_

#include <string>

#include "host/preparation/cell_survey.h"
#include "host/preparation/load_options.h"
#include "host/preparation/prepared_load.h"
#include "host/preparation/store_set.h"

namespace tslm5::host {

/// All that a load has to tell.
struct LoadReport {
  const LoadOptions& options;
  const SeparatorChoice& separator;
  const CellSurvey& survey;
  const StoredSet& stored;
  const PreparedLoad* prepared;     ///< nullptr where the numbers are those of the file
  const FieldTable* fields;         ///< of a prepared load: where its columns are in the file
  const DelimitedDialect* dialect;  ///< nullptr for the contract's loader
};

/// In words, a line a subject.
std::string LoadText(const LoadReport& report);

/// As one JSON object on one line.
std::string LoadJson(const LoadReport& report);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_ANSWERS_LOAD_REPORT_H_
