#ifndef TSLM5_HOST_PREPARATION_LABEL_LIST_H_
#define TSLM5_HOST_PREPARATION_LABEL_LIST_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tslm5::host {

/// Labels for people: cut and escaped, the first dozen and the number of the others.
std::string LabelList(const std::vector<std::string>& labels);

/// The column of that label, else the one that `name` names as d0, d1, ...
std::optional<std::int32_t> FindColumn(std::string_view name,
                                       const std::vector<std::string>& labels);

/// The same, or without the blanks around `name`. Raises `Failure`, wrong usage, for a name that is
/// none; the message begins with `place` and tells the labels there are.
std::int32_t RequireColumn(std::string_view place, std::string_view name,
                           const std::vector<std::string>& labels);

/// The columns that the words of `--columns` name, in that order: labels, or d0, d1, ... A word may
/// hold several, separated by commas, unless it is a label itself. No words: every column.
/// Raises `Failure`, wrong usage, for a name that is none; the message tells the labels there are.
std::vector<std::int32_t> ChooseColumns(const std::vector<std::string>& words,
                                        const std::vector<std::string>& labels);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_LABEL_LIST_H_
