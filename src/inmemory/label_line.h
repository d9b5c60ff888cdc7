#ifndef TSLM5_INMEMORY_LABEL_LINE_H_
#define TSLM5_INMEMORY_LABEL_LINE_H_

#include <string>
#include <string_view>
#include <vector>

/// The labels in the first line of a text.
namespace tslm5::LabelLine {

/// The labels of everything before the first "\n" of `text`; none when there is no "\n". Every
/// `separator` becomes a blank, runs of blanks one, and the words are the labels. A character of
/// code 5 inside a word becomes a blank; without a separator it is deleted instead (meant). A label
/// "d" or "D" is doubled, so that no label is the prefix of the variables' names.
std::vector<std::string> Read(std::string_view text, std::string_view separator);

}  // namespace tslm5::LabelLine

#endif  // TSLM5_INMEMORY_LABEL_LINE_H_
