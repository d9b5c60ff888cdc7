#ifndef TSLM5_HOST_PREPARATION_REPLACEMENT_CHOICE_H_
#define TSLM5_HOST_PREPARATION_REPLACEMENT_CHOICE_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "host/preparation/coded_column.h"
#include "host/preparation/gap_column.h"

namespace tslm5::host {

/// What the cells of a token are to hold.
struct ReplacementChoice {
  std::string token;
  std::int32_t type = 0;  ///< `replacement_type`
  double value = 0.0;     ///< of a number or a category; the figures are not known yet
};

/// Shown and taken for the token of an empty cell.
inline constexpr std::string_view kEmptyToken = "(empty)";

/// Reads "TOKEN=mean|median|min|max|NUMBER|none", or "TOKEN=CATEGORY" where the column is
/// categorical. Of the column's tokens the longest that the word begins with counts, so that a
/// token may hold "=". A category's name goes before a number. Raises `Failure`, wrong usage, for a
/// token that the column does not have and for what cannot replace it.
ReplacementChoice ParseReplacement(std::string_view word, const GapColumn& column,
                                   const CodedColumn& categories);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_REPLACEMENT_CHOICE_H_
