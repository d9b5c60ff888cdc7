#ifndef TSLM5_HOST_PREPARATION_RESPONSE_CLASSES_H_
#define TSLM5_HOST_PREPARATION_RESPONSE_CLASSES_H_

#include <cstdint>
#include <optional>
#include <string>

#include "host/preparation/field_table.h"
#include "host/preparation/preparation.h"

namespace tslm5::host {

/// Whether the values of a numeric response are classes, each to be entered as a category.
bool HasClasses(std::int32_t problem, const std::optional<std::string>& positive_class);

/// Settles the codes of the response's classes: with a positive class that one is 1 and every other
/// 0; and what the two classes are when there are two codes. Raises `Failure`, refused, for a
/// positive class that is none, and for a binary problem of other than two codes.
/// REQUIRES: the categories of the response are entered.
void SettleClasses(const FieldTable& table, const std::optional<std::string>& positive_class,
                   Preparation& preparation);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_RESPONSE_CLASSES_H_
