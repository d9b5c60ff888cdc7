#ifndef TSLM5_HOST_PREPARATION_LOAD_FILES_H_
#define TSLM5_HOST_PREPARATION_LOAD_FILES_H_

#include <optional>
#include <string>

#include "host/preparation/cell_rule.h"
#include "host/preparation/cell_survey.h"
#include "host/preparation/prepared_load.h"

namespace tslm5::host {

/// Reads one file of a load, once: its text, its separator found out where none was asked for. The
/// table of fields stays empty.
FieldFile ReadTextOf(const LoadOptions& options, const std::string& file, bool comma_is_decimal);

/// Raises `Failure`, refused, where every line holds commas that the user's locale takes for
/// decimal separators.
void RequireGuess(const SeparatorChoice& choice);

/// The survey of a file of numbers alone, which the dataset loads by itself; nothing for any other.
std::optional<CellSurvey> SurveyNumbers(const DelimitedText& text, bool comma_is_decimal);

/// Refuses a file for what is wrong with its structure in the eyes of the data check: words and
/// missing values are none of it.
void RequireStructure(const LoadOptions& options, const FieldFile& fields);

/// Moves the response to the end: the column called `name`, a label or d0, d1, ...; "" leaves the
/// columns as they are. Raises `Failure`, wrong usage, for a name that is none.
void PlaceResponse(FieldTable& table, const std::string& name);

/// The kinds of a table's cells, counted.
CellSurvey SurveyFields(const FieldTable& table, const CellRule& rule);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_LOAD_FILES_H_
