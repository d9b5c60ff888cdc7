#ifndef TSLM5_DELIMITED_DIALECT_H_
#define TSLM5_DELIMITED_DIALECT_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tslm5::delimited {

/// How a delimited text is written, as it was set or found from the data. The locale of the process
/// has no part in it.
struct Dialect {
  char separator = ',';             ///< one of , ; tab | blank; '\0' for one field a line
  bool has_quotes = true;           ///< double quotes around a field are no part of it (RFC 4180)
  char decimal = '.';               ///< or ','
  bool has_header = false;          ///< the first line of the table holds the labels
  bool has_row_names = false;       ///< the header has no label for the first column
  std::int64_t preamble_lines = 0;  ///< lines before the table
  std::size_t columns = 0;          ///< the fields of a record; 0 where there is none
  std::string encoding = "UTF-8";
};

/// What of a dialect is set; the rest is found from the data.
struct ReadOptions {
  std::optional<char> separator = {};
  std::optional<bool> has_quotes = {};  ///< true where nothing is set
  std::optional<char> decimal = {};
  std::optional<bool> has_header = {};
  /// Lines to be passed over before the table, empty ones included; 0 says that there are none.
  std::optional<std::int64_t> preamble_lines = {};
  /// Without `preamble_lines`: whether lines before the table that were found are no fault.
  bool skips_preamble = false;
  std::string encoding = {};                     ///< an ICU name; empty to find it
  std::vector<std::string> missing_tokens = {};  ///< beside the system's own, letter for letter
};

/// "comma", "semicolon", "tab", "bar", "space", "none".
const char* SeparatorName(char separator);

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_DIALECT_H_
