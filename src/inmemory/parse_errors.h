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

/// 41026, source "ParseString": every record has the same response. `binary` asks for two values.
[[noreturn]] void RaiseSingleClass(bool binary);

}  // namespace tslm5::ParseErrors

#endif  // TSLM5_INMEMORY_PARSE_ERRORS_H_
