#ifndef TSLM5_HOST_PROGRAM_TEXT_TABLE_H_
#define TSLM5_HOST_PROGRAM_TEXT_TABLE_H_

#include <cstddef>
#include <string>
#include <vector>

namespace tslm5::host {

using TableLine = std::vector<std::string>;

/// Lines of cells with aligned columns: the first one to the left, the `figures` after it to the
/// right; a last one behind those stands as it is. Cells are aligned by the width they take on a
/// terminal. REQUIRES: every line has at least `figures` + 1 cells.
std::string AlignedTable(const std::vector<TableLine>& lines, std::size_t figures);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PROGRAM_TEXT_TABLE_H_
