#ifndef TSLM5_HOST_PREPARATION_PREPARE_RECORDS_H_
#define TSLM5_HOST_PREPARATION_PREPARE_RECORDS_H_

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "host/preparation/cell_rule.h"
#include "host/preparation/field_table.h"
#include "host/preparation/preparation.h"

namespace tslm5::host {

/// What the user asks of a preparation.
struct PreparationWishes {
  std::optional<std::int32_t> problem;  ///< `problem_category`; none: by the response
  RunScale scale;
  std::optional<std::string> positive_class;
  std::vector<std::string> missing_tokens;
};

/// Records ready to be stored, and what there is to tell of them.
struct PreparedRecords {
  std::vector<double> values;  ///< record by record
  std::vector<UnseenCategory> unseen;
  std::vector<std::string> warnings;
};

/// Makes numbers of the training records and fills `preparation`. Raises `Failure`, refused, for a
/// missing or constant response, for a column of too many categories, for a positive class that is
/// none, and for a binary problem whose response has not two classes.
PreparedRecords PrepareTraining(const FieldTable& table, const std::vector<std::size_t>& records,
                                const CellRule& rule, const PreparationWishes& wishes,
                                Preparation& preparation);

/// Makes numbers of testing records by what the training records gave. A category that is new gets
/// the next free code, in order of first appearance, and is entered. Raises `Failure`, refused, for
/// a missing response and for a word in a column that was numeric in training.
/// REQUIRES: as many columns as the preparation has.
PreparedRecords PrepareTesting(const FieldTable& table, const std::vector<std::size_t>& records,
                               const CellRule& rule, Preparation& preparation);

/// Adds the missing cells of the inputs to the columns' tokens, in order of first appearance.
void CountTokens(const FieldTable& table, const std::vector<std::size_t>& records,
                 const CellRule& rule, Preparation& preparation);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_PREPARE_RECORDS_H_
