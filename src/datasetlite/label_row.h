#ifndef TSLM5_DATASETLITE_LABEL_ROW_H_
#define TSLM5_DATASETLITE_LABEL_ROW_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tslm5 {

/// The labels of a file's first line. Every separator becomes a blank, runs of blanks one, and the
/// words are the labels. Where that gives another number than the file has `columns`, and splitting
/// the line at the separator gives just that number, those fields are the labels, trimmed, their
/// inner blanks kept. Characters of code 5 become blanks.
std::vector<std::string> SplitLabelRow(std::string_view line, std::string_view separator,
                                       std::int32_t columns);

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_LABEL_ROW_H_
