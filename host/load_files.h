#ifndef TSLM5_HOST_LOAD_FILES_H_
#define TSLM5_HOST_LOAD_FILES_H_

#include <string>

#include "host/cell_rule.h"
#include "host/cell_survey.h"
#include "host/prepared_load.h"

namespace tslm5::host {

/// What a load must know of its run beforehand.
struct RunGlimpse {
  bool is_prepared = false;
  bool has_training = false;
  bool has_testing = false;
  std::string response;  ///< the label of the response; "" when there is none
};

/// Looks into the run of a load; a run that is not there yet has nothing.
RunGlimpse GlimpseRun(const std::string& run);

/// Reads one file of a load: its text, its separator found out where none was asked for. The table
/// of fields stays empty.
FieldFile ReadTextOf(const LoadOptions& options, const std::string& file, bool comma_is_decimal);

/// Refuses a file for what is wrong with its structure in the eyes of the data check: words and
/// missing values are none of it.
void RequireStructure(const LoadOptions& options, const std::string& file, const FieldFile& fields,
                      bool comma_is_decimal);

/// Moves the response to the end: the column called `name`, a label or d0, d1, ...; "" leaves the
/// columns as they are. Raises `Failure`, wrong usage, for a name that is none.
void PlaceResponse(FieldTable& table, const std::string& name);

/// The kinds of a table's cells, counted.
CellSurvey SurveyFields(const FieldTable& table, const CellRule& rule);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_LOAD_FILES_H_
