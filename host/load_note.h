#ifndef TSLM5_HOST_LOAD_NOTE_H_
#define TSLM5_HOST_LOAD_NOTE_H_

#include "host/delimited_text.h"
#include "host/load_command.h"
#include "host/run_session.h"
#include "host/store_set.h"

namespace tslm5::host {

/// Notes a load in the run's history: what was read, how, and all that was asked for.
void NoteLoad(const RunSession& session, const LoadOptions& options, const DelimitedText& text,
              const StoredSet& stored);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_LOAD_NOTE_H_
