#ifndef TSLM5_HOST_PREPARATION_LOAD_FILES_H_
#define TSLM5_HOST_PREPARATION_LOAD_FILES_H_

#include <string>

#include "host/preparation/cell_rule.h"
#include "host/preparation/cell_survey.h"
#include "host/preparation/delimited_file.h"
#include "host/preparation/load_options.h"

namespace tslm5::host {

/// What the options say of the way in which a file is written.
DelimitedOptions DialectOptions(const LoadOptions& options);

/// The records of a file in the layout that was asked for. In a file of columns the first field of
/// each line is a label where all of them are texts and numbers follow.
FieldTable ReadFields(const LoadOptions& options, const DelimitedFile& file);

/// The separator of a file, and why it was taken.
SeparatorChoice ChoiceOf(const LoadOptions& options, const DelimitedFile& file);

/// Moves the response to the end: the column called `name`, a label or d0, d1, ...; "" leaves the
/// columns as they are. Raises `Failure`, wrong usage, for a name that is none.
void PlaceResponse(FieldTable& table, const std::string& name);

/// The kinds of a table's cells, counted.
CellSurvey SurveyFields(const FieldTable& table, const CellRule& rule);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_LOAD_FILES_H_
