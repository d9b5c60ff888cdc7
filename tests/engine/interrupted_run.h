#ifndef TSLM5_TESTS_ENGINE_INTERRUPTED_RUN_H_
#define TSLM5_TESTS_ENGINE_INTERRUPTED_RUN_H_

#include <filesystem>
#include <string>

#include "engine/bare_database.h"

namespace tslm5 {

/// Makes at `path` the database that a program leaves when it is killed in the middle of a change:
/// table `t` holds 1 to 1000 once the change is undone; some pages are the change's already.
inline void MakeInterruptedRun(const std::string& path) {
  const std::string whole = path + ".whole";
  BareDatabase database(whole);
  database.Run("CREATE TABLE t (a INTEGER)");
  database.Run(
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1000)"
      " INSERT INTO t SELECT i FROM n");
  database.Run("PRAGMA cache_size = 2");
  database.Run("BEGIN");
  database.Run("UPDATE t SET a = -a");
  for (const char* ending : {"-journal", ""}) {
    std::filesystem::copy_file(whole + ending, path + ending);
  }
  database.Run("ROLLBACK");
  std::filesystem::remove(whole);
}

}  // namespace tslm5

#endif  // TSLM5_TESTS_ENGINE_INTERRUPTED_RUN_H_
