#ifndef TSLM5_DATASETLITE_LABEL_ROW_H_
#define TSLM5_DATASETLITE_LABEL_ROW_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tslm5 {

/// The character that stands for a blank inside a label of a blank-separated list.
inline constexpr char kLabelBlank = '\x05';

/// The labels of a file's first line. Every separator becomes a blank, runs of blanks one, and the
/// words are the labels. Where that gives another number than the file has `columns`, and splitting
/// the line at the separator gives just that number, those fields are the labels, trimmed, their
/// inner blanks kept. Characters of code 5 become blanks.
std::vector<std::string> SplitLabelRow(std::string_view line, std::string_view separator,
                                       std::int32_t columns);

/// Whether a labels row can be one: no label is a number under `decimal`, and no two are equal
/// without regard to case.
bool AreLabels(const std::vector<std::string>& labels, char decimal);

/// `label` with every character of code 5 as a blank.
std::string PlainLabel(std::string_view label);

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_LABEL_ROW_H_
