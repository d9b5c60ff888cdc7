#ifndef TSLM5_DELIMITED_HEADER_H_
#define TSLM5_DELIMITED_HEADER_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "delimited/findings.h"
#include "tslm5/contracts/delimited_reader.h"

namespace tslm5::delimited {

using Header = DelimitedHeader;

/// Makes labels of the texts of a header: an empty one becomes "d" and the 0-based number of its
/// column, a repeated one gets "_2", "_3" and so on behind it, the first number that gives a label
/// of its own. Both are findings, but for the first column's where it `has_row_names`.
Header MakeHeader(const std::vector<std::string_view>& texts, bool has_row_names, std::int64_t line,
                  FindingList& findings);

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_HEADER_H_
