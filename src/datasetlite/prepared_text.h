#ifndef TSLM5_DATASETLITE_PREPARED_TEXT_H_
#define TSLM5_DATASETLITE_PREPARED_TEXT_H_

#include <cstdint>
#include <string>
#include <string_view>

namespace tslm5 {

/// The text of a delimited file, ready to be loaded: rows of blank-separated values, none of them
/// empty but for the last.
struct PreparedText {
  std::string text;
  std::string label_row;     ///< as it stands in the file; empty without labels
  std::int32_t columns = 0;  ///< values in the first row
  std::string refusal;       ///< why its records cannot be stored; empty when they can
};

/// Prepares the text of a file. `layout` is a `layout_code`, `source` the operation that loads. A
/// text without a separator that is to be transposed raises 41001, one whose lines are longer than
/// its first 9. A text of nothing but plain numbers is not read field by field, unless
/// `counts_plain_records` is false; the result is the same.
PreparedText PrepareText(std::string text, std::string_view separator, bool has_labels,
                         std::int32_t layout, const char* source, bool counts_plain_records = true);

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_PREPARED_TEXT_H_
