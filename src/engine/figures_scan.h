#ifndef TSLM5_ENGINE_FIGURES_SCAN_H_
#define TSLM5_ENGINE_FIGURES_SCAN_H_

#include <sqlite3.h>

#include <vector>

#include "engine/figures_query.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// Answers a figures query by one scan of the table that feeds all its columns, instead of one call
/// an aggregate and row. True with one value an item in `figures`; or false, when the table is none
/// or a column holds anything but reals and NULL: then the query goes SQLite's way. Raises SQLite's
/// error. Memory: the columns' values.
bool ScanFigures(sqlite3* database, const FiguresQuery& query, std::vector<Variant>& figures);

}  // namespace tslm5

#endif  // TSLM5_ENGINE_FIGURES_SCAN_H_
