#ifndef TSLM5_TESTS_ENGINE_BULK_WAY_H_
#define TSLM5_TESTS_ENGINE_BULK_WAY_H_

#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "tslm5/engine/connection.h"

namespace tslm5 {

/// Whether the whole program runs with TSLM5_BULK=0, so that every record is bound.
inline bool IsBulkSwitchedOff() {
  const char* const value = std::getenv("TSLM5_BULK");
  return value != nullptr && std::strcmp(value, "0") == 0;
}

/// Whether a batch of records was attached in the transaction that is open.
inline bool WasTransferred(IConnection& connection) {
  const Ref<IDataReader> schemas = connection.ExecuteReader("PRAGMA database_list");
  while (schemas->Read()) {
    if (schemas->GetString(1) == "tslm5_batch") return true;
  }
  return false;
}

}  // namespace tslm5

#endif  // TSLM5_TESTS_ENGINE_BULK_WAY_H_
