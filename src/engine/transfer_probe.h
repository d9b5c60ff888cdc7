#ifndef TSLM5_ENGINE_TRANSFER_PROBE_H_
#define TSLM5_ENGINE_TRANSFER_PROBE_H_

#include <sqlite3.h>

namespace tslm5 {

/// Whether records may reach the tables of `database` in images of pages: this SQLite copies them
/// whole, what `RecordEncoder` makes of a set of hard values is to the byte what an INSERT makes of
/// them, and the database is one of those rules (UTF-8, the format of today). Everything is tried
/// in a database in memory; the run itself is only read. False as well when memory is short. The
/// variable TSLM5_BULK=0 of the environment makes it false.
bool CanTransferImages(sqlite3* database) noexcept;

}  // namespace tslm5

#endif  // TSLM5_ENGINE_TRANSFER_PROBE_H_
