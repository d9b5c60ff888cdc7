#ifndef TSLM5_DATASETLITE_COLUMN_RECORDS_H_
#define TSLM5_DATASETLITE_COLUMN_RECORDS_H_

#include <cstddef>

#include "tslm5/engine/connection.h"

namespace tslm5 {

/// The column records (`DataSetColumn`) of a run whose application keeps none of its own: they are
/// made of the labels that the run keeps for its training set. What an application has put there,
/// such as categories or missing counts, is never touched.
namespace ColumnRecords {

/// Whether the run has the table, and no record in it says more than the stored label of its column
/// and that the last one is the response. So it is, too, when there are no records.
bool AreOfLabels(IConnection& connection);

/// Makes the records anew of the stored labels; false, and there are none then, when the training
/// table has another number of columns than `labels`. REQUIRES: `AreOfLabels`, before the labels
/// were stored; a transaction.
bool Renew(IConnection& connection, std::size_t labels);

}  // namespace ColumnRecords

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_COLUMN_RECORDS_H_
