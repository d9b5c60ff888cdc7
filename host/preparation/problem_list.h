#ifndef TSLM5_HOST_PREPARATION_PROBLEM_LIST_H_
#define TSLM5_HOST_PREPARATION_PROBLEM_LIST_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/preparation/cell_survey.h"
#include "host/preparation/delimited_text.h"
#include "host/preparation/file_check.h"

namespace tslm5::host {

/// One thing that is wrong with a file. What a problem does not have is empty: a file as a whole
/// has no line, a row as a whole no column.
struct Problem {
  std::optional<std::int64_t> line;    ///< 1-based, of the file
  std::optional<std::int64_t> record;  ///< 1-based
  std::optional<std::int64_t> column;  ///< 1-based
  std::optional<std::string> label;
  std::string value;    ///< cut and escaped
  std::string message;  ///< the data check's words, the set's name put in
};

/// All that is wrong with a file.
struct ProblemList {
  std::int64_t count = 0;
  std::vector<Problem> first;  ///< as many as were asked for
  CellKind changed;            ///< cells that lose a tab or a semicolon when they are loaded
  std::int64_t records = 0;
  std::int64_t columns = 0;
};

/// Goes through the whole text by the rules of the data check, whose answer for it is `answer`,
/// counts every problem and keeps the first `most_kept`. A file refused before its rows were looked
/// at (for its separator, say) has that one problem. With `comma_is_decimal`, numbers have a
/// decimal comma.
ProblemList FindProblems(const DelimitedText& text, const CheckRequest& request,
                         const CheckAnswer& answer, std::size_t most_kept, bool comma_is_decimal);

/// The same, but the one problem kept is the one that the check answered with.
ProblemList FindAnsweredProblem(const DelimitedText& text, const CheckRequest& request,
                                const CheckAnswer& answer, bool comma_is_decimal);

/// Where a problem is, as far as it has a place, with ": " behind it:
/// `line 4, record 3, column 2 (width): "abc": `.
std::string PlaceOf(const Problem& problem);

/// A message of the check on one line: its line breaks become blanks.
std::string OneLine(const std::string& message);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_PROBLEM_LIST_H_
