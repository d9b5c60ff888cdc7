#ifndef TSLM5_INMEMORY_PARSE_ERRORS_H_
#define TSLM5_INMEMORY_PARSE_ERRORS_H_

#include <cstdint>
#include <string_view>

/// The refusals of a text that have words for the user. Rows and columns are 1-based; rows are
/// counted without the label line and empty lines.
namespace tslm5::ParseErrors {

/// 41020, source "Parse": the row has another number of fields than the first one, or (row 1) the
/// label line cannot be one.
[[noreturn]] void RaiseColumnCount(std::int64_t row);

/// 41011, source "ParseString": the field is no number. Shows its first 15 characters.
[[noreturn]] void RaiseInvalidField(std::string_view field, std::int64_t row, std::int64_t column);

/// 41024, without source: the text has a separator of another kind too.
[[noreturn]] void RaiseMixedSeparators();

/// 41025, source "ParseString": a record without a response.
[[noreturn]] void RaiseMissingResponse(std::int64_t row, std::int64_t column);

/// 41026, source "ParseString": every record has the same response. A problem category 3 asks for
/// two values, 0 for a response that is no constant, any other for two classes.
[[noreturn]] void RaiseSingleClass(std::int32_t problem_category);

/// 41027, source "ParseString": the variable has more than `limit` categories.
[[noreturn]] void RaiseTooManyCategories(std::string_view label, std::int64_t limit);

}  // namespace tslm5::ParseErrors

#endif  // TSLM5_INMEMORY_PARSE_ERRORS_H_
