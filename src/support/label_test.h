#ifndef TSLM5_SUPPORT_LABEL_TEST_H_
#define TSLM5_SUPPORT_LABEL_TEST_H_

#include <string>
#include <string_view>
#include <vector>

namespace tslm5 {

/// The character that stands for a blank inside a label of a blank-separated list.
inline constexpr char kLabelBlank = '\x05';

/// `label` with every such character as a blank.
std::string PlainLabel(std::string label);

/// The words of a label line: every `separator` counts as a blank, runs of blanks as one. None of
/// an empty line. Characters of code 5 become blanks.
std::vector<std::string> LabelWords(std::string line, std::string_view separator);

/// Whether a row of texts can be labels: none is a number under `decimal`, and no two are equal
/// without regard to case.
bool AreLabels(const std::vector<std::string>& labels, char decimal);

}  // namespace tslm5

#endif  // TSLM5_SUPPORT_LABEL_TEST_H_
