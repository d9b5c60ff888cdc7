#ifndef TSLM5_HOST_PREPARATION_LOAD_NOTE_H_
#define TSLM5_HOST_PREPARATION_LOAD_NOTE_H_

#include <cstdint>

#include "host/preparation/load_options.h"
#include "host/preparation/run_session.h"
#include "host/preparation/store_set.h"

namespace tslm5::host {

/// How a file was read.
struct NotedDialect {
  const Separator* separator = nullptr;
  bool has_labels = false;
  char decimal = '.';
  std::int64_t skipped_lines = 0;  ///< before the table
};

/// Notes a load in the run's history: what was read, how, and all that was asked for.
void NoteLoad(const RunSession& session, const LoadOptions& options, const NotedDialect& noted,
              const StoredSet& stored);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_LOAD_NOTE_H_
