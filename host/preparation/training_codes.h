#ifndef TSLM5_HOST_PREPARATION_TRAINING_CODES_H_
#define TSLM5_HOST_PREPARATION_TRAINING_CODES_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "host/preparation/cell_rule.h"
#include "host/preparation/field_table.h"

namespace tslm5::host {

/// Records as numbers: words coded, missing cells not a number.
struct CodedRecords {
  std::vector<double> values;    ///< record by record
  std::vector<bool> is_nominal;  ///< which columns are categorical
};

/// The text that the component codes: one record a line, tabs between the fields. A character of a
/// word that could pass for a separator is written in another way, two different words never alike.
std::string ComposeTraining(const FieldTable& table, const std::vector<std::size_t>& records,
                            const CellRule& rule);

/// Has the component code these records. Raises `Failure`, refused, in the component's words: for a
/// response that is the same in all records, and for a column of too many categories.
CodedRecords CodeTraining(const FieldTable& table, const std::vector<std::size_t>& records,
                          const CellRule& rule, std::int32_t problem);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_TRAINING_CODES_H_
